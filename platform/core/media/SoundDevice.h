#pragma once

#include "platform/core/media/SoundDecoder.h"
#include "platform/core/media/SoundSource.h"

#include <functional>
#include <memory>

namespace platform {

/// A device that sounds are played on. Its clips and sources go before it does, and only while it is current on their
/// thread.
class SoundDevice {
public:
    virtual ~SoundDevice() = default;
    /// What the calling thread does next, it does on this device.
    virtual void MakeCurrent() = 0;
    virtual std::shared_ptr<const SoundClip> MakeClip(SoundDecoder& decoder) = 0;
    /// Plays a clip of this device from `from` milliseconds on; null if the device has no room for it.
    virtual std::unique_ptr<SoundSource> PlayClip(std::shared_ptr<const SoundClip> clipPtr, double from) = 0;
    /// Plays from `from` to `to` milliseconds, decoding a little ahead of what is heard; null if the device has no room
    /// for it or the decoder cannot go to `from`.
    virtual std::unique_ptr<SoundSource> PlayStream(std::unique_ptr<SoundDecoder> decoderPtr, double from,
                                                    double to) = 0;
    /// False for good once the device has gone away.
    virtual bool IsConnected() const = 0;
};

/// Opens a device, or answers null. It may take a tenth of a second, and may be called on any one thread.
using SoundDeviceOpener = std::function<std::unique_ptr<SoundDevice>()>;

} // namespace platform
