// What composing a frame costs and keeps: no memory is asked for, and no shortcut changes a pixel.

#include "platform/core/canvas/Compositor.h"
#include "tests/support/CanvasStage.h"

#include <cstdlib>
#include <new>
#include <random>

// The sanitizers bring their own operator new.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define COUNTS_ALLOCATIONS 0
#else
#define COUNTS_ALLOCATIONS 1
#endif

using platform::Picture;

#if COUNTS_ALLOCATIONS
namespace {
int allocations = 0;
}

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memoryPtr = std::malloc(size > 0 ? size : 1)) return memoryPtr;
    throw std::bad_alloc();
}
void operator delete(void* memoryPtr) noexcept { std::free(memoryPtr); }
void operator delete(void* memoryPtr, std::size_t) noexcept { std::free(memoryPtr); }
#endif

namespace {

/// Transparent, opaque and translucent pixels in turns.
Picture StripedSheet(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            constexpr std::uint32_t kinds[] = {0x00000000U, 0xFF204060U, 0x80402010U};
            picture.At(x, y) = kinds[(x / 3 + y / 2) % 3] + static_cast<std::uint32_t>((x * 5 + y) & 15);
        }
    }
    return picture;
}

float Between(std::mt19937& random, float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
}

} // namespace

TEST(CanvasComposing, TheQuickAndTheGeneralPathPaintTheSamePixels) {
    std::mt19937 random(17);
    const platform::SpriteBitmap bitmap(std::make_shared<const Picture>(StripedSheet(70, 30)));
    const platform::FrameMemory quickFrame = platform::MakeFrameMemory(301, 200);
    const platform::FrameMemory generalFrame = platform::MakeFrameMemory(301, 200);
    platform::Compositor quick(quickFrame);
    platform::Compositor general(generalFrame);
    general.UseGeneralPathOnly();
    for (int round = 0; round < 200; ++round) {
        quick.Clear(0xFF112233U);
        general.Clear(0xFF112233U);
        for (int count = 0; count < 5; ++count) {
            // whole scales and halves of a pixel: where edges meet pixel centres, and rounding could choose either side
            const auto scale = [&] {
                return std::round(Between(random, 1.0F, 6.0F)) * (random() % 2 == 0 ? 1.0F : -1.0F);
            };
            const auto shift = [&] {
                return std::round(Between(random, -100.0F, 500.0F)) / (random() % 2 == 0 ? 2.0F : 3.0F);
            };
            const D2D1_MATRIX_3X2_F transform = {scale(), 0.0F, 0.0F, scale(), shift(), shift()};
            const float left = Between(random, -4.0F, 40.0F);
            const D2D1_RECT_F source = {left, 3.0F, left + 20.0F, 20.0F};
            const auto placement = platform::Placement::Make(source, {70, 30}, {1.25F, 0.0F, 21.25F, 17.0F}, transform);
            ASSERT_TRUE(placement);
            const std::uint32_t opacity = count == 0 ? 100 : 255;
            quick.Draw(bitmap, *placement, opacity, false);
            general.Draw(bitmap, *placement, opacity, false);
        }
        quick.Compose();
        general.Compose();
        ASSERT_TRUE(LooksLike(Copied({quickFrame.pixels.get(), 301, 200, quickFrame.stride}),
                              Copied({generalFrame.pixels.get(), 301, 200, generalFrame.stride})))
            << round;
    }
}

TEST(CanvasComposing, ARunningFrameAllocatesNothing) {
#if COUNTS_ALLOCATIONS
    CanvasStage stage(640, 480);
    stage.Desktop().keepsFrames = false;
    const auto groundPtr = stage.MakeBitmap(Picture(500, 300, 0xFF808080U));
    const auto sheetPtr = stage.MakeBitmap(StripedSheet(128, 16));
    const auto paintFrame = [&](int frame) {
        stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            // a camera that moves, also to where edges meet pixel centres and to scales that are not whole
            const float shift = static_cast<float>(frame) * -0.5F;
            canvas.SetTransform({4.0F, 0.0F, 0.0F, 4.0F, shift, 0.0F});
            canvas.DrawBitmap(*groundPtr, {0.0F, 0.0F, 500.0F, 300.0F}, 1.0F,
                              D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR, {0.0F, 0.0F, 500.0F, 300.0F});
            for (int index = 0; index < 100; ++index) {
                const float scale = index % 3 == 0 ? -4.0F : index % 3 == 1 ? 4.0F : 2.3F;
                const float turn = index % 10 == 0 ? 0.3F : 0.0F;
                canvas.SetTransform(
                    {scale, turn, turn, 4.0F, static_cast<float>(index * 6), static_cast<float>(index * 4)});
                canvas.DrawBitmap(*sheetPtr, {0.0F, 0.0F, 16.0F, 16.0F}, index % 4 == 0 ? 0.5F : 1.0F,
                                  D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR, {16.0F, 0.0F, 32.0F, 16.0F});
            }
        });
    };
    for (int frame = 0; frame < 3; ++frame) paintFrame(frame);
    const int before = allocations;
    for (int frame = 0; frame < 60; ++frame) paintFrame(frame);
    EXPECT_EQ(allocations, before);
#else
    GTEST_SKIP() << "operator new is the sanitizer's";
#endif
}

// A player's texts are the same from frame to frame; drawing them again must not lay them out again or keep more
// memory.
TEST(CanvasComposing, DrawingATextAgainAllocatesNothingOfOurs) {
#if COUNTS_ALLOCATIONS
    CanvasStage stage(200, 100);
    stage.Desktop().keepsFrames = false;
    const auto formatPtr = platform::CreateTextFactory()->CreateTextFormat(L"Consolas", 12.0F);
    const auto paintFrame = [&] {
        stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            for (const wchar_t* text : {L"score 100", L"time 400"}) {
                canvas.DrawText(text, *formatPtr, {0.0F, 0.0F, 200.0F, 100.0F}, ID2D1SolidColorBrush());
            }
        });
    };
    for (int frame = 0; frame < 3; ++frame) paintFrame();
    const int before = allocations;
    for (int frame = 0; frame < 20; ++frame) paintFrame();
    EXPECT_EQ(allocations, before);
#else
    GTEST_SKIP() << "operator new is the sanitizer's";
#endif
}
