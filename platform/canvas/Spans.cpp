#include "platform/canvas/Spans.h"

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

/// Four times each: a picture pixel is one wide store.
template <int step>
void ExpandByFour(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr) {
    for (; count > 0; --count, sourcePtr += step, targetPtr += 4) {
        Store(targetPtr, _mm_set1_epi32(static_cast<int>(*sourcePtr)));
    }
}

/// Three times each: a wide store whose fourth pixel the next one overwrites, so the last is written narrowly.
template <int step>
void ExpandByThree(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr) {
    for (; count > 1; --count, sourcePtr += step, targetPtr += 3) {
        Store(targetPtr, _mm_set1_epi32(static_cast<int>(*sourcePtr)));
    }
    if (count > 0) std::fill_n(targetPtr, 3, *sourcePtr);
}

#endif

} // namespace

void ExpandPixels(const std::uint32_t* sourcePtr, int count, int step, int scale, std::uint32_t* targetPtr) {
    if (scale == 1 && step == 1) {
        std::memcpy(targetPtr, sourcePtr, static_cast<std::size_t>(count) * sizeof(std::uint32_t));
        return;
    }
#if PLATFORM_SSE2
    if (scale == 4)
        return step > 0 ? ExpandByFour<1>(sourcePtr, count, targetPtr) : ExpandByFour<-1>(sourcePtr, count, targetPtr);
    if (scale == 3)
        return step > 0 ? ExpandByThree<1>(sourcePtr, count, targetPtr)
                        : ExpandByThree<-1>(sourcePtr, count, targetPtr);
#endif
    for (; count > 0; --count, sourcePtr += step) targetPtr = std::fill_n(targetPtr, scale, *sourcePtr);
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
                           std::uint32_t bottomRight, std::uint32_t right, std::uint32_t down) {
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const std::uint32_t top = (topLeft >> shift & 255) * (256 - right) + (topRight >> shift & 255) * right;
        const std::uint32_t bottom = (bottomLeft >> shift & 255) * (256 - right) + (bottomRight >> shift & 255) * right;
        result |= ((top * (256 - down) + bottom * down + 0x8000U) >> 16) << shift;
    }
    return result;
}

} // namespace platform
