#pragma once

#include "platform/Desktop.h"

#include <cstdint>
#include <vector>

namespace platform {

/// Copies frames at another size. Each pixel of the result is the mean of the area it covers: whole factors give plain
/// blocks, other factors keep everything in proportion, with edges as sharp as the size allows.
class Scaler {
public:
    /// Prepares for this pair of sizes; allocates only when it differs from the last one. Sizes are at least 1.
    void SetSizes(POINT from, POINT to);
    /// Writes the frame, which has the size announced, to `pixels`, whose rows are `stride` pixels apart.
    void Scale(const FrameView& frame, std::uint32_t* pixels, std::ptrdiff_t stride);

private:
    /// For one direction: which source pixels each result pixel covers, and how much of it each of them is.
    struct Axis {
        std::vector<int> first;
        std::vector<std::uint16_t> weights; // `taps` for each result pixel; their sum is 256
        int taps = 0;
        void Prepare(int from, int to);
    };

    void Enlarge(const FrameView& frame, std::uint32_t* pixels, std::ptrdiff_t stride) const;
    void Average(const FrameView& frame, std::uint32_t* pixels, std::ptrdiff_t stride);
    /// Mixes the frame's rows from `firstRow` on into one.
    void MixRows(const FrameView& frame, int firstRow, const std::uint16_t* weights);
    /// Mixes the columns of that row into one row of the result; `knownTaps` is their number of taps, or 0.
    template <int knownTaps>
    void MixColumns(std::uint32_t* target) const;

    POINT fromSize;
    POINT toSize;
    Axis columns;
    Axis rows;
    std::vector<std::uint16_t> mixedRow; // four channels a pixel, in the bytes' order
};

} // namespace platform
