#include "game/Quillfen.h"

#include "engine/GameEngine.h"
#include "game/HUD.h"
#include "game/Level.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {
constexpr double tolerance = 1e-9;

Scene WideScene() {
    Scene scene = PlainScene();
    scene.outline = Floor(1000);
    scene.levelWidth = 1000;
    return scene;
}

/// Puts the hero there and lets one tick pass; returns the camera.
DOUBLE2 CameraWithHeroAt(Playground& play, double x, double y = 184.0) {
    play.Hero().SetPosition(x, y);
    return play.Run(1).Camera();
}
} // namespace

// The loop

TEST(Quillfen, EndsBeforeTheFrameAfterEscapeIsLetGo) {
    const SceneFolder folder(PlainScene());
    std::ostringstream output;
    std::streambuf* const formerOutputPtr = std::cout.rdbuf(output.rdbuf());
    auto desktopPtr = std::make_unique<platform::ScriptedDesktop>();
    int frames = 0;
    POINT size;
    desktopPtr->onFrame = [&](int, platform::FrameView const& view) {
        ++frames;
        size = {view.width, view.height};
    };
    desktopPtr->Press(3, VK_ESCAPE);
    desktopPtr->Release(10, VK_ESCAPE);
    desktopPtr->End(100);
    platform::Desktop::Use(std::move(desktopPtr));
    GameEngine::GetSingleton()->SetGame(Quillfen::GetSingleton());
    EXPECT_EQ(GameEngine::GetSingleton()->Run(nullptr, 1), 0);
    platform::Desktop::Use(nullptr);
    std::cout.rdbuf(formerOutputPtr);
    EXPECT_EQ(frames, 10);
    EXPECT_EQ(size, (POINT{1024, 896}));
    EXPECT_TRUE(output.str().starts_with("Position Pelko: 50, 184\r")) << output.str().substr(0, 60);
    EXPECT_EQ(std::ranges::count(output.str(), '\r'), 10);
}

TEST(Quillfen, StandsStillWhilePaused) {
    Playground play;
    play.Hold(VK_RIGHT).Run(30).TakeSounds();
    const DOUBLE2 place = play.Hero().GetPosition();
    const std::string output = play.Output();
    play.Tap('P').Run(100).Paint();
    EXPECT_EQ(play.Hero().GetPosition(), place);
    EXPECT_EQ(HUD::GetSingleton()->GetTime(), 399);
    EXPECT_EQ(play.Output(), output);
    EXPECT_TRUE(play.PaintedHero().isShown);
    EXPECT_THAT(play.TakeSounds(), IsEmpty()) << "sounds wait for the end of the pause";
    play.Tap('P').Run(2);
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Test"));
    EXPECT_GT(play.Hero().GetPosition().x, place.x);
}

// The camera

TEST(QuillfenCamera, FollowsToTheRightOnly) {
    Playground play(WideScene());
    EXPECT_EQ(CameraWithHeroAt(play, 88.0), DOUBLE2(0, 0));
    EXPECT_NEAR(CameraWithHeroAt(play, 120.5).x, 32.5, tolerance);
    EXPECT_NEAR(CameraWithHeroAt(play, 100.0).x, 32.5, tolerance);
    EXPECT_NEAR(CameraWithHeroAt(play, 35.0).x, 32.5, tolerance);
    EXPECT_NEAR(play.Hero().GetPosition().x, 40.5, tolerance) << "kept in view";
    play.Hold(VK_LEFT).Run(60);
    EXPECT_NEAR(play.Hero().GetPosition().x, 40.5, tolerance);
    EXPECT_NEAR(CameraWithHeroAt(play, 990.0).x, 1000.0 - 256.0, tolerance) << "the level's right end";
}

TEST(QuillfenCamera, ShowsTheUndergroundRoom) {
    struct {
        double x;
        double y;
        bool underground;
    } const cases[] = {{100, 240, true}, {254, 300, true}, {256, 300, false}, {100, 215, false}};
    for (const auto& [x, y, underground] : cases) {
        SCOPED_TRACE(testing::Message() << x << ' ' << y);
        Scene scene = PlainScene();
        scene.outline = "";
        Playground play(scene);
        EXPECT_EQ(CameraWithHeroAt(play, x, y).y, underground ? 224.0 : 0.0);
        play.Hero().SetAlive(false);
        play.Run(1);
        EXPECT_EQ(play.Camera().y, 0.0) << "the dead are not followed there";
    }
}

TEST(QuillfenCamera, JudgesByWhereTheHeroWasBeforeItHeldHimInView) {
    Playground play(WideScene());
    CameraWithHeroAt(play, 500.0);
    EXPECT_EQ(CameraWithHeroAt(play, 100.0, 300.0), DOUBLE2(0.0, 224.0));
    EXPECT_NEAR(play.Hero().GetPosition().x, 412.0 + 8.0, tolerance);
}

TEST(QuillfenCamera, IsSteeredByKeysInFreeMode) {
    Playground play(WideScene());
    play.Tap('Q').Hold('D').Hold('S').Run(20);
    EXPECT_NEAR(play.Camera().x, 100.0, tolerance);
    EXPECT_NEAR(play.Camera().y, 100.0, tolerance);
    play.Run(30);
    EXPECT_EQ(play.Camera().y, 224.0);
    play.Run(200);
    EXPECT_EQ(play.Camera().x, 1000.0 - 256.0);
    play.LetGo('D').LetGo('S').Hold('A').Hold('W').Run(10);
    EXPECT_NEAR(play.Camera().x, 744.0 - 50.0, tolerance);
    EXPECT_NEAR(play.Camera().y, 224.0 - 50.0, tolerance);
    play.Run(200);
    EXPECT_EQ(play.Camera(), DOUBLE2(0, 0));
    EXPECT_EQ(play.Hero().GetPosition().x, 50.0);

    play.LetGo('A').LetGo('W').Hold('D').Run(10).LetGo('D').Tap('Q').Run(1);
    EXPECT_NEAR(play.Camera().x, 50.0, tolerance) << "it follows again from where it is";
    EXPECT_NEAR(play.Hero().GetPosition().x, 58.0, tolerance);
    EXPECT_THAT(play.DebugLines(), testing::IsSupersetOf({L"Free camera mode: 1\n", L"Free camera mode: 0\n"}));
}

TEST(QuillfenCamera, ZoomsAndTurnsAboutTheViewsCorner) {
    Playground play;
    play.Run(1).Tap('Q').Hold(VK_NUMPAD0 + 8).Run(15).LetGo(VK_NUMPAD0 + 8).Paint();
    // From a quarter to half a level pixel per window pixel; the helpers count four window pixels to one of the level.
    const RECT2 small = play.BoundsOf(0xFFC10002);
    EXPECT_TRUE(small == RECT2((50 - 8) / 2.0, 184 / 2.0, 50 / 2.0, 200 / 2.0));
    play.Hold(VK_NUMPAD0 + 6)
        .Run(30)
        .LetGo(VK_NUMPAD0 + 6)
        .Paint(); // by half a pi: all of the level is off to the side
    EXPECT_FALSE(HasBox(play.BoundsOf(0xFFC10002)));
    play.Hold(VK_NUMPAD0 + 5).Run(1).LetGo(VK_NUMPAD0 + 5).Paint();
    EXPECT_TRUE(play.BoundsOf(0xFFC10002) == RECT2(42, 184, 50, 200));
}

// Keys

TEST(QuillfenKeys, TakeTheHeroThroughTheLevel) {
    Scene scene = PlainScene();
    scene.levelWidth = 2700;
    Playground play(scene);
    play.Tap(VK_END);
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(50, 300));
    EXPECT_EQ(play.Camera(), DOUBLE2(0, 224));
    play.Tap(VK_DELETE);
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(2623, 136));
    play.Run(1).Hero().SetAlive(false);
    play.Run(10).Tap(VK_HOME);
    EXPECT_TRUE(play.Hero().IsAlive());
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(50, 150));
    EXPECT_EQ(play.Camera(), DOUBLE2(0, 0));
    play.Run(60);
    EXPECT_NEAR(play.Hero().GetPosition().y, 184.0, tolerance);
}

TEST(QuillfenKeys, StarSwitchKeepsTheStarOn) {
    Playground play;
    play.Tap(VK_TAB).Run(400);
    EXPECT_TRUE(play.Hero().IsStarActive());
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Overworld", "Starrush"));
    play.Tap(VK_TAB).Run(300);
    EXPECT_FALSE(play.Hero().IsStarActive());
}

TEST(QuillfenKeys, DebugModeDrawsOverTheLevel) {
    Playground play;
    play.Run(1).Paint();
    const std::uint32_t plain = play.ColourAt({200, 210});
    EXPECT_EQ(plain, SceneFolder::sky);
    play.Tap('E').Paint();
    EXPECT_NE(play.ColourAt({200, 210}), plain) << "the solid outline in red";
    EXPECT_EQ(play.DebugLines()[play.DebugLines().size() - 2], L"Debug mode: 1\n");
    play.Tap('E').Paint();
    EXPECT_EQ(play.ColourAt({200, 210}), plain);
}
