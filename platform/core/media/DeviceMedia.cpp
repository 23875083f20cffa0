#include "platform/Desktop.h"
#include "platform/Media.h"
#include "platform/core/Backend.h"
#include "platform/core/media/Mixer.h"

#include <atomic>
#include <chrono>
#include <optional>
#include <utility>

namespace platform {

namespace {
// Well below what is decoded ahead, and short enough to notice an end within the frame in which it falls.
constexpr std::chrono::nanoseconds roundTime = std::chrono::milliseconds(15);

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

/// A mixer on the default device, with a worker for its rounds: neither opening the device nor decoding holds a frame
/// up.
class DevicePlayer : public MediaPlayer {
public:
    explicit DevicePlayer(Desktop& desktop)
        : mixer(desktop.GetBackend(), Now, desktop.GetBackend().findSoundDevice(), [this] { workerPtr->Wake(); }),
          workerPtr(desktop.StartWorker([this](Worker& worker) { Work(worker); })) {}

    ~DevicePlayer() override {
        stopping = true;
        workerPtr.reset();
    }

    std::unique_ptr<MediaVoice> MakeVoice(std::shared_ptr<const MediaFile> filePtr) override {
        return mixer.MakeVoice(std::move(filePtr));
    }
    void Suspend(bool suspend) override { mixer.Suspend(suspend); }

private:
    void Work(Worker& worker) {
        while (worker.Rest(mixer.DoRound() ? std::optional(roundTime) : std::nullopt)) {}
        if (stopping) mixer.CloseDevice(); // on the thread that used it
    }

    Mixer mixer;
    std::atomic<bool> stopping = false;
    std::unique_ptr<Worker> workerPtr; // last: it uses everything above
};
} // namespace

std::unique_ptr<MediaInterface> MakeDeviceMedia(Desktop& desktop) {
    return MakeMedia(desktop, std::make_unique<DevicePlayer>(desktop));
}

} // namespace platform
