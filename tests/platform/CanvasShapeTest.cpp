#include "tests/support/CanvasStage.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

using platform::Picture;
using testing::ElementsAre;

namespace {

constexpr std::uint32_t white = 0xFFFFFFFFU;
constexpr std::uint32_t black = 0xFF000000U;

ID2D1SolidColorBrush Brush(float r, float g, float b, float a) {
    ID2D1SolidColorBrush brush;
    brush.SetColor({r, g, b, a});
    return brush;
}

ID2D1SolidColorBrush Black() { return Brush(0.0F, 0.0F, 0.0F, 1.0F); }

/// The picture as text: '#' for black, '.' for white, '+' for anything between.
std::vector<std::string> Drawn(const Picture& picture) {
    std::vector<std::string> rows;
    for (int y = 0; y < picture.height; ++y) {
        std::string row;
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t pixel = picture.At(x, y);
            row += pixel == black ? '#' : pixel == white ? '.' : '+';
        }
        rows.push_back(row);
    }
    return rows;
}

template <class Paint>
std::vector<std::string> Painted(int width, int height, const Paint& paint) {
    CanvasStage stage(width, height);
    return Drawn(stage.Frame(paint));
}

int CountChanged(const Picture& picture, const RECT& area) {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) count += picture.At(x, y) != white ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(CanvasShape, FillRectangleCoversItsPixelsAndNoOther) {
    EXPECT_THAT(
        Painted(7, 9,
                [](ID2D1HwndRenderTarget& canvas) {
                    canvas.FillRectangle({2.0F, 3.0F, 5.0F, 7.0F}, Black());
                }),
        ElementsAre(".......", ".......", ".......", "..###..", "..###..", "..###..", "..###..", ".......", "......."));
}

TEST(CanvasShape, OutlinesAreAsWideAsTheTransformMakesThem) {
    EXPECT_THAT(Painted(8, 6,
                        [](ID2D1HwndRenderTarget& canvas) {
                            canvas.DrawRectangle({1.5F, 1.5F, 6.5F, 4.5F}, Black(), 1.0F);
                        }),
                ElementsAre("........", ".######.", ".#....#.", ".#....#.", ".######.", "........"));
    EXPECT_THAT(Painted(8, 6,
                        [](ID2D1HwndRenderTarget& canvas) {
                            canvas.SetTransform({2.0F, 0.0F, 0.0F, 2.0F, 0.0F, 0.0F});
                            canvas.DrawLine({0.5F, 1.5F}, {3.5F, 1.5F}, Black(), 1.0F);
                        }),
                ElementsAre("........", "........", ".######.", ".######.", "........", "........"));
}

TEST(CanvasShape, RoundShapesLeaveTheirCornersOut) {
    const auto disc = Painted(8, 8, [](ID2D1HwndRenderTarget& canvas) {
        canvas.FillEllipse({{4.0F, 4.0F}, 4.0F, 4.0F}, Black());
    });
    EXPECT_THAT(disc, ElementsAre("..####..", ".######.", "########", "########", "########", "########", ".######.",
                                  "..####.."));
    EXPECT_EQ(disc, Painted(8, 8, [](ID2D1HwndRenderTarget& canvas) {
                  canvas.FillRoundedRectangle({{0.0F, 0.0F, 8.0F, 8.0F}, 4.0F, 4.0F}, Black());
              }));
    EXPECT_THAT(Painted(6, 5,
                        [](ID2D1HwndRenderTarget& canvas) {
                            canvas.DrawRoundedRectangle({{0.5F, 0.5F, 5.5F, 4.5F}, 1.5F, 1.5F}, Black(), 1.0F);
                        }),
                ElementsAre(".####.", "#....#", "#....#", "#....#", ".####."));
}

TEST(CanvasShape, SmoothsEdgesOnlyWhenAsked) {
    const auto paint = [](D2D1_ANTIALIAS_MODE mode) {
        return Painted(3, 1, [&](ID2D1HwndRenderTarget& canvas) {
            canvas.SetAntialiasMode(mode);
            canvas.FillRectangle({0.5F, 0.0F, 2.75F, 1.0F}, Black());
        });
    };
    EXPECT_THAT(paint(D2D1_ANTIALIAS_MODE_ALIASED), ElementsAre("###"));
    EXPECT_THAT(paint(D2D1_ANTIALIAS_MODE_PER_PRIMITIVE), ElementsAre("+#+"));
}

TEST(CanvasShape, BlendsTheBrushColour) {
    CanvasStage stage(2, 1);
    const Picture& frame = stage.Frame([](ID2D1HwndRenderTarget& canvas) {
        canvas.FillRectangle({0.0F, 0.0F, 1.0F, 1.0F}, Brush(1.0F, 0.0F, 0.0F, 128.0F / 255.0F));
    });
    EXPECT_EQ(frame.At(0, 0), 0xFFFF7F7FU);
    EXPECT_EQ(frame.At(1, 0), white);
}

TEST(CanvasShape, StaysInOrderWithPictures) {
    CanvasStage stage(3, 1);
    const auto bitmapPtr = stage.MakeBitmap(Picture(1, 1, 0xFF00FF00U));
    const Picture& frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
        const auto drawAt = [&](float left) {
            canvas.DrawBitmap(*bitmapPtr, {left, 0.0F, left + 2.0F, 1.0F}, 1.0F,
                              D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR, {0.0F, 0.0F, 1.0F, 1.0F});
        };
        drawAt(0.0F);
        canvas.FillRectangle({1.0F, 0.0F, 3.0F, 1.0F}, Black());
        drawAt(2.0F);
    });
    EXPECT_THAT(frame.pixels, ElementsAre(0xFF00FF00U, black, 0xFF00FF00U));
}

TEST(CanvasText, IsDrawnInsideItsBoxOnly) {
    CanvasStage stage(120, 80);
    const auto formatPtr = platform::CreateTextFactory()->CreateTextFormat(L"Consolas", 20.0F);
    const Picture& frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
        canvas.DrawText(L"many words that wrap and wrap and never fit into it", *formatPtr,
                        {20.0F, 10.0F, 100.0F, 60.0F}, Black());
    });
    const int inside = CountChanged(frame, {20, 10, 100, 60});
    EXPECT_GT(inside, 200);
    EXPECT_EQ(CountChanged(frame, {0, 0, 120, 80}), inside);
    EXPECT_GT(CountChanged(frame, {20, 36, 100, 60}), 50) << "a second line";
}

TEST(CanvasText, HasTheSizeOfItsFormatAndTransform) {
    CanvasStage stage(200, 100);
    const auto factoryPtr = platform::CreateTextFactory();
    const auto height = [&](float size, float scale) {
        const auto formatPtr = factoryPtr->CreateTextFormat(L"Consolas", size);
        const Picture& frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            canvas.SetTransform({scale, 0.0F, 0.0F, scale, 0.0F, 0.0F});
            canvas.DrawText(L"H", *formatPtr, {0.0F, 0.0F, 100.0F, 100.0F}, Black());
        });
        int rows = 0;
        for (int y = 0; y < 100; ++y) rows += CountChanged(frame, {0, y, 200, y + 1}) > 0 ? 1 : 0;
        return rows;
    };
    EXPECT_NEAR(height(40.0F, 1.0F), 0.7 * 40.0, 5.0);
    EXPECT_NEAR(height(20.0F, 2.0F), height(40.0F, 1.0F), 1.0);
    EXPECT_EQ(factoryPtr->CreateTextFormat(L"Consolas", 0.0F), nullptr);
    EXPECT_EQ(factoryPtr->CreateTextFormat(L"", 12.0F), nullptr);
}

TEST(CanvasText, TakesTabsOddCharactersAndUnknownFamilies) {
    CanvasStage stage(200, 40);
    const auto formatPtr = platform::CreateTextFactory()->CreateTextFormat(L"No Such Family", 10.0F);
    const Picture& frame = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
        canvas.DrawText(std::wstring(L"\ta\0b", 4) + static_cast<wchar_t>(0xD800), *formatPtr,
                        {0.0F, 0.0F, 200.0F, 40.0F}, Black());
    });
    EXPECT_EQ(CountChanged(frame, {0, 0, 40, 40}), 0) << "a tab stop is four font sizes wide";
    EXPECT_GT(CountChanged(frame, {40, 0, 200, 40}), 10);
}

TEST(CanvasFrame, NothingIsDrawnOutsideAPaintPass) {
    CanvasStage stage(4, 4);
    const auto bitmapPtr = stage.MakeBitmap(Picture(4, 4, black));
    ID2D1HwndRenderTarget& canvas = stage.Canvas();
    EXPECT_LT(canvas.EndDraw(), 0);
    canvas.Clear({0.0F, 0.0F, 0.0F, 1.0F});
    canvas.FillRectangle({0.0F, 0.0F, 4.0F, 4.0F}, Black());
    canvas.DrawBitmap(*bitmapPtr, {0.0F, 0.0F, 4.0F, 4.0F}, 1.0F, D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR,
                      {0.0F, 0.0F, 4.0F, 4.0F});
    canvas.BeginDraw();
    EXPECT_EQ(canvas.EndDraw(), S_OK);
    EXPECT_TRUE(LooksLike(stage.Desktop().shown, Picture(4, 4)));
    EXPECT_EQ(stage.Desktop().framesShown, 1);
}

TEST(CanvasFrame, WaitsForTheBlankUnlessToldOtherwise) {
    for (const D2D1_PRESENT_OPTIONS present : {D2D1_PRESENT_OPTIONS_NONE, D2D1_PRESENT_OPTIONS_IMMEDIATELY}) {
        CanvasStage stage(4, 4, present);
        stage.Frame([](ID2D1HwndRenderTarget&) {});
        EXPECT_EQ(stage.Desktop().lastWaited, present == D2D1_PRESENT_OPTIONS_NONE);
    }
}

TEST(CanvasFrame, TellsThatTheWindowIsLost) {
    CanvasStage stage(4, 4);
    stage.Desktop().canShow = false;
    stage.Canvas().BeginDraw();
    EXPECT_EQ(stage.Canvas().EndDraw(), D2DERR_RECREATE_TARGET);
}

TEST(CanvasFrame, HasASize) {
    CanvasStage stage(33, 7);
    EXPECT_EQ(stage.Canvas().GetSize().width, 33.0F);
    EXPECT_EQ(stage.Canvas().GetSize().height, 7.0F);
    EXPECT_EQ(platform::CreateCanvas(nullptr, 0, 7, D2D1_PRESENT_OPTIONS_NONE), nullptr);
    EXPECT_EQ(platform::CreateCanvas(nullptr, 7, -1, D2D1_PRESENT_OPTIONS_NONE), nullptr);
}

TEST(CanvasShape, NonsenseDrawsNothingAndHugeShapesFill) {
    constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
    constexpr float endless = std::numeric_limits<float>::infinity();
    CanvasStage stage(20, 20);
    const auto formatPtr = platform::CreateTextFactory()->CreateTextFormat(L"Consolas", 12.0F);
    const auto drawAll = [&](ID2D1HwndRenderTarget& canvas, float number) {
        canvas.DrawLine({number, 0.0F}, {5.0F, 5.0F}, Black(), 1.0F);
        canvas.DrawLine({0.0F, 0.0F}, {5.0F, 5.0F}, Black(), number);
        canvas.DrawRectangle({1.0F, number, 5.0F, 5.0F}, Black(), 1.0F);
        canvas.FillRectangle({1.0F, 1.0F, number, 5.0F}, Black());
        canvas.FillRoundedRectangle({{1.0F, 1.0F, 5.0F, number}, 1.0F, 1.0F}, Black());
        canvas.FillEllipse({{5.0F, 5.0F}, number, 2.0F}, Black());
        canvas.DrawText(L"text", *formatPtr, {number, 0.0F, 20.0F, 20.0F}, Black());
    };
    EXPECT_TRUE(LooksLike(stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
        drawAll(canvas, notANumber);
        for (const float bad : {notANumber, endless, -endless, 0.0F}) {
            canvas.SetTransform({bad, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F});
            drawAll(canvas, 3.0F);
        }
        canvas.SetTransform({});
        canvas.DrawText(L"text", *formatPtr, {5.0F, 5.0F, 5.0F, 2.0F}, Black());
        canvas.DrawLine({0.0F, 0.0F}, {5.0F, 5.0F}, Black(), -1.0F);
    }),
                          Picture(20, 20, white)));
    EXPECT_TRUE(LooksLike(stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
        for (const float huge : {1e10F, 3e38F, endless}) drawAll(canvas, huge);
        canvas.FillRectangle({-3e38F, -1e9F, 3e38F, 1e9F}, Black());
    }),
                          Picture(20, 20, black)));
}
