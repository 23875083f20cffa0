#pragma once

#include <memory>
#include <span>

namespace platform {

/// A device that sounds are played on. Sources and buffers belong to the device that is current on their thread.
class SoundDevice {
public:
    /// The default device of the system; null if there is none. May take a tenth of a second.
    static std::unique_ptr<SoundDevice> OpenDefault();
    /// A device that mixes into memory, in 32-bit stereo.
    static std::unique_ptr<SoundDevice> OpenLoopback(int samplesPerSecond);
    ~SoundDevice();
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;

    /// What the calling thread does next, it does on this device.
    void MakeCurrent() const;
    /// Mixes the next samples, left and right in turn; loopback devices only.
    void Render(std::span<float> samples) const;
    /// False for good once the device has gone away.
    bool IsConnected() const;

private:
    SoundDevice(void* openedDevicePtr, const int attributes[]);
    bool IsReady() const { return contextPtr != nullptr; }

    void* devicePtr;
    void* contextPtr;
};

} // namespace platform
