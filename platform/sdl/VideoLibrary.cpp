#include "platform/sdl/VideoLibrary.h"

#define SDL_MAIN_HANDLED // main is our own on every system
#include <SDL.h>

#include <cstdlib>

namespace platform {

namespace {
[[maybe_unused]] bool IsSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}
} // namespace

VideoLibrary::VideoLibrary() {
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0"); // a plain surface stays plain, whatever GL there is
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_MOUSE_AUTO_CAPTURE, "0");        // messages end at the window's edge
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");  // the click that activates is a click as well
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0"); // closing is asked for by the window's own event
    SDL_SetHint(SDL_HINT_WINDOWS_DPI_AWARENESS, "permonitorv2");
#if defined(SDL_VIDEO_DRIVER_X11) || defined(SDL_VIDEO_DRIVER_WAYLAND)
    // Left to itself the library ends with drivers that show nothing to anybody.
    ready = (IsSet("DISPLAY") && Start("x11")) || (IsSet("WAYLAND_DISPLAY") && Start("wayland"));
#else
    ready = Start(nullptr);
#endif
}

VideoLibrary::~VideoLibrary() {
    if (ready) SDL_VideoQuit();
    SDL_Quit();
}

bool VideoLibrary::Start(const char* driver) {
    if (SDL_VideoInit(driver) == 0) return true;
    error = SDL_GetError();
    return false;
}

} // namespace platform
