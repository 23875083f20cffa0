#include "platform/Picture.h"

#include "platform/Pixel.h"
#include "platform/core/pictures/Palette.h"
#include "platform/core/pictures/PictureSize.h"

#include <SDL.h>
#include <SDL_image.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>
#include <new>

namespace platform {

namespace {

struct SurfaceDeleter {
    void operator()(SDL_Surface* surfacePtr) const { SDL_FreeSurface(surfacePtr); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

/// Reads the head of a file and goes back to where it begins. False if the stream cannot go back.
bool TakeHead(SDL_RWops* streamPtr, PictureHead& head) {
    const Sint64 start = SDL_RWtell(streamPtr);
    SDL_RWread(streamPtr, head.data(), 1, head.size());
    return SDL_RWseek(streamPtr, start, RW_SEEK_SET) == start;
}

/// What the library keeps for a thread that decodes goes with the thread.
struct ThreadCleaner {
    ~ThreadCleaner() { SDL_TLSCleanup(); }
};

/// Pictures may be decoded on several threads, but the decoders' own start-up may not run twice at once. The
/// descriptions of the usual pixel formats, which all surfaces share, are made here too, and so outlive every thread.
void PrepareDecoders() {
    static std::once_flag once;
    std::call_once(once, [] {
        IMG_Init(IMG_INIT_PNG | IMG_INIT_JPG);
        for (const Uint32 format : {SDL_PIXELFORMAT_ARGB8888, SDL_PIXELFORMAT_RGBA32, SDL_PIXELFORMAT_RGB24,
                                    SDL_PIXELFORMAT_BGR24, SDL_PIXELFORMAT_RGB888}) {
            SDL_AllocFormat(format);
        }
    });
}

/// Straight 0xAARRGGBB pixels, wherever the picture keeps them; false if the format cannot be converted.
bool CopyStraight(SDL_Surface& surface, Picture& picture) {
    SurfacePtr convertedPtr;
    SDL_Surface* sourcePtr = &surface;
    if (SDL_ISPIXELFORMAT_INDEXED(surface.format->format) || SDL_HasColorKey(&surface) == SDL_TRUE) {
        convertedPtr.reset(SDL_ConvertSurfaceFormat(&surface, SDL_PIXELFORMAT_ARGB8888, 0));
        if (!convertedPtr) return false;
        sourcePtr = convertedPtr.get();
    }
    return SDL_ConvertPixels(picture.width, picture.height, sourcePtr->format->format, sourcePtr->pixels,
                             sourcePtr->pitch, SDL_PIXELFORMAT_ARGB8888, picture.pixels.data(),
                             picture.width * static_cast<int>(sizeof(std::uint32_t))) == 0;
}

/// An opaque picture with a palette needs only a look-up: the level's picture is one, and a player waits for it.
bool CopyByPalette(const SDL_Surface& surface, Picture& picture) {
    const SDL_Palette* palettePtr = surface.format->palette;
    if (surface.format->format != SDL_PIXELFORMAT_INDEX8 || palettePtr == nullptr) return false;
    std::array<std::uint32_t, 256> colours = {};
    for (int index = 0; index < std::min(palettePtr->ncolors, 256); ++index) {
        const SDL_Color& colour = palettePtr->colors[index];
        if (colour.a != 255) return false;
        colours[static_cast<std::size_t>(index)] = 0xFF000000U | static_cast<std::uint32_t>(colour.r) << 16 |
                                                   static_cast<std::uint32_t>(colour.g) << 8 | colour.b;
    }
    for (int y = 0; y < picture.height; ++y) {
        const auto* rowPtr =
            static_cast<const std::uint8_t*>(surface.pixels) + static_cast<std::ptrdiff_t>(y) * surface.pitch;
        std::transform(rowPtr, rowPtr + picture.width, &picture.At(0, y),
                       [&](std::uint8_t index) { return colours[index]; });
    }
    return true;
}

std::optional<Picture> Decode(SDL_RWops* streamPtr) {
    thread_local const ThreadCleaner cleaner;
    if (streamPtr == nullptr) return std::nullopt;
    PictureHead head = {};
    if (!TakeHead(streamPtr, head) || !StatesSaneSize(head)) {
        SDL_RWclose(streamPtr);
        return std::nullopt;
    }
    PrepareDecoders();
    const SurfacePtr surfacePtr(IMG_Load_RW(streamPtr, 1));
    if (!surfacePtr || !IsSanePictureSize(surfacePtr->w, surfacePtr->h)) return std::nullopt;
    try {
        Picture picture(surfacePtr->w, surfacePtr->h);
        const bool hasColorKey = SDL_HasColorKey(surfacePtr.get()) == SDL_TRUE;
        if (!hasColorKey && CopyByPalette(*surfacePtr, picture)) return picture;
        if (!CopyStraight(*surfacePtr, picture)) return std::nullopt;
        for (std::uint32_t& pixel : picture.pixels) pixel = PremultipliedPixel(pixel);
        return picture;
    } catch (const std::bad_alloc&) { return std::nullopt; }
}

/// One byte a pixel; `colours` must be sorted and hold every pixel's.
SurfacePtr MakeIndexedSurface(const Picture& picture, const std::vector<std::uint32_t>& colours) {
    SurfacePtr surfacePtr(SDL_CreateRGBSurfaceWithFormat(0, picture.width, picture.height, 8, SDL_PIXELFORMAT_INDEX8));
    if (!surfacePtr) return nullptr;
    std::array<SDL_Color, 256> entries;
    entries.fill({0, 0, 0, 255}); // unused, but one that is transparent would cost the reader its quick way
    std::transform(colours.begin(), colours.end(), entries.begin(), [](std::uint32_t colour) {
        return SDL_Color{static_cast<Uint8>(colour >> 16), static_cast<Uint8>(colour >> 8), static_cast<Uint8>(colour),
                         255};
    });
    SDL_SetPaletteColors(surfacePtr->format->palette, entries.data(), 0, static_cast<int>(entries.size()));
    for (int y = 0; y < picture.height; ++y) {
        auto* rowPtr =
            static_cast<std::uint8_t*>(surfacePtr->pixels) + static_cast<std::ptrdiff_t>(y) * surfacePtr->pitch;
        for (int x = 0; x < picture.width; ++x) {
            rowPtr[x] = static_cast<std::uint8_t>(std::lower_bound(colours.begin(), colours.end(), picture.At(x, y)) -
                                                  colours.begin());
        }
    }
    return surfacePtr;
}

SurfacePtr MakeSurface(const Picture& picture, Uint32 format) {
    SurfacePtr surfacePtr(
        SDL_CreateRGBSurfaceWithFormat(0, picture.width, picture.height, 32, SDL_PIXELFORMAT_ARGB8888));
    if (!surfacePtr) return nullptr;
    for (int y = 0; y < picture.height; ++y) {
        auto* rowPtr = reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(surfacePtr->pixels) +
                                                        static_cast<std::ptrdiff_t>(y) * surfacePtr->pitch);
        for (int x = 0; x < picture.width; ++x) rowPtr[x] = StraightPixel(picture.At(x, y));
    }
    if (format == SDL_PIXELFORMAT_ARGB8888) return surfacePtr;
    SDL_SetSurfaceBlendMode(surfacePtr.get(), SDL_BLENDMODE_NONE);
    return SurfacePtr(SDL_ConvertSurfaceFormat(surfacePtr.get(), format, 0));
}

} // namespace

std::optional<Picture> LoadPicture(const std::string& path) { return Decode(SDL_RWFromFile(path.c_str(), "rb")); }

std::optional<Picture> DecodePicture(std::span<const unsigned char> bytes) {
    if (bytes.empty()) return std::nullopt;
    return Decode(SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size())));
}

bool SavePng(const std::string& path, const Picture& picture) {
    const auto colours = PaletteOf(picture);
    const SurfacePtr surfacePtr =
        colours ? MakeIndexedSurface(picture, *colours) : MakeSurface(picture, SDL_PIXELFORMAT_ARGB8888);
    return surfacePtr && IMG_SavePNG(surfacePtr.get(), path.c_str()) == 0;
}

bool SaveBmp(const std::string& path, const Picture& picture) {
    const SurfacePtr surfacePtr = MakeSurface(picture, SDL_PIXELFORMAT_BGR24);
    return surfacePtr && SDL_SaveBMP(surfacePtr.get(), path.c_str()) == 0;
}

} // namespace platform
