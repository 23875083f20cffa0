#include "platform/openal/SoundDevice.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

namespace platform {

namespace {
ALCdevice* Device(void* pointer) { return static_cast<ALCdevice*>(pointer); }
ALCcontext* Context(void* pointer) { return static_cast<ALCcontext*>(pointer); }

template <typename Function>
Function Extension(const char* name) {
    return reinterpret_cast<Function>(alcGetProcAddress(nullptr, name));
}

/// The current context is the thread's own where the library can do that, so that two players never meet.
void MakeContextCurrent(ALCcontext* contextPtr) {
    static const auto setThreadContext = Extension<PFNALCSETTHREADCONTEXTPROC>("alcSetThreadContext");
    if (setThreadContext != nullptr) {
        setThreadContext(contextPtr);
    } else {
        alcMakeContextCurrent(contextPtr);
    }
}
} // namespace

std::unique_ptr<SoundDevice> SoundDevice::OpenDefault() {
    void* const devicePtr = alcOpenDevice(nullptr);
    if (devicePtr == nullptr) return nullptr;
    std::unique_ptr<SoundDevice> openedPtr(new SoundDevice(devicePtr, nullptr));
    return openedPtr->IsReady() ? std::move(openedPtr) : nullptr;
}

std::unique_ptr<SoundDevice> SoundDevice::OpenLoopback(int samplesPerSecond) {
    const auto openLoopback = Extension<LPALCLOOPBACKOPENDEVICESOFT>("alcLoopbackOpenDeviceSOFT");
    if (openLoopback == nullptr) return nullptr;
    void* const devicePtr = openLoopback(nullptr);
    if (devicePtr == nullptr) return nullptr;
    const int attributes[] = {ALC_FORMAT_CHANNELS_SOFT,
                              ALC_STEREO_SOFT,
                              ALC_FORMAT_TYPE_SOFT,
                              ALC_FLOAT_SOFT,
                              ALC_FREQUENCY,
                              samplesPerSecond,
                              ALC_HRTF_SOFT,
                              ALC_FALSE,
                              ALC_OUTPUT_LIMITER_SOFT,
                              ALC_FALSE,
                              0};
    std::unique_ptr<SoundDevice> openedPtr(new SoundDevice(devicePtr, attributes));
    return openedPtr->IsReady() ? std::move(openedPtr) : nullptr;
}

SoundDevice::SoundDevice(void* openedDevicePtr, const int attributes[])
    : devicePtr(openedDevicePtr), contextPtr(alcCreateContext(Device(openedDevicePtr), attributes)) {}

SoundDevice::~SoundDevice() {
    MakeContextCurrent(nullptr);
    if (contextPtr != nullptr) alcDestroyContext(Context(contextPtr));
    alcCloseDevice(Device(devicePtr));
}

void SoundDevice::MakeCurrent() const { MakeContextCurrent(Context(contextPtr)); }

void SoundDevice::Render(std::span<float> samples) const {
    static const auto render = Extension<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT");
    render(Device(devicePtr), samples.data(), static_cast<ALCsizei>(samples.size() / 2));
}

bool SoundDevice::IsConnected() const {
    if (alcIsExtensionPresent(Device(devicePtr), "ALC_EXT_disconnect") == ALC_FALSE) return true;
    ALCint connected = ALC_TRUE;
    alcGetIntegerv(Device(devicePtr), ALC_CONNECTED, 1, &connected);
    return connected != ALC_FALSE;
}

} // namespace platform
