#include "game/Level.h"

#include "engine/HitRegion.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {
Scene WholeLength() {
    Scene scene = PlainScene();
    scene.levelWidth = 3392;
    scene.outline = Floor(3392);
    scene.heroFile = HeroAt(3150, 184);
    return scene;
}

double FlagTop(Playground& play) { return play.Paint().BoundsOf(SceneFolder::flag).top; }
} // namespace

TEST(Level, PlacesItsTriggersByThePictures) {
    const Playground play;
    const Level& level = *Level::GetSingleton();
    EXPECT_TRUE(level.GetPipeEntryRectVertical() == RECT2(917, 135, 943, 136));
    EXPECT_TRUE(level.GetPipeEntryRectHorizontal() == RECT2(199, 423, 208, 424));
    EXPECT_TRUE(level.GetFlagpoleRect() == RECT2(3175, 40, 3177, 184));
    EXPECT_EQ(level.GetWidth(), 600);
    EXPECT_EQ(level.GetHeight(), 448);
}

TEST(Level, LowersTheFlagAndSendsTheHeroHome) {
    Playground play(WholeLength());
    play.Run(1).TakeSounds();
    EXPECT_EQ(FlagTop(play), 41.0);
    Level::GetSingleton()->SetFlagReached();
    EXPECT_EQ(FlagTop(play.Run(30)), 41.0 + 30 * 2.0);
    Level::GetSingleton()->SetFlagReached(); // touched again
    EXPECT_EQ(FlagTop(play.Run(31)), 163.0) << "one step too far";
    EXPECT_FALSE(Level::GetSingleton()->IsFlagDown());
    EXPECT_EQ(FlagTop(play.Run(1)), 162.0);
    EXPECT_TRUE(Level::GetSingleton()->IsFlagDown());
    EXPECT_THAT(play.TakeSounds(), ElementsAre("CastleComplete"));

    const DOUBLE2 start = play.Hero().GetPosition();
    play.Hold(VK_LEFT).Run(60); // the keys no longer matter
    EXPECT_NEAR(play.Hero().GetPosition().x, start.x + 25.0, 1e-9);
    EXPECT_EQ(FlagTop(play), 162.0);
    EXPECT_THAT(play.TakeSounds(), IsEmpty()) << "the music is asked for on every tick, and starts once";
}

TEST(Level, HidesTheHeroBehindCastleAndPipes) {
    Scene scene = WholeLength();
    scene.heroFile = HeroAt(930, 150);
    Playground play(scene);
    EXPECT_EQ(play.Run(1).Paint().ColourAt({930, 155}), SceneFolder::pipe);
    play.Hero().SetPosition(3300, 100);
    EXPECT_EQ(play.Run(1).Paint().ColourAt({3300, 105}), SceneFolder::castle);
    play.Hero().SetPosition(3250, 100);
    EXPECT_EQ(play.Run(1).Paint().PaintedHero().isShown, true) << "but not before them";
}

TEST(Level, GoesOnWithoutAnOutline) {
    for (const char* const outline : {"", "M 0 200 H 600 V", "M x y", "L 10 10"}) {
        SCOPED_TRACE(outline);
        Scene scene = PlainScene();
        scene.outline = outline;
        Playground play(scene);
        play.Run(200);
        EXPECT_TRUE(play.Hero().IsAlive()) << "he falls, and starts again";
    }
}
