#include "platform/core/canvas/Spans.h"

#include "platform/Pixel.h"

#include <algorithm>
#include <cstring>

// Every x86-64 processor has SSE2; elsewhere the plain loops give the same pixels.
#if defined(__SSE2__)
#include <emmintrin.h>
#define PLATFORM_SSE2 1
#else
#define PLATFORM_SSE2 0
#endif

namespace platform {

namespace {

#if PLATFORM_SSE2

__m128i Load(const std::uint32_t* pixelsPtr) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixelsPtr)); }

void Store(std::uint32_t* pixelsPtr, __m128i pixels) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixelsPtr), pixels);
}

/// Rounded x / 255 of eight products of two channels.
__m128i DividedBy255(__m128i products) {
    const __m128i rounded = _mm_add_epi16(products, _mm_set1_epi16(128));
    return _mm_srli_epi16(_mm_add_epi16(rounded, _mm_srli_epi16(rounded, 8)), 8);
}

/// All channels of four pixels times the eight factors for the first and the last two.
__m128i ScaledPixels(__m128i pixels, __m128i firstFactors, __m128i lastFactors) {
    const __m128i zero = _mm_setzero_si128();
    return _mm_packus_epi16(DividedBy255(_mm_mullo_epi16(_mm_unpacklo_epi8(pixels, zero), firstFactors)),
                            DividedBy255(_mm_mullo_epi16(_mm_unpackhi_epi8(pixels, zero), lastFactors)));
}

__m128i OverPixels(__m128i source, __m128i destination) {
    // 255 - alpha, in both 16-bit halves of every pixel, then spread over its four channels
    const __m128i alpha = _mm_srli_epi32(source, 24);
    const __m128i inverse = _mm_sub_epi16(_mm_set1_epi16(255), _mm_or_si128(alpha, _mm_slli_epi32(alpha, 16)));
    return _mm_adds_epu8(
        source, ScaledPixels(destination, _mm_unpacklo_epi32(inverse, inverse), _mm_unpackhi_epi32(inverse, inverse)));
}

/// A picture pixel that is four wide is one wide store in each row.
template <int step, int rows>
void PaintFourWide(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr, int stride) {
    for (; count > 0; --count, sourcePtr += step, targetPtr += 4) {
        const __m128i pixels = _mm_set1_epi32(static_cast<int>(*sourcePtr));
        for (int row = 0; row < rows; ++row) Store(targetPtr + row * stride, pixels);
    }
}

/// Three wide: the next picture pixel overwrites the fourth, and the last one is stored in two pieces.
template <int step, int rows>
void PaintThreeWide(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr, int stride) {
    for (; count > 1; --count, sourcePtr += step, targetPtr += 3) {
        const __m128i pixels = _mm_set1_epi32(static_cast<int>(*sourcePtr));
        for (int row = 0; row < rows; ++row) Store(targetPtr + row * stride, pixels);
    }
    for (int row = 0; count > 0 && row < rows; ++row) std::fill_n(targetPtr + row * stride, 3, *sourcePtr);
}

using PaintWide = void (*)(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr, int stride);

template <int step>
PaintWide ChooseWide(int scale, int rows) {
    static constexpr PaintWide fourWide[] = {PaintFourWide<step, 1>, PaintFourWide<step, 2>, PaintFourWide<step, 3>,
                                             PaintFourWide<step, 4>};
    static constexpr PaintWide threeWide[] = {PaintThreeWide<step, 1>, PaintThreeWide<step, 2>,
                                              PaintThreeWide<step, 3>};
    if (scale == 4) return fourWide[rows - 1];
    return scale == 3 ? threeWide[rows - 1] : nullptr;
}

#endif

/// Each of the run's picture pixels in full, in one row.
void ExpandPixels(const std::uint32_t* sourcePtr, int count, int step, int scale, std::uint32_t* targetPtr) {
    if (scale == 1 && step == 1) return CopyPixels(sourcePtr, count, targetPtr);
#if PLATFORM_SSE2
    if (const PaintWide paint = step > 0 ? ChooseWide<1>(scale, 1) : ChooseWide<-1>(scale, 1)) {
        return paint(sourcePtr, count, targetPtr, 0);
    }
#endif
    for (; count > 0; --count, sourcePtr += step) targetPtr = std::fill_n(targetPtr, scale, *sourcePtr);
}

} // namespace

void PaintRun(PixelRun run, std::uint32_t* targetPtr, int stride, int rows) {
    const int width = run.count * run.scale - run.cutLeft - run.cutRight;
    if (run.cutLeft == 0 && run.cutRight == 0) {
#if PLATFORM_SSE2
        // Short runs, as sprites have them, go into all rows at once; a long row is quicker expanded once and copied.
        constexpr int shortRun = 32;
        if (run.count < shortRun && rows <= run.scale) {
            if (const PaintWide paint =
                    run.step > 0 ? ChooseWide<1>(run.scale, rows) : ChooseWide<-1>(run.scale, rows)) {
                return paint(run.sourcePtr, run.count, targetPtr, stride);
            }
        }
#endif
        ExpandPixels(run.sourcePtr, run.count, run.step, run.scale, targetPtr);
    } else {
        // cut pixels narrowly, the whole ones between them as ever
        std::uint32_t* nextPtr = targetPtr;
        if (run.cutLeft > 0) {
            nextPtr = std::fill_n(nextPtr, std::min(run.scale - run.cutLeft, width), *run.sourcePtr);
            run.sourcePtr += run.step;
            --run.count;
        }
        const int whole = run.cutRight > 0 ? run.count - 1 : run.count;
        if (whole > 0) {
            ExpandPixels(run.sourcePtr, whole, run.step, run.scale, nextPtr);
            nextPtr += whole * run.scale;
        }
        if (run.cutRight > 0 && run.count > 0) {
            std::fill(nextPtr, targetPtr + width, run.sourcePtr[whole * run.step]);
        }
    }
    for (int row = 1; row < rows; ++row) CopyPixels(targetPtr, width, targetPtr + row * stride);
}

void CopyPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr) {
    std::memcpy(targetPtr, sourcePtr, static_cast<std::size_t>(count) * sizeof(std::uint32_t));
}

void StreamPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr) {
#if PLATFORM_SSE2
    for (; count > 0; count -= 16, sourcePtr += 16, targetPtr += 16) {
        for (int offset = 0; offset < 16; offset += 4) {
            _mm_stream_si128(reinterpret_cast<__m128i*>(targetPtr + offset), Load(sourcePtr + offset));
        }
    }
#else
    CopyPixels(sourcePtr, count, targetPtr);
#endif
}

void FinishStreaming() {
#if PLATFORM_SSE2
    _mm_sfence();
#endif
}

void ScalePixels(std::uint32_t* pixelsPtr, int count, std::uint32_t factor) {
#if PLATFORM_SSE2
    const __m128i factors = _mm_set1_epi16(static_cast<short>(factor));
    for (; count >= 4; count -= 4, pixelsPtr += 4) Store(pixelsPtr, ScaledPixels(Load(pixelsPtr), factors, factors));
#endif
    for (; count > 0; --count, ++pixelsPtr) *pixelsPtr = ScaledPixel(*pixelsPtr, factor);
}

void BlendPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr) {
#if PLATFORM_SSE2
    for (; count >= 4; count -= 4, sourcePtr += 4, targetPtr += 4) {
        Store(targetPtr, OverPixels(Load(sourcePtr), Load(targetPtr)));
    }
#endif
    for (; count > 0; --count, ++sourcePtr, ++targetPtr) *targetPtr = Over(*sourcePtr, *targetPtr);
}

std::uint32_t BlendedPixel(std::uint32_t topLeft, std::uint32_t topRight, std::uint32_t bottomLeft,
                           std::uint32_t bottomRight, int right, int down) {
#if PLATFORM_SSE2
    // Each channel of two neighbours stands side by side in 16-bit halves, so one multiplication weighs and adds them.
    const auto weights = [](int fraction) { return _mm_set1_epi32((128 - fraction) | fraction << 16); };
    const auto blendedAcross = [&](std::uint32_t first, std::uint32_t second) {
        const __m128i bytes =
            _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(first)), _mm_cvtsi32_si128(static_cast<int>(second)));
        return _mm_madd_epi16(_mm_unpacklo_epi8(bytes, _mm_setzero_si128()), weights(right));
    };
    const __m128i both =
        _mm_or_si128(blendedAcross(topLeft, topRight), _mm_slli_epi32(blendedAcross(bottomLeft, bottomRight), 16));
    const __m128i sum = _mm_add_epi32(_mm_madd_epi16(both, weights(down)), _mm_set1_epi32(1 << 13));
    const __m128i channels = _mm_packs_epi32(_mm_srli_epi32(sum, 14), _mm_setzero_si128());
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(channels, channels)));
#else
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const auto channel = [&](std::uint32_t pixel) { return static_cast<int>(pixel >> shift & 255); };
        const int top = channel(topLeft) * (128 - right) + channel(topRight) * right;
        const int bottom = channel(bottomLeft) * (128 - right) + channel(bottomRight) * right;
        result |= static_cast<std::uint32_t>((top * (128 - down) + bottom * down + (1 << 13)) >> 14) << shift;
    }
    return result;
#endif
}

} // namespace platform
