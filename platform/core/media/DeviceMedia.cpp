#include "platform/Desktop.h"
#include "platform/Media.h"
#include "platform/core/Backend.h"
#include "platform/core/media/Mixer.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {

namespace {
// Well below what is decoded ahead, and short enough to notice an end within the frame in which it falls.
constexpr auto roundTime = std::chrono::milliseconds(15);

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

/// A mixer on the default device, with a thread for its rounds: neither opening the device nor decoding holds a frame
/// up.
class DevicePlayer : public MediaPlayer {
public:
    explicit DevicePlayer(const Backend& backend)
        : mixer(backend, Now, backend.findSoundDevice(), [this] { Wake(); }), thread([this] { Work(); }) {}

    ~DevicePlayer() override {
        {
            const std::lock_guard lock(mutex);
            stopping = true;
        }
        changed.notify_one();
        thread.join();
    }

    std::unique_ptr<MediaVoice> MakeVoice(std::shared_ptr<const MediaFile> filePtr) override {
        return mixer.MakeVoice(std::move(filePtr));
    }
    void Suspend(bool suspend) override { mixer.Suspend(suspend); }

private:
    void Wake() {
        {
            const std::lock_guard lock(mutex);
            hasNews = true;
        }
        changed.notify_one();
    }

    void Work() {
        std::unique_lock lock(mutex);
        while (!stopping) {
            hasNews = false;
            lock.unlock();
            const bool somethingPlays = mixer.DoRound();
            lock.lock();
            const auto mustGoOn = [this] { return hasNews || stopping; };
            if (somethingPlays) {
                changed.wait_for(lock, roundTime, mustGoOn);
            } else {
                changed.wait(lock, mustGoOn);
            }
        }
        lock.unlock();
        mixer.CloseDevice(); // on the thread that used it
    }

    Mixer mixer;
    std::mutex mutex;
    std::condition_variable changed;
    bool hasNews = false;
    bool stopping = false;
    std::thread thread; // last: it uses everything above
};
} // namespace

std::unique_ptr<MediaInterface> MakeDeviceMedia(Desktop& desktop) {
    return MakeMedia(desktop, std::make_unique<DevicePlayer>(desktop.GetBackend()));
}

} // namespace platform
