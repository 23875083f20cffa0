#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace platform {

/// Pixels in memory: rows from top to bottom without gaps, each pixel 0xAARRGGBB with the colour premultiplied by alpha
/// (in memory the bytes blue, green, red, alpha).
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    Picture() = default;
    /// A picture filled with `colour`.
    Picture(int pictureWidth, int pictureHeight, std::uint32_t colour = 0)
        : width(pictureWidth), height(pictureHeight),
          pixels(static_cast<std::size_t>(pictureWidth) * static_cast<std::size_t>(pictureHeight), colour) {}

    /// The pixel at column `x` of row `y`; both must lie inside.
    std::uint32_t& At(int x, int y) { return pixels[Index(x, y)]; }
    std::uint32_t At(int x, int y) const { return pixels[Index(x, y)]; }

private:
    std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
};

/// Decodes the picture file at `path` (UTF-8), whatever its format; nothing if it is missing, damaged or absurdly
/// large.
std::optional<Picture> LoadPicture(const std::string& path);

/// Decodes the bytes of a picture file held in memory.
std::optional<Picture> DecodePicture(std::span<const unsigned char> bytes);

/// Writes a PNG with alpha; an opaque picture of few colours with a palette, which decodes several times as fast. False
/// if the file cannot be written.
bool SavePng(const std::string& path, const Picture& picture);

/// Writes a 24-bit BMP; alpha is dropped, so pass opaque pixels. False if the file cannot be written.
bool SaveBmp(const std::string& path, const Picture& picture);

} // namespace platform
