#include "game/HUD.h"

#include "engine/AbstractGame.h"
#include "engine/GameEngine.h"
#include "platform/Picture.h"
#include "platform/ScriptedDesktop.h"
#include "tests/support/ImageCompare.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {
constexpr std::uint32_t black = 0xFF000000;
constexpr std::uint32_t peakColour = 0xFFD2691E;
constexpr std::uint32_t lastColour = 0xFFB22222;

/// Paints nothing but the HUD, on black.
class HudGame : public AbstractGame {
public:
    explicit HudGame(std::function<void()> paintAction) : paint(std::move(paintAction)) {}
    void GameInitialize(HINSTANCE) override {
        GameEngine::GetSingleton()->RunGameLoop(true);
        GameEngine::GetSingleton()->SetWidth(1024);
        GameEngine::GetSingleton()->SetHeight(896);
    }
    void GameStart() override { GameEngine::GetSingleton()->SetBitmapInterpolationModeNearestNeighbor(); }
    void GameEnd() override { Singleton<HUD>::Destroy(); }
    void GamePaint(RECT) override {
        GameEngine::GetSingleton()->FillWindowRect(0, 0, 0);
        paint();
    }

private:
    std::function<void()> paint;
};

class HudPicture : public testing::Test {
protected:
    HudPicture() {
        auto ownedPtr = std::make_unique<platform::ScriptedDesktop>();
        ownedPtr->onFrame = [this](int, const platform::FrameView& view) { frame = Copied(view); };
        desktopPtr = ownedPtr.get();
        platform::Desktop::Use(std::move(ownedPtr));
        font = *platform::LoadPicture("Resources/Images/Font.bmp");
    }
    ~HudPicture() override { platform::Desktop::Use(nullptr); }

    /// Runs one frame in which `paint` drives and paints the HUD, and keeps its picture.
    void Paint(const std::function<void(HUD& hud)>& paint) {
        desktopPtr->End(desktopPtr->Frame() + 1);
        GameEngine::GetSingleton()->SetGame(new HudGame([&paint] { paint(*HUD::GetSingleton()); }));
        GameEngine::GetSingleton()->Run(nullptr, 1);
    }

    /// The `count` characters in cells of 24 x 24 pixels from (x, y) on; '?' for what is none.
    std::string TextAt(int x, int y, int count) {
        std::string text;
        for (int index = 0; index < count; ++index) text += CharacterAt(x + 24 * index, y);
        return text;
    }

    platform::Picture frame;

private:
    char CharacterAt(int x, int y) {
        for (int code = 32; code < 128; ++code) {
            if (ShowsCell(x, y, (code - 32) % 16 * 8, (code - 32) / 16 * 8)) return static_cast<char>(code);
        }
        return '?';
    }

    bool ShowsCell(int x, int y, int cellLeft, int cellTop) {
        constexpr std::uint32_t transparent = 0xFF000001;
        for (int row = 0; row < 24; ++row) {
            for (int column = 0; column < 24; ++column) {
                const std::uint32_t colour = font.At(cellLeft + column / 3, cellTop + row / 3);
                if (frame.At(x + column, y + row) != (colour == transparent ? black : colour)) return false;
            }
        }
        return true;
    }

    platform::ScriptedDesktop* desktopPtr = nullptr;
    platform::Picture font;
};

void Tick(HUD& hud, int count, double deltaTime = 1.0 / 60.0) {
    for (int tick = 0; tick < count; ++tick) hud.Tick(deltaTime);
}

std::wstring Padded(int value, int width) { return HUD::ToPaddedString(value, width).C_str(); }
} // namespace

TEST(HudNumbers, ArePaddedWithZerosButNeverCut) {
    EXPECT_EQ(Padded(0, 6), L"000000");
    EXPECT_EQ(Padded(4200, 6), L"004200");
    EXPECT_EQ(Padded(1234567, 6), L"1234567");
    EXPECT_EQ(Padded(-5, 3), L"0-5");
    EXPECT_EQ(Padded(-1234, 3), L"-1234");
    EXPECT_EQ(Padded(7, 0), L"7");
}

TEST_F(HudPicture, ShowsScoreCoinsWorldAndTime) {
    Paint([](HUD& hud) {
        hud.AddScore(1000);
        for (int coin = 0; coin < 7; ++coin) hud.AddCoin();
        hud.Paint();
    });
    EXPECT_EQ(TextAt(50, 20, 5), "PELKO");
    EXPECT_EQ(TextAt(50, 46, 6), "002400");
    EXPECT_EQ(TextAt(320, 46, 4), "x 7 ");
    EXPECT_EQ(TextAt(590, 20, 5), "WORLD");
    EXPECT_EQ(TextAt(616, 46, 3), "1-1");
    EXPECT_EQ(TextAt(860, 20, 4), "TIME");
    EXPECT_EQ(TextAt(860, 46, 4), " 400");
}

TEST_F(HudPicture, GrowsWithLongNumbersAndGoesOnBelowZero) {
    Paint([](HUD& hud) {
        for (int coin = 0; coin < 100; ++coin) hud.AddCoin();
        hud.AddScore(1234567 - 20000);
        Tick(hud, 29);
        EXPECT_EQ(hud.GetTime(), 400);
        Tick(hud, 1);
        EXPECT_EQ(hud.GetTime(), 399);
        Tick(hud, 12000 - 30);
        EXPECT_EQ(hud.GetTime(), 0);
        Tick(hud, 29);
        EXPECT_EQ(hud.GetTime(), 0);
        Tick(hud, 1);
        hud.Paint();
    });
    EXPECT_EQ(TextAt(50, 46, 7), "1234567");
    EXPECT_EQ(TextAt(320, 46, 5), "x 100");
    EXPECT_EQ(TextAt(860, 46, 4), " 0-1");
}

TEST_F(HudPicture, TurnsTheCoinBeforeItsNumber) {
    platform::Picture strip = *platform::LoadPicture("Resources/Images/CoinIcon.bmp");
    const int frameWidth = strip.width / 6;
    ASSERT_EQ(frameWidth * 6, strip.width);
    for (const int ticks : {0, 9, 10, 25, 59, 60}) {
        SCOPED_TRACE(ticks);
        Paint([ticks](HUD& hud) {
            Tick(hud, ticks);
            hud.Paint();
        });
        const int cell = ticks / 10 % 6 * frameWidth;
        for (int row = 0; row < 3 * strip.height; ++row) {
            for (int column = 0; column < 3 * frameWidth; ++column) {
                constexpr std::uint32_t transparent = 0xFFFF00FF;
                const std::uint32_t colour = strip.At(cell + column / 3, row / 3);
                ASSERT_EQ(frame.At(320 - 3 * frameWidth + column, 46 + row), colour == transparent ? black : colour);
            }
        }
    }
}

// The whole width is a frame of 0.05 s, so one of 0.01 s is 204 pixels.
TEST_F(HudPicture, MeasuresFramesButNotTheFirstOnes) {
    Paint([](HUD& hud) {
        Tick(hud, 29, 0.04);
        hud.PaintDebug(true);
        Tick(hud, 1, 0.02);
        hud.PaintDebug(true);
        Tick(hud, 1, 0.01);
        GameEngine::GetSingleton()->FillWindowRect(0, 0, 0);
        hud.PaintDebug(true);
    });
    const int row = 9; // inside the bar, below the text
    EXPECT_EQ(frame.At(200, row), lastColour);
    EXPECT_EQ(frame.At(210, row), peakColour);
    EXPECT_EQ(frame.At(405, row), peakColour);
    EXPECT_EQ(frame.At(415, row), black);

    Paint([](HUD& hud) { hud.PaintDebug(false); });
    EXPECT_EQ(frame.At(5, 5), black);
}
