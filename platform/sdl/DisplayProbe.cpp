#include "platform/sdl/DisplayProbe.h"

#include <SDL.h>
#include <SDL_syswm.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

namespace {
#if defined(SDL_VIDEO_DRIVER_X11)
/// The X display of the window, and questions that the window library has no words for. The functions come from the X
/// library that it has already loaded, so that we need not link with one that some systems lack.
class XServer {
public:
    explicit XServer(SDL_Window* window) {
        SDL_SysWMinfo info;
        SDL_VERSION(&info.version);
        if (SDL_GetWindowWMInfo(window, &info) == SDL_TRUE && info.subsystem == SDL_SYSWM_X11) {
            display = info.info.x11.display;
            library = SDL_LoadObject("libX11.so.6");
        }
    }
    ~XServer() {
        if (library != nullptr) SDL_UnloadObject(library);
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    bool Exists() const { return library != nullptr; }

    bool HasExtension(const char* name) const {
        using Query = int (*)(Display*, const char*, int*, int*, int*);
        const auto query = Function<Query>("XQueryExtension");
        int opcode = 0;
        int event = 0;
        int error = 0;
        return query != nullptr && query(display, name, &opcode, &event, &error) != 0;
    }

    /// Whether the root window has this property.
    bool HasProperty(const char* name) const {
        using Intern = Atom (*)(Display*, const char*, int);
        using List = Atom* (*)(Display*, ::Window, int*);
        using Free = int (*)(void*);
        const auto intern = Function<Intern>("XInternAtom");
        const auto list = Function<List>("XListProperties");
        const auto release = Function<Free>("XFree");
        if (intern == nullptr || list == nullptr || release == nullptr) return false;
        const Atom atom = intern(display, name, 1);
        int count = 0;
        Atom* const atoms = list(display, DefaultRootWindow(display), &count);
        const bool found = atom != None && std::find(atoms, atoms + count, atom) != atoms + count;
        if (atoms != nullptr) release(atoms);
        return found;
    }

    /// The value of a line "name: value" of the user's resources; empty if there is none.
    std::string Resource(std::string_view name) const {
        using Read = char* (*)(Display*);
        const auto read = Function<Read>("XResourceManagerString");
        const char* const textPtr = read != nullptr ? read(display) : nullptr;
        const std::string_view text = textPtr != nullptr ? textPtr : "";
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            const std::string_view line = text.substr(begin, end - begin);
            if (line.starts_with(name) && line.size() > name.size() && line[name.size()] == ':') {
                return std::string(line.substr(name.size() + 1));
            }
            begin = end + 1;
        }
        return {};
    }

private:
    template <typename Signature>
    Signature Function(const char* name) const {
        return reinterpret_cast<Signature>(SDL_LoadFunction(library, name));
    }

    Display* display = nullptr;
    void* library = nullptr;
};
#endif

#if defined(__linux__)
/// Whether this machine has a graphics processor that we may use. Virtual machines have devices that only look like
/// one; drawing on them is done by this processor.
bool HasRenderDevice() {
    namespace fs = std::filesystem;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/dev/dri", error)) {
        const std::string name = entry.path().filename();
        if (!name.starts_with("renderD")) continue;
        const fs::path driver = fs::read_symlink("/sys/class/drm/" + name + "/device/driver", error).filename();
        if (error || driver == "vgem" || driver == "vkms" || driver == "virtio_gpu" || driver == "virtio-pci") continue;
        return true;
    }
    return false;
}
#endif
} // namespace

bool HasGraphicsHardware([[maybe_unused]] SDL_Window* window) {
#if defined(__linux__)
    if (!HasRenderDevice()) return false;
#endif
#if defined(SDL_VIDEO_DRIVER_X11)
    // A server without this extension draws in memory or on another machine, whatever this one has built in.
    if (const XServer server(window); server.Exists()) return server.HasExtension("DRI3");
#endif
    return true;
}

double DisplayScale(SDL_Window* window) {
    constexpr double usualDotsPerInch = 96.0;
#if defined(SDL_VIDEO_DRIVER_X11)
    // What the screen claims to measure is often wrong; this is what the user has set.
    if (const XServer server(window); server.Exists()) {
        const double dotsPerInch = std::strtod(server.Resource("Xft.dpi").c_str(), nullptr);
        return dotsPerInch > 0.0 ? dotsPerInch / usualDotsPerInch : 1.0;
    }
#endif
#if defined(_WIN32)
    float dotsPerInch = 0.0F;
    if (SDL_GetDisplayDPI(SDL_GetWindowDisplayIndex(window), nullptr, &dotsPerInch, nullptr) == 0) {
        return dotsPerInch / usualDotsPerInch;
    }
#else
    (void)window;
    (void)usualDotsPerInch;
#endif
    return 1.0;
}

bool HasWindowManager([[maybe_unused]] SDL_Window* window) {
#if defined(SDL_VIDEO_DRIVER_X11)
    if (const XServer server(window); server.Exists()) return server.HasProperty("_NET_SUPPORTING_WM_CHECK");
#endif
    return true;
}

} // namespace platform
