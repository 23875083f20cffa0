#pragma once

#include "platform/core/media/MediaPlayer.h"
#include "platform/core/media/SoundDevice.h"

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace platform {

struct Backend;

/// Makes what its voices were ordered audible, on a device or, while there is none, on a clock. Voices take orders on
/// one thread; another may do the rounds in which the orders are followed.
class Mixer : public MediaPlayer {
public:
    using Clock = std::function<double()>; // seconds

    /// Sounds are decoded by `backend`. `silentClock` keeps the time of what no device plays. `deviceOpener` may answer
    /// null; it is asked again, less and less often, for as long as something plays. `orderListener` is told, on the
    /// ordering thread, that a round has something new to do.
    Mixer(const Backend& backend, Clock silentClock, SoundDeviceOpener deviceOpener,
          std::function<void()> orderListener);
    ~Mixer() override;

    // The ordering thread

    std::unique_ptr<MediaVoice> MakeVoice(std::shared_ptr<const MediaFile> filePtr) override;
    void Suspend(bool suspend) override;

    // The thread that does the rounds

    /// Follows the orders. True if something plays, and rounds have to go on every few hundredths of a second.
    bool DoRound();
    /// Gives everything back that belongs to the device. The next round may open it again.
    void CloseDevice();
    /// The open device, or null.
    SoundDevice* DevicePtr() const { return devicePtr.get(); }

private:
    class Voice;

    /// One sound: its orders, shared between the threads under the mutex, and how far the rounds have come with them.
    struct Channel {
        explicit Channel(std::shared_ptr<const MediaFile> playedFilePtr) : filePtr(std::move(playedFilePtr)) {}
        const std::shared_ptr<const MediaFile> filePtr;

        MediaOrder order;
        unsigned endedPlayback = 0;
        bool isOpen = true; // its voice still exists

        MediaOrder followed;
        bool isNew = false; // a playback whose rounds have not begun
        bool ended = false;
        bool isMute = false; // what plays now cannot be made audible
        PlayHead head;
        std::unique_ptr<SoundSource> sourcePtr;
        std::shared_ptr<const SoundClip> clipPtr; // kept for the next time
    };

    void TakeOrders();
    void PublishEnds();
    bool SomethingPlays() const;
    void KeepDevice();
    void Serve(Channel& channel, double now);
    void StartSource(Channel& channel, double from);
    std::shared_ptr<const SoundClip> ClipOf(const Channel& channel);
    std::unique_ptr<SoundDecoder> OpenDecoder(const MediaFile& file) const;

    const Backend& decoders;
    const Clock readClock;
    const SoundDeviceOpener openDevice;
    const std::function<void()> onOrder;

    std::mutex mutex;
    std::vector<std::shared_ptr<Channel>> channels; // under the mutex
    bool suspendOrdered = false;                    // under the mutex

    std::unique_ptr<SoundDevice> devicePtr;
    double nextAttempt = 0.0; // to open the device
    double attemptPause = 0.0;
    std::vector<std::shared_ptr<Channel>> served;
    bool suspended = false;
};

} // namespace platform
