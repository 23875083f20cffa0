#include "platform/Picture.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_image.h>

#include <algorithm>
#include <memory>

namespace platform {

namespace {

// A picture of the level's kind is a few megapixels; far beyond that a header is damaged or hostile.
constexpr int maxSide = 16384;
constexpr std::int64_t maxPixels = 64LL * 1024 * 1024;

struct SurfaceDeleter {
    void operator()(SDL_Surface* surfacePtr) const { SDL_FreeSurface(surfacePtr); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

/// Rounded product of two channels.
std::uint32_t Scale(std::uint32_t channel, std::uint32_t alpha) {
    const std::uint32_t product = channel * alpha + 128;
    return (product + (product >> 8)) >> 8;
}

std::uint32_t Premultiplied(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 255) return pixel;
    return alpha << 24 | Scale(pixel >> 16 & 255, alpha) << 16 | Scale(pixel >> 8 & 255, alpha) << 8 |
           Scale(pixel & 255, alpha);
}

std::uint32_t Straight(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 255 || alpha == 0) return pixel;
    const auto channel = [alpha](std::uint32_t value) { return std::min(255U, (value * 255 + alpha / 2) / alpha); };
    return alpha << 24 | channel(pixel >> 16 & 255) << 16 | channel(pixel >> 8 & 255) << 8 | channel(pixel & 255);
}

std::optional<Picture> Decode(SDL_RWops* streamPtr) {
    if (streamPtr == nullptr) return std::nullopt;
    const SurfacePtr decodedPtr(IMG_Load_RW(streamPtr, 1));
    if (!decodedPtr || decodedPtr->w <= 0 || decodedPtr->h <= 0 || decodedPtr->w > maxSide || decodedPtr->h > maxSide ||
        static_cast<std::int64_t>(decodedPtr->w) * decodedPtr->h > maxPixels) {
        return std::nullopt;
    }
    const SurfacePtr surfacePtr(SDL_ConvertSurfaceFormat(decodedPtr.get(), SDL_PIXELFORMAT_ARGB8888, 0));
    if (!surfacePtr) return std::nullopt;
    Picture picture(surfacePtr->w, surfacePtr->h);
    for (int y = 0; y < picture.height; ++y) {
        const auto* rowPtr = reinterpret_cast<const std::uint32_t*>(
            static_cast<const std::uint8_t*>(surfacePtr->pixels) + static_cast<std::ptrdiff_t>(y) * surfacePtr->pitch);
        std::transform(rowPtr, rowPtr + picture.width, &picture.At(0, y), Premultiplied);
    }
    return picture;
}

SurfacePtr MakeSurface(const Picture& picture, Uint32 format) {
    SurfacePtr surfacePtr(
        SDL_CreateRGBSurfaceWithFormat(0, picture.width, picture.height, 32, SDL_PIXELFORMAT_ARGB8888));
    if (!surfacePtr) return nullptr;
    for (int y = 0; y < picture.height; ++y) {
        auto* rowPtr = reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(surfacePtr->pixels) +
                                                        static_cast<std::ptrdiff_t>(y) * surfacePtr->pitch);
        for (int x = 0; x < picture.width; ++x) rowPtr[x] = Straight(picture.At(x, y));
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
    const SurfacePtr surfacePtr = MakeSurface(picture, SDL_PIXELFORMAT_ARGB8888);
    return surfacePtr && IMG_SavePNG(surfacePtr.get(), path.c_str()) == 0;
}

bool SaveBmp(const std::string& path, const Picture& picture) {
    const SurfacePtr surfacePtr = MakeSurface(picture, SDL_PIXELFORMAT_BGR24);
    return surfacePtr && SDL_SaveBMP(surfacePtr.get(), path.c_str()) == 0;
}

} // namespace platform
