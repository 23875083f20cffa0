#include "game/player/Pelko.h"

#include "game/HUD.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

namespace {
constexpr double tolerance = 1e-9;

Scene SceneWith(std::string const& outline, int heroX, int heroY = 184) {
    Scene scene = PlainScene();
    scene.outline = outline;
    scene.heroFile = HeroAt(heroX, heroY);
    return scene;
}

/// How fast the hero moves sideways in the next tick, in level pixels per second.
double SpeedInNextTick(Playground& play) {
    const double before = play.Hero().GetPosition().x;
    play.Run(1);
    return (play.Hero().GetPosition().x - before) * 60.0;
}

std::vector<double> SpeedsInNextTicks(Playground& play, int count) {
    std::vector<double> speeds;
    for (int tick = 0; tick < count; ++tick) speeds.push_back(SpeedInNextTick(play));
    return speeds;
}

int Key(int direction) { return direction < 0 ? VK_LEFT : VK_RIGHT; }
} // namespace

// Walking

TEST(HeroWalk, SpeedsUpToAHundredPixelsASecondEitherWay) {
    for (const int direction : {-1, +1}) {
        SCOPED_TRACE(direction);
        Playground play(SceneWith(Floor(), 200));
        play.Hold(Key(direction)).Run(1 + 30); // the first tick only notices the key; then 2 px/s more on each
        EXPECT_NEAR(play.Hero().GetPosition().x, 200 + direction * 30 * 31 / 60.0, tolerance);
        play.Run(19);
        EXPECT_NEAR(SpeedInNextTick(play), direction * 100.0, tolerance);
        EXPECT_NEAR(SpeedInNextTick(play), direction * 100.0, tolerance);
        EXPECT_NEAR(play.Hero().GetPosition().y, 184.0, tolerance);
    }
}

TEST(HeroWalk, BrakesBeforeItTurns) {
    for (const int direction : {-1, +1}) {
        SCOPED_TRACE(direction);
        Playground play(SceneWith(Floor(), 200));
        play.Hold(Key(direction)).Run(1 + 10).LetGo(Key(direction)).Hold(Key(-direction));
        std::vector<double> speeds =
            SpeedsInNextTicks(play, 4); // from 20: 400 / 60 and 120 / 60 less, then only 2 less
        for (double& speed : speeds) speed *= direction;
        EXPECT_THAT(speeds, Pointwise(DoubleNear(tolerance), {34 / 3.0, 8 / 3.0, -6.0, -8.0}));
    }
}

TEST(HeroWalk, SlidesToAStopWithoutAKey) {
    Playground play;
    play.Hold(VK_RIGHT).Run(1 + 11).LetGo(VK_RIGHT);
    // One tick to notice, then 400 / 60 less on each until less than 5 is left.
    EXPECT_THAT(SpeedsInNextTicks(play, 6),
                Pointwise(DoubleNear(tolerance), {22.0, 46 / 3.0, 26 / 3.0, 2.0, 0.0, 0.0}));
}

TEST(HeroWalk, RightWinsOnTheGroundAndLeftInTheAir) {
    Playground play;
    play.Hold(VK_LEFT).Hold(VK_RIGHT).Run(1);
    EXPECT_NEAR(SpeedInNextTick(play), +2.0, tolerance);
    play.Hold(VK_UP).Run(1); // jumps; the keys count again from the next tick on
    EXPECT_NEAR(SpeedInNextTick(play), 2.0 - 400 / 60.0 - 2.0, tolerance);
}

// Jumping

TEST(HeroJump, RisesAsHighForATapAsForAHold) {
    for (const int heldTicks : {1, 40}) {
        SCOPED_TRACE(heldTicks);
        Playground play;
        double highest = 1000.0;
        play.Hold(VK_UP);
        for (int tick = 1; tick <= 50; ++tick) {
            play.Run(1);
            if (tick == heldTicks) play.LetGo(VK_UP);
            highest = std::min(highest, play.Hero().GetPosition().y);
        }
        // 335 px/s, less 800 / 60 on every tick: up for 25 ticks, down again after 50
        EXPECT_NEAR(highest, 184.0 - (25 * 335 - 800 / 60.0 * 25 * 26 / 2) / 60.0, tolerance);
        EXPECT_NEAR(play.Hero().GetPosition().y, 184.0, tolerance);
        EXPECT_THAT(play.TakeSounds(), ElementsAre("Overworld", "Jump"));
    }
}

TEST(HeroJump, StartsAgainOnlyAfterTheTickThatNoticedTheLanding) {
    Playground play;
    play.Hold(VK_UP).Run(51).TakeSounds();
    EXPECT_NEAR(play.Hero().GetPosition().y, 184.0, tolerance);
    play.Run(1);
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Jump"));
    EXPECT_LT(play.Hero().GetPosition().y, 184.0);
}

TEST(HeroJump, EndsUnderACeiling) {
    Playground play(SceneWith(Floor() + Solid(0, 130, 600, 150), 50));
    double highest = 1000.0;
    play.Hold(VK_UP).Run(1).LetGo(VK_UP);
    for (int tick = 0; tick < 49; ++tick) {
        play.Run(1);
        highest = std::min(highest, play.Hero().GetPosition().y);
    }
    EXPECT_NEAR(highest, 150.0, tolerance);
    EXPECT_NEAR(play.Hero().GetPosition().y, 184.0, tolerance);
}

// The outline

TEST(HeroOutline, StopsAtAWallFromEitherSide) {
    for (const int direction : {-1, +1}) {
        SCOPED_TRACE(direction);
        Playground play(SceneWith(Floor() + Solid(120, 100, 140, 210) + Solid(260, 160, 280, 210), 200));
        play.Hold(Key(direction)).Run(180);
        // He is one pixel narrower on the right.
        EXPECT_NEAR(play.Hero().GetPosition().x, direction < 0 ? 140.0 + 8.0 : 260.0 - 7.0, tolerance);
        play.LetGo(Key(direction)).Hold(Key(-direction));
        EXPECT_NEAR(SpeedsInNextTicks(play, 3).back(), -direction * 6.0, tolerance); // the wall took all his speed
    }
}

TEST(HeroOutline, InAShaftThatIsTooNarrowHeStaysAtTheLeftWall) {
    Playground play(SceneWith(Floor() + Solid(0, 100, 100, 200) + Solid(112, 100, 600, 200), 50, 50));
    play.Hero().SetPosition(108.5, 150.0); // the push out of the right wall puts him into the left one
    EXPECT_NEAR(play.Run(1).Hero().GetPosition().x, 100.0 + 8.0, tolerance);
}

TEST(HeroOutline, OneFootIsEnoughToStand) {
    struct {
        double x;
        bool stands;
    } const cases[] = {{94.1, true}, {93.9, false}, {205.9, true}, {206.1, false}};
    for (const auto& [x, stands] : cases) {
        SCOPED_TRACE(x);
        Playground play(SceneWith(Solid(100, 200, 200, 220), 150));
        play.Hero().SetPosition(x, 184.0);
        play.Run(10);
        EXPECT_EQ(play.Hero().GetPosition().y <= 184.0 + tolerance, stands);
    }
}

TEST(HeroOutline, StandsOnTheHigherOfTwoStones) {
    // The second foot's ray starts where the first one has put him.
    Playground play(SceneWith(Solid(0, 200, 50, 220) + Solid(50, 198, 100, 220), 50, 180));
    play.Run(20);
    EXPECT_NEAR(play.Hero().GetPosition().y, 182.0, tolerance);
}

TEST(HeroOutline, EndsAtTheLevelsEnds) {
    Scene scene = PlainScene();
    scene.levelWidth = 400;
    Playground play(scene);
    play.Hero().SetPosition(-30.0, 184.0);
    EXPECT_NEAR(play.Run(1).Hero().GetPosition().x, 8.0, tolerance);
    play.Hero().SetPosition(500.0, 184.0);
    EXPECT_NEAR(play.Run(1).Hero().GetPosition().x, 392.0, tolerance);
}

// Dying

TEST(HeroDeath, FallsThroughTheFloorAndStartsAgain) {
    Playground play;
    play.Run(1).TakeSounds();
    play.Hero().Hurt();
    play.Run(10);
    EXPECT_FALSE(play.Hero().IsAlive());
    EXPECT_LT(play.Hero().GetPosition().y, 150.0) << "the hop";
    EXPECT_FALSE(HasBox(play.Hero().GetHitRectHorizontal()));
    EXPECT_FALSE(HasBox(play.Hero().GetHitRectVertical()));
    play.Run(144); // 335 px/s up, 800 px/s^2 down: below y = 2000 on tick 155
    EXPECT_FALSE(play.Hero().IsAlive());
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Dead"));
    play.Run(1);
    EXPECT_TRUE(play.Hero().IsAlive());
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(8.0, 0.0)) << "the top left corner";
    play.Run(100);
    EXPECT_NEAR(play.Hero().GetPosition().y, 184.0, tolerance);
}

TEST(HeroDeath, StartsAgainAtTheCheckpointOncePassed) {
    Scene scene = SceneWith(Floor(1200), 1129);
    scene.levelWidth = 1200;
    Playground play(scene);
    play.Run(1).Hero().SetPosition(1130.0, 184.0);
    play.Run(1).Hero().SetPosition(50.0, 2001.0); // back, and into a pit
    play.Run(1);
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(1072.0, 180.0));
    EXPECT_TRUE(play.Hero().IsAlive());
}

TEST(HeroDeath, NothingHappensToADyingHero) {
    Playground play;
    play.Tap('I').Hero().SetAlive(false); // as an enemy from above does, whatever his form
    play.Hero().Hurt();
    play.Hero().Grow();
    play.Run(30);
    play.Hero().Hurt(); // the hop is not started again either
    play.Hero().Grow();
    const double y = play.Hero().GetPosition().y;
    play.Run(1);
    EXPECT_NEAR((play.Hero().GetPosition().y - y) * 60.0, -335.0 + 31 * 800 / 60.0, tolerance);
    EXPECT_FALSE(play.Hero().IsAlive());
    EXPECT_EQ(play.Hero().GetFormState(), heroBig);
}

// Scripted moves

TEST(HeroMoves, SinksIntoThePipeForNinetyTicks) {
    Playground play;
    play.Run(1).TakeSounds();
    play.Hero().StartAutoMove(heroSinksIntoPipe);
    play.Run(50).Hero().StartAutoMove(heroSinksIntoPipe); // held on: the time starts again
    play.Run(90);
    EXPECT_NEAR(play.Hero().GetPosition().y, 184.0 + 140 * 35 / 60.0, tolerance) << "through the floor";
    play.Run(1);
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(50.0, 250.0));
    EXPECT_EQ(play.Camera(), DOUBLE2(0.0, 224.0));
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Underworld"));
}

TEST(HeroMoves, WalksOutOfThePipeForNinetyTicks) {
    Scene scene = SceneWith(Floor() + Solid(210, 100, 260, 200), 199);
    scene.levelWidth = 2700;
    Playground play(scene);
    play.Run(1).Hold(VK_LEFT).Hero().StartAutoMove(heroWalksOutOfPipe);
    play.Run(90);
    EXPECT_NEAR(play.Hero().GetPosition().x, 199.0 + 90 * 18 / 60.0, tolerance) << "into the wall, whatever the keys";
    EXPECT_TRUE(play.Hero().IsFacingRight());
    play.LetGo(VK_LEFT).Run(1);
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(2623.0, 136.0));
    EXPECT_EQ(play.Camera().y, 0.0);
}

TEST(HeroMoves, WalksIntoTheCastleUntilATeleport) {
    Playground play;
    play.Hero().StartAutoMove(heroWalksIntoCastle);
    play.Run(200);
    EXPECT_NEAR(play.Hero().GetPosition().x, 50.0 + 200 * 25 / 60.0, tolerance);
    EXPECT_NEAR(play.Hero().GetPosition().y, 184.0, tolerance);
    play.Tap(VK_HOME).Run(30);
    EXPECT_NEAR(play.Hero().GetPosition().x, 50.0, tolerance);
}

TEST(HeroMoves, MusicHurriesWhenAHundredIsLeft) {
    for (const bool isShort : {false, true}) {
        Playground play;
        for (int tick = 0; tick < 299 * 30 + 30 * isShort; ++tick) HUD::GetSingleton()->Tick(1.0 / 60.0);
        ASSERT_EQ(HUD::GetSingleton()->GetTime(), isShort ? 100 : 101);
        play.Hero().GoUnderground();
        play.Run(1).TakeSounds();
        play.Hero().ResetToStart();
        play.Run(2);
        EXPECT_THAT(play.TakeSounds(), ElementsAre(isShort ? "OverworldHurry" : "Overworld"));
        play.Hero().GoUnderground();
        play.Run(2);
        EXPECT_THAT(play.TakeSounds(), ElementsAre(isShort ? "UnderworldHurry" : "Underworld"));
    }
}

// What others do to him

TEST(HeroContacts, BoxesAndBounces) {
    Playground play;
    play.Hero().SetPosition(100.0, 50.0);
    EXPECT_TRUE(play.Hero().GetHitRectHorizontal() == RECT2(92, 53, 108, 63));
    EXPECT_TRUE(play.Hero().GetHitRectVertical() == RECT2(100, 50, 100, 66));
    play.Tap('I');
    EXPECT_TRUE(play.Hero().GetHitRectHorizontal() == RECT2(92, 53, 108, 79));
    EXPECT_TRUE(play.Hero().GetHitRectVertical() == RECT2(100, 50, 100, 82));

    play.Hero().StompBounce();
    play.Run(1);
    EXPECT_NEAR(play.Hero().GetPosition().y, 50.0 + (-200 + 800 / 60.0) / 60.0, tolerance);
    play.Hero().BumpHead();
    const double y = play.Hero().GetPosition().y;
    play.Run(1);
    EXPECT_NEAR((play.Hero().GetPosition().y - y) * 60.0, (200 - 800 / 60.0) / 2 + 800 / 60.0, tolerance);
}

TEST(HeroContacts, OneCoordinateCanBeKept) {
    Playground play;
    play.Hero().SetPosition(Pelko::keepCoordinate, 40.0);
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(50.0, 40.0));
    play.Hero().SetPosition(10.0, Pelko::keepCoordinate);
    EXPECT_EQ(play.Hero().GetPosition(), DOUBLE2(10.0, 40.0));
}

// His data file

TEST(HeroFile, TheLastCompleteRecordWins) {
    const std::string big = "PositionX:     50\nPositionY:     150\nFormState:     1\n";
    struct {
        std::string text;
        DOUBLE2 position;
        int form;
    } const cases[] = {
        {big, {50, 150}, 1},
        {"PositionX:     50\r\nPositionY:     150\r\n\r\nFormState:     1\r\n", {50, 150}, 1},
        {big + "\n\n" + HeroAt(70, 80, 2), {70, 80}, 2},
        {"FormState:     1\nPositionX:     50\nPositionY:     150\n", {0, 0}, 0},  // the form closes a record
        {HeroAt(0, 150, 2) + "PositionX:     60\nFormState:     1", {60, 150}, 1}, // what was not used counts on
        {big + "PositionX:    7\npositionX:     7\nPositionX :    7\nFormState:     2\n", {50, 150}, 1},
        {"PositionX:     +48 px\nPositionY:     -7.9\nFormState:     \t2\n", {48, -7}, 2},
        {big + "PositionX:     99999999999\nPositionX:     \nPositionX:     x5\nPositionY:\nFormState:     2\n",
         {50, 150},
         1},
        {big +
             std::string("\0\xFF\x80"
                         "binary",
                         9) +
             "\n" + std::string(100000, 'x'),
         {50, 150},
         1},
        {"", {0, 0}, 0},
    };
    for (const auto& [text, position, form] : cases) {
        SCOPED_TRACE(text.substr(0, 200));
        Scene scene = PlainScene();
        scene.heroFile = text;
        Playground play(scene);
        EXPECT_EQ(play.Hero().GetPosition(), position);
        EXPECT_EQ(play.Hero().GetFormState(), form);
        EXPECT_THAT(play.Boxes(), IsEmpty());
    }
}

TEST(HeroFile, IsMissedAndTheGameGoesOn) {
    Scene scene = PlainScene();
    scene.heroFile.reset();
    Playground play(scene);
    play.Run(60);
    EXPECT_THAT(play.Boxes(), ElementsAre(L"File <Data_Pelko.txt> Could not be found!"));
    EXPECT_NEAR(play.Hero().GetPosition().x, 8.0, tolerance);
    EXPECT_EQ(play.Hero().GetFormState(), heroSmall);
}
