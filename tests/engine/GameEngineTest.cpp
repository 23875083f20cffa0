#include "engine/GameEngine.h"
#include "tests/support/Stage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using platform::Desktop;
using platform::ScriptedDesktop;
using testing::ElementsAre;

/// Writes down what the engine calls, and does what a test asks in GameTick and GamePaint.
class DiaryGame : public AbstractGame {
public:
    struct Log {
        std::vector<std::string> calls;
        std::vector<double> steps;
        std::function<void(int tick)> onTick = [](int) {};
        std::function<void()> onPaint = [] {};
        std::function<void()> onEnd = [] {}; // in GameEnd and in the destructor
        bool runsLoop = true;
        String keys = String(L"EQ");
    };
    explicit DiaryGame(Log& sharedLog) : log(sharedLog) {}
    ~DiaryGame() override {
        log.calls.emplace_back("delete");
        log.onEnd();
    }

    void GameInitialize(HINSTANCE instance) override {
        AbstractGame::GameInitialize(instance);
        GameEngine::GetSingleton()->RunGameLoop(log.runsLoop);
        GameEngine::GetSingleton()->SetKeyList(log.keys);
        log.calls.emplace_back("initialize");
    }
    void GameStart() override { log.calls.emplace_back("start"); }
    void GameEnd() override {
        log.calls.emplace_back("end");
        log.onEnd();
    }
    void CheckKeyboard() override { log.calls.emplace_back("check"); }
    void GameTick(double deltaTime) override {
        log.calls.emplace_back("tick");
        log.steps.push_back(deltaTime);
        log.onTick(static_cast<int>(log.steps.size()) - 1);
    }
    void GamePaint(RECT rect) override {
        log.calls.emplace_back(rect == RECT{0, 0, 640, 480} ? "paint" : "paint elsewhere");
        log.onPaint();
    }
    void KeyPressed(TCHAR key) override { log.calls.push_back(std::string("key ") + static_cast<char>(key)); }
    void MouseMove(int x, int y, WPARAM) override { log.calls.push_back("move " + At(x, y)); }
    void MouseButtonAction(bool isLeft, bool isDown, int x, int y, WPARAM) override {
        log.calls.push_back(std::string(isLeft ? "left " : "right ") + (isDown ? "down " : "up ") + At(x, y));
    }

private:
    static std::string At(int x, int y) { return std::to_string(x) + "," + std::to_string(y); }
    Log& log;
};

class EngineLoop : public testing::Test {
protected:
    void SetUp() override {
        auto desktopPtr = std::make_unique<ScriptedDesktop>(1.0 / 60.0);
        desktop = desktopPtr.get();
        Desktop::Use(std::move(desktopPtr));
    }
    void TearDown() override { Desktop::Use(nullptr); }

    int Run(int frames) {
        desktop->End(frames);
        auto* const gamePtr = new DiaryGame(log);
        GameEngine::GetSingleton()->SetGame(gamePtr);
        GameEngine::GetSingleton()->SetGame(gamePtr); // again changes nothing
        return GameEngine::GetSingleton()->Run(nullptr, 1);
    }
    /// The calls without the four of every frame.
    std::vector<std::string> Events() const {
        std::vector<std::string> events;
        for (const std::string& call : log.calls) {
            if (call != "check" && call != "tick" && call != "paint") events.push_back(call);
        }
        return events;
    }
    /// How many ticks came before the first `call`, -1 if it never came.
    int TicksBefore(const std::string& wanted) const {
        int ticks = 0;
        for (const std::string& call : log.calls) {
            if (call == wanted) return ticks;
            if (call == "tick") ++ticks;
        }
        return -1;
    }

    ScriptedDesktop* desktop = nullptr;
    DiaryGame::Log log;
};

TEST_F(EngineLoop, CallsTheGameInOrderAndDestroysItLast) {
    EXPECT_EQ(Run(2), 0);
    EXPECT_THAT(log.calls, ElementsAre("initialize", "start", "check", "tick", "paint", "check", "tick", "paint", "end",
                                       "delete"));
    EXPECT_THAT(log.steps, ElementsAre(0.0, 1.0 / 60.0));
}

TEST_F(EngineLoop, ClampsAStepAndLeavesOutTheTimeAsleep) {
    const double frame = 0.04;
    auto desktopPtr = std::make_unique<ScriptedDesktop>(frame);
    desktop = desktopPtr.get();
    Desktop::Use(std::move(desktopPtr));
    desktop->At(2, [this] { desktop->PostMessage(desktop->MainWindow(), WM_ENTERSIZEMOVE, 0, 0); });
    desktop->At(90, [this] { desktop->PostMessage(desktop->MainWindow(), WM_EXITSIZEMOVE, 0, 0); });
    desktop->At(92, [this] { desktop->PostMessage(desktop->MainWindow(), WM_ACTIVATE, WA_INACTIVE, 0); });
    desktop->At(95, [this] { desktop->PostMessage(desktop->MainWindow(), WM_ACTIVATE, WA_ACTIVE, 0); });
    Run(97);
    ASSERT_EQ(log.steps.size(), 6U); // frames 0, 1, 90, 91, 95, 96
    for (std::size_t i = 1; i < log.steps.size(); ++i) EXPECT_DOUBLE_EQ(log.steps[i], frame);

    log = {};
    auto slowPtr = std::make_unique<ScriptedDesktop>(0.2);
    desktop = slowPtr.get();
    Desktop::Use(std::move(slowPtr));
    Run(3);
    EXPECT_THAT(log.steps, ElementsAre(0.0, 0.05, 0.05));
}

TEST_F(EngineLoop, ReportsEachReleaseOnceBeforeTheFrameThatFollowsIt) {
    log.keys = L"ea"; // small letters mean their keys
    log.keys += L"E"; // listed twice: two calls
    desktop->Press(3, 'E');
    desktop->Press(4, 'A');
    desktop->Release(9, 'A');
    desktop->Release(9, 'E');
    desktop->Press(12, 'X'); // not watched
    desktop->Release(13, 'X');
    desktop->Press(14, 'A'); // never released
    Run(20);
    EXPECT_THAT(Events(), ElementsAre("initialize", "start", "key E", "key A", "key E", "end", "delete"));
    EXPECT_EQ(TicksBefore("key E"), 9);
}

TEST_F(EngineLoop, HearsKeysThatAThreadPolls) {
    auto desktopPtr = std::make_unique<Stage::Desktop>();
    desktopPtr->hasThreads = true;
    desktop = desktopPtr.get();
    Desktop::Use(std::move(desktopPtr));
    log.onTick = [this](int tick) {
        desktop->SetKey('E', tick / 100 % 2 == 0); // a release is sooner or later found between two polls
        if (Events().size() > 2) GameEngine::GetSingleton()->QuitGame();
    };
    Run(1'000'000);
    EXPECT_EQ(Events()[2], "key E");
}

TEST_F(EngineLoop, WatchesOnlyTheFirst32Keys) {
    String keys(L"");
    for (int i = 0; i < 32; ++i) keys += L'A';
    log.keys = keys + L'B';
    desktop->Press(0, 'B');
    desktop->Press(0, 'A');
    desktop->Release(1, 'B');
    desktop->Release(1, 'A');
    Run(3);
    EXPECT_EQ(std::count(log.calls.begin(), log.calls.end(), "key A"), 32);
    EXPECT_EQ(TicksBefore("key B"), -1);
}

TEST_F(EngineLoop, QuitsBeforeAnotherFrameRuns) {
    log.onTick = [](int tick) {
        if (tick == 4) GameEngine::GetSingleton()->QuitGame();
    };
    EXPECT_EQ(Run(100), 0);
    EXPECT_EQ(log.steps.size(), 5U);
    EXPECT_EQ(log.calls.back(), "delete");
}

TEST_F(EngineLoop, EndsInOrderWhenTheWindowIsClosed) {
    desktop->At(3, [this] { desktop->PostMessage(desktop->MainWindow(), WM_CLOSE, 0, 0); });
    log.onEnd = [] {
        EXPECT_EQ(GameEngine::GetSingleton()->GetWindow(), nullptr);
        EXPECT_EQ(GameEngine::GetSingleton()->GetWindowPosition(), POINT{});
    };
    EXPECT_EQ(Run(100), 0);
    EXPECT_EQ(log.steps.size(), 3U);
    EXPECT_THAT(Events(), ElementsAre("initialize", "start", "end", "delete"));
}

TEST_F(EngineLoop, PaintsOnlyWhenAskedWithoutALoop) {
    log.runsLoop = false;
    desktop->At(5, [this] { desktop->InvalidateWindow(desktop->MainWindow()); });
    desktop->Press(6, 'Q');
    desktop->Release(7, 'Q');
    Run(10);
    EXPECT_THAT(log.calls, ElementsAre("initialize", "start", "paint", "paint", "key Q", "end", "delete"));
}

TEST_F(EngineLoop, ForwardsTheMouseInClientPixels) {
    const auto post = [this](UINT message, int x, int y) {
        desktop->PostMessage(desktop->MainWindow(), message, 0, x | y << 16);
    };
    desktop->At(1, [&] {
        post(WM_MOUSEMOVE, 10, 20);
        post(WM_LBUTTONDOWN, 11, 21);
        post(WM_LBUTTONUP, 12, 22);
        post(WM_RBUTTONDOWN, 40000, 3); // taken as unsigned
        post(WM_RBUTTONUP, 1, 65535);
    });
    log.onTick = [](int tick) {
        const POINT position = GameEngine::GetSingleton()->GetMousePosition();
        EXPECT_EQ(position, (tick < 1 ? POINT{} : POINT{10, 20}));
    };
    Run(2);
    EXPECT_THAT(Events(), ElementsAre("initialize", "start", "move 10,20", "left down 11,21", "left up 12,22",
                                      "right down 40000,3", "right up 1,65535", "end", "delete"));
}

TEST_F(EngineLoop, RefusesToDrawOutsideThePaintPass) {
    bool drawnInTick = true;
    bool drawnInPaint = false;
    log.onTick = [&](int) { drawnInTick = GameEngine::GetSingleton()->FillRect(0, 0, 10, 10); };
    log.onPaint = [&] { drawnInPaint = GameEngine::GetSingleton()->FillRect(0, 0, 10, 10); };
    Run(1);
    EXPECT_FALSE(drawnInTick);
    EXPECT_TRUE(drawnInPaint);
    ASSERT_EQ(desktop->boxes.size(), 1U);
    EXPECT_EQ(desktop->boxes[0].text, L"Painting from outside the GamePaint()...\n\nYOU SHALL NOT PASS!!!");
}

TEST_F(EngineLoop, KeepsTheWorldMatrixButBeginsEveryPassWithTheIdentity) {
    std::vector<std::uint32_t> corners;
    desktop->onFrame = [&](int, const platform::FrameView& view) { corners.push_back(view.pixels[0] & 0xFFFFFF); };
    bool first = true;
    log.onPaint = [&] {
        GameEngine& engine = *GameEngine::GetSingleton();
        engine.SetColor({255, 0, 0, 255});
        if (!first) {
            EXPECT_EQ(engine.GetWorldMatrix(), MATRIX3X2::CreateTranslationMatrix(100.0, 100.0));
            engine.FillRect(0, 0, 10, 10); // at the corner: the canvas has forgotten the translation
        }
        engine.SetWorldMatrix(MATRIX3X2::CreateTranslationMatrix(100.0, 100.0));
        if (first) engine.FillRect(0, 0, 10, 10);
        first = false;
    };
    Run(2);
    EXPECT_THAT(corners, ElementsAre(0xFFFFFFU, 0xFF0000U));
}

TEST_F(EngineLoop, GivesBackEveryColourItWasGiven) {
    log.onPaint = [] {
        GameEngine& engine = *GameEngine::GetSingleton();
        for (int value = 0; value < 256; ++value) {
            const auto channel = static_cast<unsigned char>(value);
            engine.SetColor({channel, 0, 255, channel});
            EXPECT_EQ(engine.GetColor(), COLOR(channel, 0, 255, channel));
        }
    };
    Run(1);
}

TEST_F(EngineLoop, DrawsPolygonsOfTwoPointsAndMore) {
    log.onPaint = [] {
        GameEngine& engine = *GameEngine::GetSingleton();
        POINT points[] = {{10, 10}, {20, 10}, {20, 20}};
        DOUBLE2 exactPoints[] = {{10, 10}, {20, 10}, {20, 20}};
        EXPECT_FALSE(engine.DrawPolygon(points, 1, true));
        EXPECT_FALSE(engine.FillPolygon(exactPoints, 1));
        EXPECT_TRUE(engine.DrawPolygon(exactPoints, 2, false, 2.0));
        EXPECT_TRUE(engine.FillPolygon(points, 3));
    };
    Run(1);
}

TEST_F(EngineLoop, NamesAnUntitledBoxNoTitle) {
    GameEngine& engine = *GameEngine::GetSingleton();
    engine.MessageBox(42);
    EXPECT_EQ(engine.GetTitle(), String(L"No Title"));
    engine.SetTitle(L"Chess");
    engine.MessageBox(1.5);
    ASSERT_EQ(desktop->boxes.size(), 2U);
    EXPECT_EQ(desktop->boxes[0].text, L"42");
    EXPECT_EQ(desktop->boxes[0].caption, L"No Title");
    EXPECT_EQ(desktop->boxes[1].text, L"1.5");
    EXPECT_EQ(desktop->boxes[1].caption, L"Chess");
    Run(0); // ends the engine
}

TEST_F(EngineLoop, GoesFullscreenAtTheCornerAndBackToWhereTheWindowWas) {
    log.onTick = [](int tick) {
        GameEngine& engine = *GameEngine::GetSingleton();
        if (tick > 0) return;
        EXPECT_FALSE(engine.GoWindowedMode());
        engine.SetWindowPosition(30, 40);
        EXPECT_TRUE(engine.GoFullscreen());
        EXPECT_FALSE(engine.GoFullscreen());
        EXPECT_TRUE(engine.IsFullscreen());
        EXPECT_EQ(engine.GetWindow()->bounds, (RECT{0, 0, 640, 480}));
        EXPECT_EQ(engine.GetWindow()->style, 0x82080000U);
        EXPECT_TRUE(engine.GoWindowedMode());
        EXPECT_FALSE(engine.IsFullscreen());
        EXPECT_EQ(engine.GetWindow()->bounds, (RECT{30, 40, 670, 520}));
        EXPECT_EQ(engine.GetWindow()->style, 0x82C80000U);
    };
    Run(1);
}

TEST_F(EngineLoop, PrintsEachByteOfNarrowTextAsOneCharacter) {
    GameEngine& engine = *GameEngine::GetSingleton();
    testing::internal::CaptureStdout();
    engine.OpenConsole();
    engine.ConsolePrintString(std::string("caf\xE9"));
    engine.ConsolePrintString(std::string("\xFF"), 4, 0);
    EXPECT_THAT(testing::internal::GetCapturedStdout(), testing::EndsWith("caf\u00E9\n\x1b[1;5H\u00FF\n"));
    Run(0); // ends the engine
}

} // namespace
