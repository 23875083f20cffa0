#pragma once

#include "platform/core/media/SoundDevice.h"

#include <span>

namespace platform {

class OpenAlDevice final : public SoundDevice {
public:
    /// Makes the libraries keep quiet; what it answers opens the default device of the system. Main thread.
    static SoundDeviceOpener MakeOpener();
    /// A device that mixes into memory, in 32-bit stereo.
    static std::unique_ptr<OpenAlDevice> OpenLoopback(int samplesPerSecond);
    ~OpenAlDevice() override;
    OpenAlDevice(const OpenAlDevice&) = delete;
    OpenAlDevice& operator=(const OpenAlDevice&) = delete;

    void MakeCurrent() override;
    std::shared_ptr<const SoundClip> MakeClip(SoundDecoder& decoder) override;
    std::unique_ptr<SoundSource> PlayClip(std::shared_ptr<const SoundClip> clipPtr, double from) override;
    std::unique_ptr<SoundSource> PlayStream(std::unique_ptr<SoundDecoder> decoderPtr, double from, double to) override;
    bool IsConnected() const override;
    /// Mixes the next samples, left and right in turn; loopback devices only.
    void Render(std::span<float> samples) const;

private:
    OpenAlDevice(void* openedDevicePtr, const int attributes[]);
    bool IsReady() const { return contextPtr != nullptr; }

    void* devicePtr;
    void* contextPtr;
};

} // namespace platform
