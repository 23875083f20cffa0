#pragma once

#include <cstdint>

// The inner loops of painting: rows of premultiplied pixels.

namespace platform {

/// Writes `count` picture pixels, the next one `step` (1 or -1) further each time, `scale` times each.
void ExpandPixels(const std::uint32_t* sourcePtr, int count, int step, int scale, std::uint32_t* targetPtr);

/// Multiplies all channels by `factor` / 255.
void ScalePixels(std::uint32_t* pixelsPtr, int count, std::uint32_t factor);

/// Paints `source` over `target`.
void BlendPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr);

/// The four pixels blended by the fractions, 0 to 256, of the way to the right and down.
std::uint32_t BlendedPixel(std::uint32_t topLeft, std::uint32_t topRight, std::uint32_t bottomLeft,
                           std::uint32_t bottomRight, std::uint32_t right, std::uint32_t down);

} // namespace platform
