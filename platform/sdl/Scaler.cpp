#include "platform/sdl/Scaler.h"

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
    sums.resize(static_cast<std::size_t>(from.x) * channels);
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
        // First the rows: a sum of at most 256 * 255 a channel.
        const int firstRow = rows.first[static_cast<std::size_t>(y)];
        for (int tap = 0; tap < rows.taps; ++tap) {
            const std::uint16_t weight = rows.weights[static_cast<std::size_t>(y * rows.taps + tap)];
            const auto* const source = reinterpret_cast<const std::uint8_t*>(
                frame.pixels + static_cast<std::ptrdiff_t>(firstRow + tap) * frame.stride);
            std::uint16_t* const sum = sums.data();
            const int length = fromSize.x * channels;
            if (tap == 0) {
                for (int i = 0; i < length; ++i) sum[i] = static_cast<std::uint16_t>(source[i] * weight);
            } else if (weight != 0) {
                for (int i = 0; i < length; ++i) sum[i] = static_cast<std::uint16_t>(sum[i] + source[i] * weight);
            }
        }
        // Then the columns; half of the last place rounds.
        auto* const target = reinterpret_cast<std::uint8_t*>(pixels + y * stride);
        for (int x = 0; x < toSize.x; ++x) {
            const std::uint16_t* const sum =
                &sums[static_cast<std::size_t>(columns.first[static_cast<std::size_t>(x)]) * channels];
            const std::uint16_t* const weight = &columns.weights[static_cast<std::size_t>(x * columns.taps)];
            std::uint32_t total[channels] = {1U << 15, 1U << 15, 1U << 15, 1U << 15};
            for (int tap = 0; tap < columns.taps; ++tap) {
                for (int channel = 0; channel < channels; ++channel) {
                    total[channel] += static_cast<std::uint32_t>(sum[tap * channels + channel]) * weight[tap];
                }
            }
            for (int channel = 0; channel < channels; ++channel) {
                target[x * channels + channel] = static_cast<std::uint8_t>(total[channel] >> 16);
            }
        }
    }
}

} // namespace platform
