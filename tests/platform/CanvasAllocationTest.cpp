#include "tests/support/Stage.h"
#include "tools/demo_player/AllocationCount.h"

// Also texts: a player's are the same from frame to frame, and need not be laid out again.
TEST(CanvasAllocation, ARunningFrameNeedsNone) {
    CanvasStage stage(640, 480);
    stage->keepsFrames = false;
    platform::Picture stripes(128, 16); // transparent, opaque and translucent in turns
    for (std::size_t index = 0; index < stripes.pixels.size(); ++index) {
        constexpr std::uint32_t kinds[] = {0x00000000U, 0xFF204060U, 0x80402010U};
        stripes.pixels[index] = kinds[index / 3 % 3];
    }
    const auto sheetPtr = stage.MakeBitmap(stripes);
    const auto groundPtr = stage.MakeBitmap(platform::Picture(500, 300, 0xFF808080U));
    const auto formatPtr = platform::CreateTextFactory()->CreateTextFormat(L"Consolas", 12);
    const ID2D1SolidColorBrush brush;
    constexpr auto nearest = D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR;
    long before = 0;
    for (int frame = 0; frame < 60; ++frame) {
        if (frame == 3) before = AllocationCount();
        stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            // a camera that moves, also to where edges meet pixel centres and to scales that are not whole
            canvas.SetTransform({4, 0, 0, 4, static_cast<float>(frame) * -0.5F, 0});
            canvas.DrawBitmap(*groundPtr, {0, 0, 500, 300}, 1, nearest, {0, 0, 500, 300});
            for (int index = 0; index < 100; ++index) {
                const float scale = index % 3 == 0 ? -4.0F : index % 3 == 1 ? 4.0F : 2.3F;
                const float turn = index % 10 == 0 ? 0.3F : 0.0F;
                const auto place = static_cast<float>(index);
                canvas.SetTransform({scale, turn, turn, 4, place * 6, place * 4});
                canvas.DrawBitmap(*sheetPtr, {0, 0, 16, 16}, index % 4 == 0 ? 0.5F : 1, nearest, {16, 0, 32, 16});
            }
            for (const wchar_t* text : {L"score 100", L"time 400"}) {
                canvas.DrawText(text, *formatPtr, {0, 0, 200, 100}, brush);
            }
        });
    }
    EXPECT_EQ(AllocationCount(), before);
}
