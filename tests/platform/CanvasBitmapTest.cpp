#include "tests/support/CanvasStage.h"
#include "tests/support/ReferencePainter.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>

using platform::Picture;

namespace {

constexpr std::uint32_t white = 0xFFFFFFFFU;
constexpr D2D1_BITMAP_INTERPOLATION_MODE nearest = D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR;
constexpr D2D1_BITMAP_INTERPOLATION_MODE linear = D2D1_BITMAP_INTERPOLATION_MODE_LINEAR;

float Between(std::mt19937& random, float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
}

int Whole(std::mt19937& random, int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

/// Stretches of transparent, opaque and translucent pixels in random colours, as sprites have them; wider than the 64
/// columns that are looked at at a time.
Picture RandomSheet(std::mt19937& random, int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width;) {
            const int kind = Whole(random, 0, 2);
            for (int count = Whole(random, 1, kind == 1 ? 90 : 6); count > 0 && x < width; --count, ++x) {
                const std::uint32_t alpha = kind == 0   ? 0U
                                            : kind == 1 ? 255U
                                                        : static_cast<std::uint32_t>(Whole(random, 1, 254));
                std::uint32_t pixel = alpha << 24;
                for (int shift = 0; shift < 24; shift += 8) {
                    pixel |= static_cast<std::uint32_t>(Whole(random, 0, static_cast<int>(alpha))) << shift;
                }
                picture.At(x, y) = pixel;
            }
        }
    }
    return picture;
}

Picture RandomGround(std::mt19937& random, int width, int height) {
    Picture picture(width, height);
    for (std::uint32_t& pixel : picture.pixels) pixel = 0xFF000000U | static_cast<std::uint32_t>(random());
    return picture;
}

D2D1_RECT_F WholeOf(const Picture& picture) {
    return {0.0F, 0.0F, static_cast<float>(picture.width), static_cast<float>(picture.height)};
}

/// Two by two pixels: red, green; blue, yellow.
Picture FourColours() {
    Picture picture(2, 2);
    picture.pixels = {0xFFFF0000U, 0xFF00FF00U, 0xFF0000FFU, 0xFFFFFF00U};
    return picture;
}

} // namespace

// Many random scenes: each is painted by the canvas and pixel by pixel by the reference.
class CanvasSampling : public testing::Test {
protected:
    template <class MakeTransform>
    void ComparesWithReference(int rounds, const MakeTransform& makeTransform) {
        std::mt19937 random(20260711);
        CanvasStage stage(150, 110);
        const Picture sheet = RandomSheet(random, 200, 40);
        const Picture ground = RandomGround(random, 90, 60);
        const auto sheetPtr = stage.MakeBitmap(sheet);
        const auto groundPtr = stage.MakeBitmap(ground);
        for (int round = 0; round < rounds; ++round) {
            SCOPED_TRACE(round);
            ReferencePainter reference(150, 110, white);
            const Picture& shown = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
                for (int count = 0; count < 6; ++count) {
                    const bool isSheet = count != 1 && count != 4;
                    const Picture& picture = isSheet ? sheet : ground;
                    const int left = Whole(random, 0, picture.width - 1);
                    const int top = Whole(random, 0, picture.height - 1);
                    const D2D1_RECT_F source = {static_cast<float>(left), static_cast<float>(top),
                                                static_cast<float>(Whole(random, left + 1, picture.width)),
                                                static_cast<float>(Whole(random, top + 1, picture.height))};
                    const D2D1_MATRIX_3X2_F transform = makeTransform(random);
                    const D2D1_RECT_F destination = {0.0F, 0.0F, source.right - source.left,
                                                     source.bottom - source.top};
                    const int opacity = count % 3 == 0 ? Whole(random, 0, 255) : 255;
                    canvas.SetTransform(transform);
                    canvas.DrawBitmap(isSheet ? *sheetPtr : *groundPtr, destination,
                                      static_cast<float>(opacity) / 255.0F, nearest, source);
                    reference.SetTransform(transform);
                    reference.DrawBitmap(picture, destination, source, opacity);
                }
            });
            ASSERT_TRUE(LooksLike(shown, reference.frame));
        }
    }
};

TEST_F(CanvasSampling, IsExactUnderAnyScaleMirroredOrNot) {
    ComparesWithReference(300, [](std::mt19937& random) {
        const auto scale = [&] { return Between(random, 0.3F, 6.0F) * (Whole(random, 0, 1) == 0 ? 1.0F : -1.0F); };
        return D2D1_MATRIX_3X2_F{
            scale(), 0.0F, 0.0F, scale(), Between(random, -60.0F, 200.0F), Between(random, -60.0F, 160.0F)};
    });
}

// The game's own scales under a camera that stands anywhere, also where edges fall exactly on pixel centres.
TEST_F(CanvasSampling, IsExactUnderWholeScalesAndFractionalShifts) {
    ComparesWithReference(600, [](std::mt19937& random) {
        const auto scale = [&] {
            return static_cast<float>(Whole(random, 1, 5) * (Whole(random, 0, 1) == 0 ? 1 : -1));
        };
        const auto shift = [&] {
            return Whole(random, 0, 1) == 0 ? Between(random, -100.0F, 200.0F)
                                            : static_cast<float>(Whole(random, -400, 800)) / 4.0F;
        };
        return D2D1_MATRIX_3X2_F{scale(), 0.0F, 0.0F, scale(), shift(), shift()};
    });
}

TEST_F(CanvasSampling, IsExactWhenTurnedAndSheared) {
    ComparesWithReference(150, [](std::mt19937& random) {
        return D2D1_MATRIX_3X2_F{Between(random, -4.0F, 4.0F),  Between(random, -4.0F, 4.0F),
                                 Between(random, -4.0F, 4.0F),  Between(random, -4.0F, 4.0F),
                                 Between(random, 0.0F, 150.0F), Between(random, 0.0F, 110.0F)};
    });
}

TEST_F(CanvasSampling, IsExactUnderQuarterTurns) {
    ComparesWithReference(60, [](std::mt19937& random) {
        const auto scale = [&] {
            return static_cast<float>(Whole(random, 1, 4) * (Whole(random, 0, 1) == 0 ? 1 : -1));
        };
        return D2D1_MATRIX_3X2_F{0.0F,
                                 scale(),
                                 scale(),
                                 0.0F,
                                 static_cast<float>(Whole(random, 0, 300)) / 2.0F,
                                 static_cast<float>(Whole(random, 0, 220)) / 2.0F};
    });
}

TEST(CanvasBitmap, HasHardEdgesNearestAndSoftOnesLinear) {
    CanvasStage stage(4, 4);
    const auto bitmapPtr = stage.MakeBitmap(FourColours());
    const auto paint = [&](D2D1_BITMAP_INTERPOLATION_MODE mode) {
        return stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            canvas.SetTransform({2.0F, 0.0F, 0.0F, 2.0F, 0.0F, 0.0F});
            canvas.DrawBitmap(*bitmapPtr, {0.0F, 0.0F, 2.0F, 2.0F}, 1.0F, mode, {0.0F, 0.0F, 2.0F, 2.0F});
        });
    };
    const Picture hard = paint(nearest);
    EXPECT_EQ(hard.At(1, 1), 0xFFFF0000U);
    EXPECT_EQ(hard.At(2, 1), 0xFF00FF00U);
    const Picture soft = paint(linear);
    EXPECT_EQ(soft.At(0, 0), 0xFFFF0000U) << "the outermost pixels have no neighbour to blend with";
    EXPECT_EQ(soft.At(1, 0), 0xFFBF4000U) << "a quarter of the way from red to green";
}

TEST(CanvasBitmap, LinearNeverShowsTheNeighbourCell) {
    CanvasStage stage(8, 8);
    const auto bitmapPtr = stage.MakeBitmap(FourColours());
    const Picture frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
        canvas.DrawBitmap(*bitmapPtr, {0.0F, 0.0F, 8.0F, 8.0F}, 1.0F, linear, {1.0F, 0.0F, 2.0F, 1.0F});
    });
    EXPECT_TRUE(LooksLike(frame, Picture(8, 8, 0xFF00FF00U)));
}

TEST(CanvasBitmap, LinearEqualsNearestWherePixelsMeetPixels) {
    std::mt19937 random(5);
    CanvasStage stage(100, 60);
    const auto bitmapPtr = stage.MakeBitmap(RandomSheet(random, 80, 40));
    const auto paint = [&](D2D1_BITMAP_INTERPOLATION_MODE mode) {
        return stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            canvas.SetTransform({-1.0F, 0.0F, 0.0F, 1.0F, 90.0F, 7.0F});
            canvas.DrawBitmap(*bitmapPtr, {0.0F, 0.0F, 80.0F, 40.0F}, 0.5F, mode, {0.0F, 0.0F, 80.0F, 40.0F});
        });
    };
    const Picture expected = paint(nearest);
    EXPECT_TRUE(LooksLike(paint(linear), expected));
}

TEST(CanvasBitmap, WhatASourceHasOutsideThePictureIsNotDrawn) {
    CanvasStage stage(8, 8);
    const auto bitmapPtr = stage.MakeBitmap(FourColours());
    for (const D2D1_BITMAP_INTERPOLATION_MODE mode : {nearest, linear}) {
        const Picture frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            canvas.DrawBitmap(*bitmapPtr, {0.0F, 0.0F, 6.0F, 6.0F}, 1.0F, mode, {-2.0F, -2.0F, 4.0F, 4.0F});
        });
        EXPECT_EQ(frame.At(1, 1), white);
        EXPECT_EQ(frame.At(2, 2), 0xFFFF0000U);
        EXPECT_EQ(frame.At(3, 3), 0xFFFFFF00U);
        EXPECT_EQ(frame.At(4, 4), white);
    }
}

// The frame is made of bands, and what an opaque picture hides is left out: neither may be seen.
TEST(CanvasBitmap, KeepsTheOrderOfClearsAndPictures) {
    std::mt19937 random(7);
    constexpr int width = 1024;
    constexpr int height = 300;
    CanvasStage stage(width, height);
    const Picture ground = RandomGround(random, 300, 90);
    const Picture sheet = RandomSheet(random, 64, 64);
    const auto groundPtr = stage.MakeBitmap(ground);
    const auto sheetPtr = stage.MakeBitmap(sheet);
    for (const float shift : {0.0F, -77.3F, 40.6F}) {
        ReferencePainter reference(width, height, 0xFF336699U);
        const Picture& shown = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            const auto draw = [&](const ID2D1Bitmap& bitmap, const Picture& picture,
                                  const D2D1_MATRIX_3X2_F& transform) {
                canvas.SetTransform(transform);
                canvas.DrawBitmap(bitmap, WholeOf(picture), 1.0F, nearest, WholeOf(picture));
                reference.SetTransform(transform);
                reference.DrawBitmap(picture, WholeOf(picture), WholeOf(picture));
            };
            draw(*groundPtr, ground, {3.0F, 0.0F, 0.0F, 3.0F, 5.0F, 5.0F});
            canvas.Clear({0.2F, 0.4F, 0.6F, 1.0F});
            reference.frame = Picture(width, height, 0xFF336699U);
            draw(*sheetPtr, sheet, {4.0F, 0.0F, 0.0F, 4.0F, 600.0F, 100.0F});
            draw(*groundPtr, ground, {4.0F, 0.0F, 0.0F, 4.0F, shift, shift});
            draw(*sheetPtr, sheet, {-4.0F, 0.0F, 0.0F, 4.0F, 500.0F + shift, 20.0F});
            draw(*groundPtr, ground, {1.0F, 0.0F, 0.0F, 1.0F, 300.0F, shift});
        });
        EXPECT_TRUE(LooksLike(shown, reference.frame));
    }
}

TEST(CanvasBitmap, NonsenseDrawsNothing) {
    constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
    constexpr float endless = std::numeric_limits<float>::infinity();
    constexpr float huge = 3e38F;
    CanvasStage stage(20, 20);
    const auto bitmapPtr = stage.MakeBitmap(FourColours());
    const D2D1_RECT_F all = {0.0F, 0.0F, 2.0F, 2.0F};
    const Picture frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
        for (const float bad : {notANumber, endless, -endless}) {
            canvas.SetTransform({bad, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F});
            canvas.DrawBitmap(*bitmapPtr, all, 1.0F, nearest, all);
            canvas.SetTransform({1.0F, 0.0F, 0.0F, 1.0F, 0.0F, bad});
            canvas.DrawBitmap(*bitmapPtr, all, 1.0F, linear, all);
            canvas.SetTransform({});
            canvas.DrawBitmap(*bitmapPtr, {bad, 0.0F, 2.0F, 2.0F}, 1.0F, nearest, all);
            canvas.DrawBitmap(*bitmapPtr, all, 1.0F, nearest, {0.0F, bad, 2.0F, 2.0F});
        }
        canvas.DrawBitmap(*bitmapPtr, all, notANumber, nearest, all);
        canvas.DrawBitmap(*bitmapPtr, all, -1.0F, nearest, all);
        canvas.DrawBitmap(*bitmapPtr, all, 1.0F, nearest, {1.0F, 1.0F, 1.0F, 2.0F});
        canvas.DrawBitmap(*bitmapPtr, {2.0F, 2.0F, 0.0F, 0.0F}, 1.0F, nearest, all);
        canvas.DrawBitmap(*bitmapPtr, all, 1.0F, linear, {50.0F, 50.0F, 60.0F, 60.0F});
        canvas.DrawBitmap(*bitmapPtr, {huge, huge, huge, huge}, 1.0F, nearest, all);
        canvas.SetTransform({1.0F, 1.0F, 1.0F, 1.0F, 0.0F, 0.0F}); // no area
        canvas.DrawBitmap(*bitmapPtr, all, 1.0F, nearest, all);
        canvas.SetTransform({1.0F, 0.0F, 0.0F, 1.0F, huge, -huge});
        canvas.DrawBitmap(*bitmapPtr, all, 1.0F, nearest, all);
    });
    EXPECT_TRUE(LooksLike(frame, Picture(20, 20, white)));
}

TEST(CanvasBitmap, HugeScalesFillTheFrame) {
    CanvasStage stage(20, 20);
    const auto bitmapPtr = stage.MakeBitmap(FourColours());
    for (const float scale : {1e4F, 1e9F, 1e30F}) {
        const Picture frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            canvas.SetTransform({scale, 0.0F, 0.0F, scale, 0.0F, 0.0F});
            canvas.DrawBitmap(*bitmapPtr, {0.0F, 0.0F, 2.0F, 2.0F}, 1.0F, nearest, {0.0F, 0.0F, 2.0F, 2.0F});
        });
        EXPECT_TRUE(LooksLike(frame, Picture(20, 20, 0xFFFF0000U))) << scale;
    }
}

TEST(CanvasBitmap, IsRefusedWithoutPixels) {
    CanvasStage stage(4, 4);
    EXPECT_EQ(stage.Canvas().CreateBitmap(nullptr), nullptr);
    EXPECT_EQ(stage.MakeBitmap(Picture()), nullptr);
    Picture torn(4, 4);
    torn.pixels.resize(7);
    EXPECT_EQ(stage.MakeBitmap(torn), nullptr);
    EXPECT_EQ(stage.MakeBitmap(Picture(7, 3))->GetPixelSize(), (POINT{7, 3}));
}
