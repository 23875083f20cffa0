#include "tests/support/Stage.h"

#include <gmock/gmock.h>

#include <limits>
#include <map>

using platform::Picture;
using testing::Each;
using testing::ElementsAre;

namespace {

using Canvas = ID2D1HwndRenderTarget;

constexpr std::uint32_t white = 0xFFFFFFFFU;
constexpr std::uint32_t black = 0xFF000000U;
constexpr D2D1_BITMAP_INTERPOLATION_MODE nearest = D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR;
constexpr D2D1_BITMAP_INTERPOLATION_MODE linear = D2D1_BITMAP_INTERPOLATION_MODE_LINEAR;
constexpr D2D1_RECT_F two = {0, 0, 2, 2};
constexpr D2D1_MATRIX_3X2_F doubled = {2, 0, 0, 2, 0, 0};

const ID2D1SolidColorBrush ink; // black

/// The picture as text: '.' white, '#' black, R, G, B, Y; '+' for what is between.
std::vector<std::string> Text(const Picture& picture) {
    static const std::map<std::uint32_t, char> letters = {{white, '.'},       {black, '#'},       {0xFFFF0000U, 'R'},
                                                          {0xFF00FF00U, 'G'}, {0xFF0000FFU, 'B'}, {0xFFFFFF00U, 'Y'}};
    std::vector<std::string> rows(static_cast<std::size_t>(picture.height));
    for (std::size_t index = 0; index < picture.pixels.size(); ++index) {
        const auto found = letters.find(picture.pixels[index]);
        rows[index / static_cast<std::size_t>(picture.width)] += found != letters.end() ? found->second : '+';
    }
    return rows;
}

int CountInk(const Picture& picture, const RECT& area) {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) count += picture.At(x, y) != white ? 1 : 0;
    }
    return count;
}

/// A canvas and a bitmap of four pixels: red, green; blue, yellow.
class CanvasBitmap : public testing::Test {
protected:
    CanvasBitmap() {
        Picture colours(2, 2);
        colours.pixels = {0xFFFF0000U, 0xFF00FF00U, 0xFF0000FFU, 0xFFFFFF00U};
        bitmapPtr = stage.MakeBitmap(colours);
    }
    Picture Drawn(const D2D1_MATRIX_3X2_F& transform, D2D1_RECT_F destination, D2D1_RECT_F source,
                  D2D1_BITMAP_INTERPOLATION_MODE mode = nearest) {
        return stage.Frame([&](Canvas& canvas) {
            canvas.SetTransform(transform);
            canvas.DrawBitmap(*bitmapPtr, destination, 1, mode, source);
        });
    }

    CanvasStage stage{6, 5};
    std::unique_ptr<ID2D1Bitmap> bitmapPtr;
};

/// A canvas and texts in a font of the size asked for.
class CanvasText : public testing::Test {
protected:
    const Picture& Drawn(const std::wstring& text, float size, D2D1_RECT_F box, float scale = 1,
                         const wchar_t* family = L"Consolas") {
        const auto formatPtr = factoryPtr->CreateTextFormat(family, size);
        return stage.Frame([&](Canvas& canvas) {
            canvas.SetTransform({scale, 0, 0, scale, 0, 0});
            canvas.DrawText(text, *formatPtr, box, ink);
        });
    }

    CanvasStage stage{200, 100};
    std::unique_ptr<IDWriteFactory> factoryPtr = platform::CreateTextFactory();
};

} // namespace

TEST_F(CanvasBitmap, HasHardEdgesNearestAndSoftOnesLinear) {
    EXPECT_THAT(Text(Drawn(doubled, two, two)), ElementsAre("RRGG..", "RRGG..", "BBYY..", "BBYY..", "......"));
    const Picture soft = Drawn(doubled, two, two, linear);
    EXPECT_THAT(Text(soft), ElementsAre("R++G..", "++++..", "++++..", "B++Y..", "......"));
    EXPECT_EQ(soft.At(1, 0), 0xFFBF4000U) << "a quarter of the way from red to green";
}

TEST_F(CanvasBitmap, ShowsItsPartAndNothingBesideIt) {
    for (const auto mode : {nearest, linear}) {
        const Picture cell = Drawn({}, {0, 0, 6, 5}, {1, 0, 2, 1}, mode);
        EXPECT_THAT(Text(cell), Each(std::string("GGGGGG"))) << "not the neighbour cell";
        const Picture more = Drawn({}, {0, 0, 6, 5}, {-2, -2, 4, 3}, mode);
        EXPECT_THAT(Text(more), ElementsAre("......", "......", "..RG..", "..BY..", "......"));
    }
    for (const float scale : {1e4F, 1e9F, 1e30F}) {
        EXPECT_THAT(Text(Drawn({scale, 0, 0, scale, 0, 0}, two, two)), Each(std::string("RRRRRR")));
    }
}

TEST_F(CanvasBitmap, StaysInOrderWithShapes) {
    const Picture& frame = stage.Frame([&](Canvas& canvas) {
        canvas.DrawBitmap(*bitmapPtr, two, 1, nearest, two);
        canvas.FillRectangle({1, 0, 4, 2}, ink);
        canvas.DrawBitmap(*bitmapPtr, {2, 1, 4, 3}, 1, nearest, two);
    });
    EXPECT_THAT(Text(frame), ElementsAre("R###..", "B#RG..", "..BY..", "......", "......"));
}

TEST_F(CanvasBitmap, IsRefusedWithoutPixels) {
    EXPECT_EQ(stage.Canvas().CreateBitmap(nullptr), nullptr);
    EXPECT_EQ(stage.MakeBitmap(Picture()), nullptr);
    Picture torn(4, 4);
    torn.pixels.resize(7);
    EXPECT_EQ(stage.MakeBitmap(torn), nullptr);
    EXPECT_EQ(stage.MakeBitmap(Picture(7, 3))->GetPixelSize(), (POINT{7, 3}));
}

TEST_F(CanvasBitmap, NonsenseOfEveryKindDrawsNothingAndHugeShapesFill) {
    constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
    constexpr float endless = std::numeric_limits<float>::infinity();
    constexpr float huge = 3e38F;
    const auto formatPtr = platform::CreateTextFactory()->CreateTextFormat(L"Consolas", 12);
    const auto drawAll = [&](Canvas& canvas, float number) {
        canvas.DrawLine({number, 0}, {5, 5}, ink, 1);
        canvas.DrawLine({0, 0}, {5, 5}, ink, number);
        canvas.DrawRectangle({1, number, 5, 5}, ink, 1);
        canvas.FillRectangle({1, 1, number, 5}, ink);
        canvas.FillRoundedRectangle({{1, 1, 5, number}, 1, 1}, ink);
        canvas.FillEllipse({{5, 5}, number, 2}, ink);
        canvas.DrawText(L"text", *formatPtr, {number, 0, 20, 20}, ink);
        for (const auto mode : {nearest, linear}) {
            canvas.DrawBitmap(*bitmapPtr, {number, 0, 2, 2}, 1, mode, two);
            canvas.DrawBitmap(*bitmapPtr, {50, 50, 60, 60}, 1, mode, two);
            canvas.DrawBitmap(*bitmapPtr, two, 1, mode, {0, number, 2, 2});
            canvas.DrawBitmap(*bitmapPtr, two, 1, mode, {1, 1, 1, 2}); // no part of it
            canvas.DrawBitmap(*bitmapPtr, {2, 2, 0, 0}, 1, mode, two);
        }
    };
    const auto nothing = stage.Frame([&](Canvas& canvas) {
        drawAll(canvas, notANumber);
        for (const float bad : {endless, -endless, huge}) {
            canvas.DrawBitmap(*bitmapPtr, {bad, bad, bad, bad}, 1, nearest, two);
        }
        for (const float bad : {notANumber, -1.0F}) canvas.DrawBitmap(*bitmapPtr, two, bad, nearest, two);
        canvas.DrawText(L"text", *formatPtr, {5, 5, 5, 2}, ink);
        canvas.DrawLine({0, 0}, {5, 5}, ink, -1);
        for (const D2D1_MATRIX_3X2_F& bad : {D2D1_MATRIX_3X2_F{notANumber, 0, 0, 1, 0, 0},
                                             {endless, 0, 0, 1, 0, 0},
                                             {0, 0, 0, 1, 0, 0},
                                             {1, 1, 1, 1, 0, 0},
                                             {1, 0, 0, 1, 0, notANumber},
                                             {1, 0, 0, 1, huge, -huge}}) {
            canvas.SetTransform(bad);
            drawAll(canvas, 1.5F);
        }
    });
    EXPECT_THAT(Text(nothing), Each(std::string("......")));
    EXPECT_THAT(Text(stage.Frame([&](Canvas& canvas) {
                    for (const float number : {1e10F, huge, endless}) drawAll(canvas, number);
                    canvas.FillRectangle({-huge, -1e9F, huge, 1e9F}, ink);
                })),
                Each(std::string("######")));
}

TEST(CanvasShape, CoversThePixelsWhoseCentresItContains) {
    const Picture frame = CanvasStage(56, 6).Frame([](Canvas& canvas) {
        float left = 0;
        const auto next = [&](float scale = 1) {
            canvas.SetTransform({scale, 0, 0, scale, left, 0});
            left += 7;
        };
        next();
        canvas.FillRectangle({2, 1, 5, 4}, ink);
        next();
        canvas.DrawRectangle({0.5F, 1.5F, 5.5F, 4.5F}, ink, 1);
        next();
        canvas.FillEllipse({{3, 3}, 3, 3}, ink);
        next();
        canvas.FillRoundedRectangle({{0, 0, 6, 6}, 3, 3}, ink); // the same disc
        next();
        canvas.DrawRoundedRectangle({{0.5F, 0.5F, 5.5F, 4.5F}, 1.5F, 1.5F}, ink, 1);
        next();
        canvas.DrawEllipse({{3, 3}, 2.5F, 2.5F}, ink, 1);
        next(2); // as wide as the transform makes it
        canvas.DrawLine({0.5F, 1.5F}, {2.5F, 1.5F}, ink, 1);
        next();
        canvas.FillRectangle({0.5F, 0, 2.75F, 3}, ink);
        canvas.SetAntialiasMode(D2D1_ANTIALIAS_MODE_PER_PRIMITIVE);
        canvas.FillRectangle({0.5F, 3, 2.75F, 6}, ink);
    });
    EXPECT_THAT(Text(frame), ElementsAre("...............####...####...####...####.........###....",
                                         "..###..######.######.######.#....#.##..##........###....",
                                         "..###..#....#.######.######.#....#.#....#..####..###....",
                                         "..###..#....#.######.######.#....#.#....#..####..+#+....",
                                         ".......######.######.######..####..##..##........+#+....",
                                         "...............####...####..........####.........+#+...."));
}

TEST(CanvasShape, FillsGeometriesByTheEvenOddRuleAndLeavesHollowFiguresOut) {
    CanvasStage stage(20, 5);
    const auto pathPtr = platform::CreateGeometryFactory()->CreatePathGeometry();
    ID2D1GeometrySink* sinkPtr = nullptr;
    pathPtr->Open(&sinkPtr);
    const auto add = [&](D2D1_RECT_F rect, D2D1_FIGURE_BEGIN begin) {
        const D2D1_POINT_2F corners[] = {{rect.right, rect.top}, {rect.right, rect.bottom}, {rect.left, rect.bottom}};
        sinkPtr->BeginFigure({rect.left, rect.top}, begin);
        sinkPtr->AddLines(corners, 3);
        sinkPtr->EndFigure(D2D1_FIGURE_END_CLOSED);
    };
    add({0.5F, 0.5F, 6.5F, 4.5F}, D2D1_FIGURE_BEGIN_FILLED);
    add({2.5F, 1.5F, 5.5F, 3.5F}, D2D1_FIGURE_BEGIN_FILLED);
    add({3.5F, 2.5F, 8.5F, 3.5F}, D2D1_FIGURE_BEGIN_HOLLOW);
    sinkPtr->Close();
    const Picture frame = stage.Frame([&](Canvas& canvas) {
        canvas.FillGeometry(*pathPtr, ink);
        canvas.SetTransform({1, 0, 0, 1, 10, 0});
        canvas.DrawGeometry(*pathPtr, ink, 1);
    });
    EXPECT_THAT(Text(frame), ElementsAre("######....#######...", "##...#....#.#####...", "##...#....#.#######.",
                                         "######....#.#######.", "..........#######..."));
}

TEST(CanvasShape, BlendsTheBrushColour) {
    ID2D1SolidColorBrush brush;
    brush.SetColor({1, 0, 0, 128 / 255.0F});
    const Picture frame = CanvasStage(1, 1).Frame([&](Canvas& canvas) { canvas.FillRectangle({0, 0, 1, 1}, brush); });
    EXPECT_EQ(frame.At(0, 0), 0xFFFF7F7FU);
}

TEST_F(CanvasText, WrapsInsideItsBoxAndIsCutThere) {
    const std::wstring text = L"many words that wrap and wrap and never fit into it";
    const Picture narrow = Drawn(text, 20, {20, 10, 100, 60});
    const int inside = CountInk(narrow, {20, 10, 100, 60});
    EXPECT_GT(inside, 200);
    EXPECT_EQ(CountInk(narrow, {0, 0, 200, 100}), inside);
    EXPECT_GT(CountInk(narrow, {20, 36, 100, 60}), 50) << "a second line";
    EXPECT_EQ(CountInk(Drawn(text, 20, {20, 10, 9999, 60}), {0, 40, 200, 100}), 0) << "one line where there is room";
}

TEST_F(CanvasText, HasTheSizeOfItsFormatAndTransform) {
    const auto height = [&](float size, float scale) {
        int rows = 0;
        const Picture& frame = Drawn(L"H", size, {0, 0, 100, 100}, scale);
        for (int y = 0; y < 100; ++y) rows += CountInk(frame, {0, y, 200, y + 1}) > 0 ? 1 : 0;
        return rows;
    };
    EXPECT_NEAR(height(40, 1), 0.7 * 40, 5);
    EXPECT_NEAR(height(20, 2), height(40, 1), 1);
    EXPECT_EQ(factoryPtr->CreateTextFormat(L"Consolas", 0), nullptr);
    EXPECT_EQ(factoryPtr->CreateTextFormat(L"", 12), nullptr);
}

TEST_F(CanvasText, TakesTabsOddCharactersAndUnknownFamilies) {
    const std::wstring text = std::wstring(L"\ta\0b", 4) + static_cast<wchar_t>(0xD800);
    const Picture& frame = Drawn(text, 10, {0, 0, 200, 40}, 1, L"No Such Family");
    EXPECT_EQ(CountInk(frame, {0, 0, 40, 40}), 0) << "a tab stop is four font sizes wide";
    EXPECT_GT(CountInk(frame, {40, 0, 50, 40}), 5);
    EXPECT_GT(CountInk(frame, {50, 0, 200, 40}), 10) << "what follows the odd one";
}

TEST_F(CanvasBitmap, IsNotDrawnOutsideAPaintPassNorIsAnythingElse) {
    Canvas& canvas = stage.Canvas();
    EXPECT_LT(canvas.EndDraw(), 0);
    canvas.Clear({0, 0, 0, 1});
    canvas.FillRectangle({0, 0, 4, 4}, ink);
    canvas.DrawBitmap(*bitmapPtr, two, 1, nearest, two);
    canvas.BeginDraw();
    EXPECT_EQ(canvas.EndDraw(), S_OK);
    EXPECT_TRUE(LooksLike(stage->shown, Picture(6, 5)));
    EXPECT_EQ(stage->framesShown, 1);
}

TEST(CanvasFrame, HasASizeWaitsForTheBlankAndTellsThatTheWindowIsLost) {
    for (const D2D1_PRESENT_OPTIONS present : {D2D1_PRESENT_OPTIONS_NONE, D2D1_PRESENT_OPTIONS_IMMEDIATELY}) {
        CanvasStage stage(33, 7, present);
        EXPECT_EQ(stage.Canvas().GetSize().width, 33);
        EXPECT_EQ(stage.Canvas().GetSize().height, 7);
        stage.Frame([](Canvas&) {});
        EXPECT_EQ(stage->lastWaited, present == D2D1_PRESENT_OPTIONS_NONE);
        stage->canShow = false;
        stage.Canvas().BeginDraw();
        EXPECT_EQ(stage.Canvas().EndDraw(), D2DERR_RECREATE_TARGET);
    }
    EXPECT_EQ(platform::CreateCanvas(nullptr, 0, 7, D2D1_PRESENT_OPTIONS_NONE), nullptr);
    EXPECT_EQ(platform::CreateCanvas(nullptr, 7, -1, D2D1_PRESENT_OPTIONS_NONE), nullptr);
}
