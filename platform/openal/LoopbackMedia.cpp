#include "platform/LoopbackMedia.h"

#include "platform/Desktop.h"
#include "platform/core/media/Mixer.h"
#include "platform/openal/OpenAlDevice.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {
constexpr std::size_t samplesPerRound = LoopbackMedia::samplesPerSecond / 100 * 2;

class OpenAlLoopback : public LoopbackMedia {
public:
    explicit OpenAlLoopback(Desktop& timingDesktop) : desktop(timingDesktop) {
        auto ownedPtr = std::make_unique<Mixer>(
            desktop.GetBackend(), [this] { return static_cast<double>(desktop.Counter()) * desktop.SecondsPerCount(); },
            [this] { return pluggedIn ? OpenAlDevice::OpenLoopback(samplesPerSecond) : nullptr; }, [] {});
        mixerPtr = ownedPtr.get();
        commandsPtr = MakeMedia(desktop, std::move(ownedPtr));
    }

    DWORD Send(std::wstring_view command, std::wstring* replyPtr, HWND notifyWindow) override {
        return commandsPtr->Send(command, replyPtr, notifyWindow);
    }
    void Suspend(bool suspend) override { commandsPtr->Suspend(suspend); }
    void Update() override {
        mixerPtr->DoRound();
        commandsPtr->Update();
    }

    void Render(std::span<float> samples) override {
        while (!samples.empty()) {
            mixerPtr->DoRound();
            const std::span<float> next = samples.first(std::min(samples.size(), samplesPerRound));
            if (const auto* const devicePtr = static_cast<OpenAlDevice*>(mixerPtr->DevicePtr())) {
                devicePtr->Render(next);
            } else {
                std::fill(next.begin(), next.end(), 0.0F);
            }
            samples = samples.subspan(next.size());
        }
    }

    void PlugIn(bool isPluggedIn) override {
        pluggedIn = isPluggedIn;
        if (!pluggedIn) mixerPtr->CloseDevice();
    }

private:
    Desktop& desktop;
    bool pluggedIn = true;
    std::unique_ptr<MediaInterface> commandsPtr;
    Mixer* mixerPtr = nullptr; // owned by the commands
};
} // namespace

std::unique_ptr<LoopbackMedia> MakeLoopbackMedia(Desktop& desktop) { return std::make_unique<OpenAlLoopback>(desktop); }

} // namespace platform
