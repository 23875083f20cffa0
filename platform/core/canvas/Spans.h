#pragma once

#include <cstdint>

// The inner loops of painting: rows of premultiplied pixels.

namespace platform {

/// Picture pixels as they stand on the screen from left to right, `step` (1 or -1) apart in the picture, each `scale`
/// frame pixels wide. The first and the last may be cut.
struct PixelRun {
    const std::uint32_t* sourcePtr = nullptr;
    int count = 0;
    int step = 1;
    int scale = 1;
    int cutLeft = 0; // frame pixels, less than `scale` if there is only one picture pixel
    int cutRight = 0;
};

/// Paints the run into `rows` rows, which lie `stride` pixels apart.
void PaintRun(PixelRun run, std::uint32_t* targetPtr, int stride, int rows);

void CopyPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr);

/// Copies to memory that is not read soon, past the caches; both begin at a multiple of 64 bytes, and `count` is a
/// multiple of 16. The pixels have arrived after FinishStreaming.
void StreamPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr);
void FinishStreaming();

/// Multiplies all channels by `factor` / 255.
void ScalePixels(std::uint32_t* pixelsPtr, int count, std::uint32_t factor);

/// Paints `source` over `target`.
void BlendPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr);

/// The four pixels blended by the fractions, 0 to 128, of the way to the right and down.
std::uint32_t BlendedPixel(std::uint32_t topLeft, std::uint32_t topRight, std::uint32_t bottomLeft,
                           std::uint32_t bottomRight, int right, int down);

} // namespace platform
