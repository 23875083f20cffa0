#include "platform/sdl/Screen.h"

#include "platform/Pixel.h"
#include "platform/core/screen/Pacer.h"
#include "platform/core/screen/Placement.h"
#include "platform/sdl/DisplayProbe.h"

#include <SDL.h>

#include <algorithm>

namespace platform {

namespace {
constexpr std::uint32_t framePixels = SDL_PIXELFORMAT_ARGB8888;

POINT Size(const SDL_Rect& rect) { return {rect.w, rect.h}; }
POINT Size(RECT rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }
SDL_Rect ToSdl(RECT rect) { return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top}; }

/// The part of the first screen that windows may use.
SDL_Rect UsableArea() {
    SDL_Rect area{};
    if (SDL_GetDisplayUsableBounds(0, &area) != 0 || area.w <= 0 || area.h <= 0) SDL_GetDisplayBounds(0, &area);
    return area;
}

/// `position` of a window meant to be `asked` large, for one of another size: the middle stays, then all becomes
/// visible.
POINT PlaceWindow(POINT position, POINT asked, POINT actual, const SDL_Rect& area) {
    const auto place = [](int at, int askedLength, int length, int areaBegin, int areaLength) {
        const int centred = at + (askedLength - length) / 2;
        return std::max(areaBegin, std::min(centred, areaBegin + areaLength - length));
    };
    return {place(position.x, asked.x, actual.x, area.x, area.w), place(position.y, asked.y, actual.y, area.y, area.h)};
}

bool HasOurPixels(const SDL_Surface& surface) {
    const std::uint32_t format = surface.format->format;
    return format == SDL_PIXELFORMAT_ARGB8888 || format == SDL_PIXELFORMAT_RGB888;
}
} // namespace

void Screen::Closer::operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
void Screen::Closer::operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
void Screen::Closer::operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
void Screen::Closer::operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }

Screen::Screen(const std::string& title, POINT position, POINT size) : frameSize(size) {
    const SDL_Rect area = UsableArea();
    windowSize = WindowSize(frameSize, Size(area), 1.0);
    windowPosition = PlaceWindow(position, frameSize, windowSize, area);
    windowPtr.reset(SDL_CreateWindow(title.c_str(), windowPosition.x, windowPosition.y, windowSize.x, windowSize.y,
                                     SDL_WINDOW_HIDDEN | SDL_WINDOW_BORDERLESS | SDL_WINDOW_ALLOW_HIGHDPI));
    if (!windowPtr) return;
    // The display's scale can be asked for only when there is a window.
    const POINT scaledSize = WindowSize(frameSize, Size(area), DisplayScale(windowPtr.get()));
    if (scaledSize == windowSize) return;
    windowSize = scaledSize;
    windowPosition = PlaceWindow(position, frameSize, windowSize, area);
    SDL_SetWindowSize(windowPtr.get(), windowSize.x, windowSize.y);
    SDL_SetWindowPosition(windowPtr.get(), windowPosition.x, windowPosition.y);
}

Screen::~Screen() = default;

void Screen::Show(bool visible) {
    if (!visible) {
        SDL_HideWindow(windowPtr.get());
        return;
    }
    SDL_ShowWindow(windowPtr.get());
    SDL_RaiseWindow(windowPtr.get());
}

void Screen::MoveTo(POINT position) {
    windowPosition = position;
    if (!fullscreen) SDL_SetWindowPosition(windowPtr.get(), position.x, position.y);
}

void Screen::SetIcon(Picture icon) {
    for (std::uint32_t& pixel : icon.pixels) pixel = StraightPixel(pixel);
    const std::unique_ptr<SDL_Surface, Closer> surfacePtr(SDL_CreateRGBSurfaceWithFormatFrom(
        icon.pixels.data(), icon.width, icon.height, 32, icon.width * 4, framePixels));
    if (surfacePtr) SDL_SetWindowIcon(windowPtr.get(), surfacePtr.get());
}

bool Screen::SetFullscreen(bool fill) {
    if (fill == fullscreen) return true;
    SDL_Window* const window = windowPtr.get();
    if (fill) {
        windowPosition = Position();
        resizesItself = !HasWindowManager(window);
    }
    if (resizesItself) {
        SDL_Rect area{};
        if (SDL_GetDisplayBounds(std::max(0, SDL_GetWindowDisplayIndex(window)), &area) != 0) return false;
        if (!fill) area = {windowPosition.x, windowPosition.y, windowSize.x, windowSize.y};
        SDL_SetWindowPosition(window, area.x, area.y);
        SDL_SetWindowSize(window, area.w, area.h);
    } else if (SDL_SetWindowFullscreen(window, fill ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0) != 0) {
        return false;
    }
    fullscreen = fill;
    return true;
}

bool Screen::Present(const FrameView& frame, bool waitForBlank) {
    ChooseWay();
    if (rendererPtr) {
        const bool wait = waitForBlank && DisplayRate() >= Pacer::slowestDisplay;
        if (wait != waitsForBlank && SDL_RenderSetVSync(rendererPtr.get(), wait ? 1 : 0) == 0) waitsForBlank = wait;
        if (PresentTexture(frame)) return true;
        // The graphics device is gone (a driver was updated, say): the slower way still works.
        texturePtr.reset();
        rendererPtr.reset();
        waitsForBlank = false;
        shownIn = {};
    }
    return PresentSurface(frame);
}

void Screen::ShowAgain() {
    if (texturePtr) {
        ShowTexture();
    } else if (shownIn != POINT{} && SDL_GetWindowSurface(windowPtr.get()) != nullptr) {
        SDL_UpdateWindowSurface(windowPtr.get());
    }
}

bool Screen::HasFocus() const { return (SDL_GetWindowFlags(windowPtr.get()) & SDL_WINDOW_INPUT_FOCUS) != 0; }

POINT Screen::Position() const {
    POINT position = windowPosition;
    if (!fullscreen) SDL_GetWindowPosition(windowPtr.get(), &position.x, &position.y);
    return position;
}

POINT Screen::FrameFromWindow(POINT point, bool mayLieOutside) const {
    // Points are counted in the window's own units, of which some displays make several pixels each.
    POINT units;
    SDL_GetWindowSize(windowPtr.get(), &units.x, &units.y);
    const bool shownBefore = shownIn != POINT{};
    const POINT output = shownBefore ? shownIn : units;
    if (units.x <= 0 || units.y <= 0) return point;
    const POINT pixel{point.x * output.x / units.x, point.y * output.y / units.y};
    const RECT placement = shownBefore ? shownAt : PlacePicture(frameSize, output, fullscreen);
    return PictureFromArea(pixel, frameSize, placement, mayLieOutside);
}

double Screen::DisplayRate() const {
    SDL_DisplayMode mode{};
    const int display = std::max(0, SDL_GetWindowDisplayIndex(windowPtr.get()));
    return SDL_GetCurrentDisplayMode(display, &mode) == 0 ? mode.refresh_rate : 0.0;
}

void Screen::ChooseWay() {
    if (wayChosen) return;
    wayChosen = true;
    if (!HasGraphicsHardware(windowPtr.get())) return;
    constexpr std::uint32_t wanted = SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC;
    rendererPtr.reset(SDL_CreateRenderer(windowPtr.get(), -1, wanted));
    SDL_RendererInfo info{};
    const bool usable = rendererPtr && SDL_GetRendererInfo(rendererPtr.get(), &info) == 0;
    if (!usable || (info.flags & SDL_RENDERER_ACCELERATED) == 0) rendererPtr.reset();
    waitsForBlank = rendererPtr && (info.flags & SDL_RENDERER_PRESENTVSYNC) != 0;
}

bool Screen::PresentTexture(const FrameView& frame) {
    POINT output;
    SDL_GetRendererOutputSize(rendererPtr.get(), &output.x, &output.y);
    MoveFrameTo(output);
    const POINT size = Size(shownAt);
    if (!texturePtr) {
        texturePtr.reset(
            SDL_CreateTexture(rendererPtr.get(), framePixels, SDL_TEXTUREACCESS_STREAMING, size.x, size.y));
        if (!texturePtr) return false;
        SDL_SetTextureBlendMode(texturePtr.get(), SDL_BLENDMODE_NONE);
    }
    void* pixels = nullptr;
    int pitch = 0;
    if (SDL_LockTexture(texturePtr.get(), nullptr, &pixels, &pitch) != 0) return false;
    scaler.SetSizes({frame.width, frame.height}, size);
    scaler.Scale(frame, static_cast<std::uint32_t*>(pixels), pitch / 4);
    SDL_UnlockTexture(texturePtr.get());
    return ShowTexture();
}

bool Screen::ShowTexture() {
    const SDL_Rect target = ToSdl(shownAt);
    const bool drawn = SDL_RenderClear(rendererPtr.get()) == 0 &&
                       SDL_RenderCopy(rendererPtr.get(), texturePtr.get(), nullptr, &target) == 0;
    SDL_RenderPresent(rendererPtr.get());
    return drawn;
}

bool Screen::PresentSurface(const FrameView& frame) {
    SDL_Surface* const surface = SDL_GetWindowSurface(windowPtr.get());
    if (surface == nullptr) return false;
    const bool moved = MoveFrameTo({surface->w, surface->h});
    SDL_Rect target = ToSdl(shownAt);
    if (moved) SDL_FillRect(surface, nullptr, 0);
    if (!HasOurPixels(*surface) && !stagingPtr) {
        stagingPtr.reset(SDL_CreateRGBSurfaceWithFormat(0, target.w, target.h, 32, SDL_PIXELFORMAT_RGB888));
        if (!stagingPtr) return false;
    }
    scaler.SetSizes({frame.width, frame.height}, Size(shownAt));
    if (stagingPtr) {
        scaler.Scale(frame, static_cast<std::uint32_t*>(stagingPtr->pixels), stagingPtr->pitch / 4);
        if (SDL_BlitSurface(stagingPtr.get(), nullptr, surface, &target) != 0) return false;
    } else {
        if (SDL_MUSTLOCK(surface) && SDL_LockSurface(surface) != 0) return false;
        const std::ptrdiff_t stride = surface->pitch / 4;
        auto* const pixels = static_cast<std::uint32_t*>(surface->pixels) + target.y * stride + target.x;
        scaler.Scale(frame, pixels, stride);
        if (SDL_MUSTLOCK(surface)) SDL_UnlockSurface(surface);
    }
    const int result =
        moved ? SDL_UpdateWindowSurface(windowPtr.get()) : SDL_UpdateWindowSurfaceRects(windowPtr.get(), &target, 1);
    return result == 0;
}

bool Screen::MoveFrameTo(POINT output) {
    output = {std::max(1, output.x), std::max(1, output.y)};
    const RECT placement = PlacePicture(frameSize, output, fullscreen);
    if (output == shownIn && placement == shownAt) return false;
    shownIn = output;
    shownAt = placement;
    texturePtr.reset();
    stagingPtr.reset();
    return true;
}

} // namespace platform
