#include "platform/Desktop.h"
#include "platform/Media.h"
#include "platform/core/media/MediaPlayer.h"

#include <algorithm>
#include <vector>

namespace platform {

namespace {
/// Lets sounds take their time on the desktop's clock.
class SilentPlayer : public MediaPlayer {
public:
    explicit SilentPlayer(const Desktop& timingDesktop) : desktop(timingDesktop) {}

    std::unique_ptr<MediaVoice> MakeVoice(std::shared_ptr<const MediaFile>) override {
        return std::make_unique<Voice>(*this);
    }

    void Suspend(bool suspend) override {
        suspended = suspend;
        for (Voice* voicePtr : voicePtrs) voicePtr->Run();
    }

private:
    class Voice : public MediaVoice {
    public:
        explicit Voice(SilentPlayer& owningPlayer) : player(owningPlayer) { player.voicePtrs.push_back(this); }
        ~Voice() override { std::erase(player.voicePtrs, this); }

        void Follow(const MediaOrder& newOrder) override {
            if (newOrder.playback != order.playback) head.Set(newOrder.from, newOrder.to);
            order = newOrder;
            Run();
        }

        void Run() { head.Run(player.Now(), order.playing && !order.paused && !player.suspended); }

        bool HasEnded() override { return head.HasEnded(player.Now()); }

    private:
        SilentPlayer& player;
        MediaOrder order;
        PlayHead head;
    };

    double Now() const { return static_cast<double>(desktop.Counter()) * desktop.SecondsPerCount(); }

    const Desktop& desktop;
    bool suspended = false;
    std::vector<Voice*> voicePtrs;
};
} // namespace

std::unique_ptr<MediaInterface> MakeSilentMedia(Desktop& desktop) {
    return MakeMedia(desktop, std::make_unique<SilentPlayer>(desktop));
}

} // namespace platform
