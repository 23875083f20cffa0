#include "platform/openal/OpenAlDevice.h"

#include "platform/openal/OpenAlSource.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <cstdlib>

#if __has_include(<dlfcn.h>)
#include <dlfcn.h>
#endif

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

void IgnoreError(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/, const char* /*format*/,
                 ...) {}

/// A machine without a sound card is no fault, but the libraries below tell the terminal so at every attempt.
void QuietLibraries() {
#if __has_include(<dlfcn.h>)
    setenv("ALSOFT_LOGLEVEL", "0", 0);
    using SetErrorHandler = int (*)(decltype(&IgnoreError) handler);
    void* const symbolPtr = dlsym(RTLD_DEFAULT, "snd_lib_error_set_handler");
    if (symbolPtr == nullptr) return;
    reinterpret_cast<SetErrorHandler>(symbolPtr)(IgnoreError);
#endif
}
} // namespace

SoundDeviceOpener OpenAlDevice::MakeOpener() {
    QuietLibraries();
    return []() -> std::unique_ptr<SoundDevice> {
        void* const devicePtr = alcOpenDevice(nullptr);
        if (devicePtr == nullptr) return nullptr;
        std::unique_ptr<OpenAlDevice> openedPtr(new OpenAlDevice(devicePtr, nullptr));
        return openedPtr->IsReady() ? std::move(openedPtr) : nullptr;
    };
}

std::unique_ptr<OpenAlDevice> OpenAlDevice::OpenLoopback(int samplesPerSecond) {
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
    std::unique_ptr<OpenAlDevice> openedPtr(new OpenAlDevice(devicePtr, attributes));
    return openedPtr->IsReady() ? std::move(openedPtr) : nullptr;
}

OpenAlDevice::OpenAlDevice(void* openedDevicePtr, const int attributes[])
    : devicePtr(openedDevicePtr), contextPtr(alcCreateContext(Device(openedDevicePtr), attributes)) {}

OpenAlDevice::~OpenAlDevice() {
    MakeContextCurrent(nullptr);
    if (contextPtr != nullptr) alcDestroyContext(Context(contextPtr));
    alcCloseDevice(Device(devicePtr));
}

void OpenAlDevice::MakeCurrent() { MakeContextCurrent(Context(contextPtr)); }

std::shared_ptr<const SoundClip> OpenAlDevice::MakeClip(SoundDecoder& decoder) {
    return std::make_shared<const OpenAlClip>(decoder);
}

std::unique_ptr<SoundSource> OpenAlDevice::PlayClip(std::shared_ptr<const SoundClip> clipPtr, double from) {
    auto sourcePtr =
        std::make_unique<OpenAlSource>(std::static_pointer_cast<const OpenAlClip>(std::move(clipPtr)), from);
    return sourcePtr->IsSet() ? std::move(sourcePtr) : nullptr;
}

std::unique_ptr<SoundSource> OpenAlDevice::PlayStream(std::unique_ptr<SoundDecoder> decoderPtr, double from,
                                                      double to) {
    auto sourcePtr = std::make_unique<OpenAlSource>(std::move(decoderPtr), from, to);
    return sourcePtr->IsSet() ? std::move(sourcePtr) : nullptr;
}

void OpenAlDevice::Render(std::span<float> samples) const {
    static const auto render = Extension<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT");
    render(Device(devicePtr), samples.data(), static_cast<ALCsizei>(samples.size() / 2));
}

bool OpenAlDevice::IsConnected() const {
    if (alcIsExtensionPresent(Device(devicePtr), "ALC_EXT_disconnect") == ALC_FALSE) return true;
    ALCint connected = ALC_TRUE;
    alcGetIntegerv(Device(devicePtr), ALC_CONNECTED, 1, &connected);
    return connected != ALC_FALSE;
}

} // namespace platform
