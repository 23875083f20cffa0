#include "platform/core/media/Mixer.h"

#include "platform/core/Backend.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {
constexpr int longestClip = 4000; // milliseconds; what is longer is streamed

// Between two attempts to open the device: soon after a headset was pulled out, seldom on a machine without sound.
constexpr double firstPause = 2.0; // seconds
constexpr double longestPause = 60.0;
} // namespace

class Mixer::Voice : public MediaVoice {
public:
    Voice(Mixer& owningMixer, std::shared_ptr<Channel> orderedChannelPtr)
        : mixer(owningMixer), channelPtr(std::move(orderedChannelPtr)) {}

    ~Voice() override {
        {
            const std::lock_guard lock(mixer.mutex);
            channelPtr->isOpen = false;
            channelPtr->order.playing = false;
        }
        mixer.onOrder();
    }

    void Follow(const MediaOrder& order) override {
        {
            const std::lock_guard lock(mixer.mutex);
            channelPtr->order = order;
        }
        mixer.onOrder();
    }

    bool HasEnded() override {
        const std::lock_guard lock(mixer.mutex);
        return channelPtr->endedPlayback == channelPtr->order.playback;
    }

private:
    Mixer& mixer;
    std::shared_ptr<Channel> channelPtr;
};

Mixer::Mixer(const Backend& backend, Clock silentClock, SoundDeviceOpener deviceOpener,
             std::function<void()> orderListener)
    : decoders(backend), readClock(std::move(silentClock)), openDevice(std::move(deviceOpener)),
      onOrder(std::move(orderListener)) {}

Mixer::~Mixer() { CloseDevice(); }

std::unique_ptr<MediaVoice> Mixer::MakeVoice(std::shared_ptr<const MediaFile> filePtr) {
    auto channelPtr = std::make_shared<Channel>(std::move(filePtr));
    const std::lock_guard lock(mutex);
    channels.push_back(channelPtr);
    return std::make_unique<Voice>(*this, std::move(channelPtr));
}

void Mixer::Suspend(bool suspend) {
    {
        const std::lock_guard lock(mutex);
        suspendOrdered = suspend;
    }
    onOrder();
}

bool Mixer::DoRound() {
    TakeOrders();
    const bool somethingPlays = SomethingPlays();
    if (somethingPlays) KeepDevice();
    if (devicePtr) devicePtr->MakeCurrent();
    const double now = readClock(); // opening a device can take long: what played meanwhile has gone on
    for (const auto& channelPtr : served) Serve(*channelPtr, now);
    PublishEnds();
    return somethingPlays;
}

void Mixer::CloseDevice() {
    if (!devicePtr) return;
    devicePtr->MakeCurrent();
    for (const auto& channelPtr : served) {
        channelPtr->sourcePtr.reset();
        channelPtr->clipPtr.reset();
    }
    devicePtr.reset();
}

void Mixer::TakeOrders() {
    const std::lock_guard lock(mutex);
    served = channels; // what has been closed is served once more, to fall silent
    std::erase_if(channels, [](const auto& channelPtr) { return !channelPtr->isOpen; });
    suspended = suspendOrdered;
    for (const auto& channelPtr : served) {
        Channel& channel = *channelPtr;
        if (channel.order.playback != channel.followed.playback) channel.isNew = true;
        channel.followed = channel.order;
    }
}

void Mixer::PublishEnds() {
    const std::lock_guard lock(mutex);
    for (const auto& channelPtr : served) {
        if (channelPtr->ended) channelPtr->endedPlayback = channelPtr->followed.playback;
    }
}

bool Mixer::SomethingPlays() const {
    return !suspended && std::any_of(served.begin(), served.end(), [](const auto& channelPtr) {
        const MediaOrder& order = channelPtr->followed;
        return order.playing && !order.paused && (channelPtr->isNew || !channelPtr->ended);
    });
}

void Mixer::KeepDevice() {
    const double now = readClock();
    if (devicePtr && !devicePtr->IsConnected()) {
        CloseDevice(); // what played goes on from where it was, on the new default device or on the clock
        nextAttempt = now;
    }
    if (devicePtr || now < nextAttempt) return;
    devicePtr = openDevice();
    if (devicePtr) {
        attemptPause = 0.0;
    } else {
        attemptPause = std::clamp(2.0 * attemptPause, firstPause, longestPause);
    }
    nextAttempt = now + attemptPause;
}

void Mixer::Serve(Channel& channel, double now) {
    const MediaOrder& order = channel.followed;
    if (channel.isNew) {
        channel.sourcePtr.reset();
        channel.head.Set(order.from, order.to);
        channel.isNew = channel.ended = channel.isMute = false;
    }
    if (!order.playing || channel.ended) {
        channel.sourcePtr.reset();
        return;
    }
    const bool runs = !order.paused && !suspended;
    if (runs && devicePtr && !channel.sourcePtr && !channel.isMute) StartSource(channel, channel.head.Position(now));
    if (channel.sourcePtr) {
        channel.sourcePtr->SetGain(order.gain);
        channel.sourcePtr->Run(runs);
        channel.head.Set(channel.sourcePtr->Position(), order.to);
        channel.ended = channel.sourcePtr->HasEnded();
    } else {
        channel.head.Run(now, runs);
        channel.ended = channel.head.HasEnded(now);
    }
}

void Mixer::StartSource(Channel& channel, double from) {
    const MediaFile& file = *channel.filePtr;
    const int to = channel.followed.to;
    channel.isMute = true;
    if (from >= to) return;
    std::unique_ptr<SoundSource> sourcePtr;
    const bool isClip = file.length <= longestClip && to == file.length;
    if (isClip) {
        if (!channel.clipPtr) channel.clipPtr = ClipOf(channel);
        if (!channel.clipPtr) return;
        sourcePtr = devicePtr->PlayClip(channel.clipPtr, from);
    } else if (std::unique_ptr<SoundDecoder> decoderPtr = OpenDecoder(file)) {
        sourcePtr = devicePtr->PlayStream(std::move(decoderPtr), from, to);
    }
    if (!sourcePtr) return;
    channel.isMute = false;
    channel.sourcePtr = std::move(sourcePtr);
}

std::shared_ptr<const SoundClip> Mixer::ClipOf(const Channel& channel) {
    for (const auto& otherPtr : served) {
        if (otherPtr->clipPtr && otherPtr->filePtr == channel.filePtr) return otherPtr->clipPtr;
    }
    const std::unique_ptr<SoundDecoder> decoderPtr = OpenDecoder(*channel.filePtr);
    return decoderPtr ? devicePtr->MakeClip(*decoderPtr) : nullptr;
}

std::unique_ptr<SoundDecoder> Mixer::OpenDecoder(const MediaFile& file) const {
    return file.isMidi ? decoders.openMidi(file.path) : decoders.openRecording(file.path);
}

} // namespace platform
