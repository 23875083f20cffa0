#pragma once

// Arithmetic on premultiplied 0xAARRGGBB pixels. Every product of two channels is divided by 255 and rounded to
// nearest.

#include "platform/Types.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace platform {

/// All four channels times `factor` / 255.
constexpr std::uint32_t ScaledPixel(std::uint32_t pixel, std::uint32_t factor) {
    // two channels at a time, 16 bits apart: (x + (x >> 8)) >> 8 with x = product + 128 is the rounded x / 255
    constexpr std::uint32_t pair = 0x00FF00FFU;
    std::uint32_t low = (pixel & pair) * factor + 0x00800080U;
    std::uint32_t high = (pixel >> 8 & pair) * factor + 0x00800080U;
    low = (low + (low >> 8 & pair)) >> 8 & pair;
    high = (high + (high >> 8 & pair)) & ~pair;
    return high | low;
}

/// A straight pixel, its colour multiplied by its alpha.
constexpr std::uint32_t PremultipliedPixel(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    return alpha == 255 ? pixel : ScaledPixel(pixel | 0xFF000000U, alpha);
}

/// The reverse, as far as the rounding has left it.
constexpr std::uint32_t StraightPixel(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 255 || alpha == 0) return pixel;
    std::uint32_t result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        result |= std::min(255U, ((pixel >> shift & 255) * 255 + alpha / 2) / alpha) << shift;
    }
    return result;
}

/// `source` painted over `destination`. A channel that would pass 255 stays there.
constexpr std::uint32_t Over(std::uint32_t source, std::uint32_t destination) {
    const std::uint32_t below = ScaledPixel(destination, 255 - (source >> 24));
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        result |= std::min(255U, (source >> shift & 255) + (below >> shift & 255)) << shift;
    }
    return result;
}

/// A channel between 0 and 1 as 0 to 255; what is no number counts as 0.
inline std::uint32_t ToChannel(float value) {
    return value > 0.0F ? static_cast<std::uint32_t>(std::lround(std::min(value, 1.0F) * 255.0F)) : 0U;
}

/// The pixel of a straight colour.
inline std::uint32_t ToPixel(D2D1_COLOR_F color) {
    const std::uint32_t straight = ToChannel(color.r) << 16 | ToChannel(color.g) << 8 | ToChannel(color.b);
    return ScaledPixel(straight | 0xFF000000U, ToChannel(color.a));
}

} // namespace platform
