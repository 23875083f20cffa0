#include "platform/core/screen/Scaler.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace platform {

namespace {
constexpr int channels = 4;
constexpr int fullWeight = 256;
} // namespace

void Scaler::Axis::Prepare(int from, int to) {
    const double step = static_cast<double>(from) / to;
    taps = std::min(from, static_cast<int>(std::ceil(step)) + 1);
    first.resize(static_cast<std::size_t>(to));
    weights.assign(static_cast<std::size_t>(to) * static_cast<std::size_t>(taps), 0);
    for (int index = 0; index < to; ++index) {
        const double begin = index * step;
        const int start = std::min(static_cast<int>(begin), from - taps);
        std::uint16_t* const weight = &weights[static_cast<std::size_t>(index) * static_cast<std::size_t>(taps)];
        first[static_cast<std::size_t>(index)] = start;
        // Rounding what is covered up to here, and not each part, keeps the sum exact.
        int given = 0;
        for (int tap = 0; tap < taps; ++tap) {
            const double covered = std::clamp(start + tap + 1 - begin, 0.0, step) / step;
            const int upToHere = static_cast<int>(std::lround(covered * fullWeight));
            weight[tap] = static_cast<std::uint16_t>(upToHere - given);
            given = upToHere;
        }
        weight[taps - 1] = static_cast<std::uint16_t>(weight[taps - 1] + fullWeight - given);
    }
}

void Scaler::SetSizes(POINT from, POINT to) {
    if (from == fromSize && to == toSize) return;
    fromSize = from;
    toSize = to;
    columns.Prepare(from.x, to.x);
    rows.Prepare(from.y, to.y);
    mixedRow.resize(static_cast<std::size_t>(from.x) * channels);
}

void Scaler::Scale(const FrameView& frame, std::uint32_t* pixels, std::ptrdiff_t stride) {
    const bool wholeFactors = toSize.x % fromSize.x == 0 && toSize.y % fromSize.y == 0;
    if (wholeFactors) {
        Enlarge(frame, pixels, stride);
    } else {
        Average(frame, pixels, stride);
    }
}

void Scaler::Enlarge(const FrameView& frame, std::uint32_t* pixels, std::ptrdiff_t stride) const {
    const int across = toSize.x / fromSize.x;
    const int down = toSize.y / fromSize.y;
    const std::size_t rowBytes = static_cast<std::size_t>(toSize.x) * sizeof(std::uint32_t);
    for (int y = 0; y < fromSize.y; ++y) {
        const std::uint32_t* const source = frame.pixels + static_cast<std::ptrdiff_t>(y) * frame.stride;
        std::uint32_t* const target = pixels + y * down * stride;
        if (across == 1) {
            std::memcpy(target, source, rowBytes);
        } else {
            for (int x = 0; x < fromSize.x; ++x) std::fill_n(target + x * across, across, source[x]);
        }
        for (int copy = 1; copy < down; ++copy) std::memcpy(target + copy * stride, target, rowBytes);
    }
}

void Scaler::Average(const FrameView& frame, std::uint32_t* pixels, std::ptrdiff_t stride) {
    for (int y = 0; y < toSize.y; ++y) {
        MixRows(frame, rows.first[static_cast<std::size_t>(y)],
                &rows.weights[static_cast<std::size_t>(y) * static_cast<std::size_t>(rows.taps)]);
        // Enlarging takes two taps and the usual shrinking three; a count known here makes the loop twice as fast.
        switch (columns.taps) {
        case 2: MixColumns<2>(pixels + y * stride); break;
        case 3: MixColumns<3>(pixels + y * stride); break;
        default: MixColumns<0>(pixels + y * stride); break;
        }
    }
}

void Scaler::MixRows(const FrameView& frame, int firstRow, const std::uint16_t* weights) {
    std::uint16_t* const mix = mixedRow.data();
    const int length = fromSize.x * channels;
    std::fill_n(mix, length, std::uint16_t{fullWeight / 2});
    for (int tap = 0; tap < rows.taps; ++tap) {
        const std::uint16_t weight = weights[tap];
        if (weight == 0) continue;
        const auto* const source = reinterpret_cast<const std::uint8_t*>(
            frame.pixels + static_cast<std::ptrdiff_t>(firstRow + tap) * frame.stride);
        for (int i = 0; i < length; ++i) mix[i] = static_cast<std::uint16_t>(mix[i] + source[i] * weight);
    }
    for (int i = 0; i < length; ++i) mix[i] = static_cast<std::uint16_t>(mix[i] >> 8);
}

template <int knownTaps>
void Scaler::MixColumns(std::uint32_t* target) const {
    // One multiplication weighs all four channels: each has 16 bits to itself, and 255 * 256 fits.
    const int taps = knownTaps != 0 ? knownTaps : columns.taps;
    const std::uint16_t* weight = columns.weights.data();
    for (int x = 0; x < toSize.x; ++x, weight += taps) {
        const std::uint16_t* const source =
            &mixedRow[static_cast<std::size_t>(columns.first[static_cast<std::size_t>(x)]) * channels];
        std::uint64_t mix = 0x0080'0080'0080'0080U;
        for (int tap = 0; tap < taps; ++tap) {
            std::uint64_t pixel = 0;
            std::memcpy(&pixel, source + tap * channels, sizeof pixel);
            mix += pixel * weight[tap];
        }
        mix = (mix >> 8) & 0x00FF'00FF'00FF'00FFU;
        mix = (mix | mix >> 8) & 0x0000'FFFF'0000'FFFFU;
        target[x] = static_cast<std::uint32_t>(mix | mix >> 16);
    }
}

} // namespace platform
