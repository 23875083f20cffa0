#include "game/HUD.h"
#include "game/Level.h"
#include "game/player/Pelko.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {
struct Change {
    int oldForm;
    int newForm;
    void (Pelko::*begin)();
};
constexpr Change changes[] = {{heroSmall, heroBig, &Pelko::Grow},
                              {heroBig, heroFire, &Pelko::Grow},
                              {heroBig, heroSmall, &Pelko::Hurt},
                              {heroFire, heroSmall, &Pelko::Hurt}};
} // namespace

TEST(HeroForms, ChangeInNinetyTicksFlickeringEveryTen) {
    for (const auto& [oldForm, newForm, begin] : changes) {
        SCOPED_TRACE(testing::Message() << oldForm << " to " << newForm);
        Playground play;
        play.Hero().SetFormState(oldForm);
        (play.Hero().*begin)();
        std::vector<int> shown;
        std::vector<int> expected;
        for (int tick = 1; tick <= 95; ++tick) {
            shown.push_back(play.Run(1).Hero().GetFormState());
            const bool old = tick / 10 % 2 == 1 && tick < 90; // the new form shows first, and last
            expected.push_back(old ? oldForm : newForm);
            // A growth is noticed only in the tick that begins it.
            const bool protectedAtOnce = begin == &Pelko::Hurt;
            EXPECT_EQ(play.Hero().IsInvulnerable(), tick <= 90 && (tick > 1 || protectedAtOnce)) << tick;
        }
        EXPECT_THAT(shown, ElementsAreArray(expected));
        EXPECT_TRUE(HasBox(play.Hero().GetHitRectVertical()));
    }
}

TEST(HeroForms, HangsInTheAirWhileTheyChange) {
    for (const auto& [oldForm, newForm, begin] : changes) {
        SCOPED_TRACE(testing::Message() << oldForm << " to " << newForm);
        Playground play;
        play.Hero().SetFormState(oldForm);
        play.Hero().SetPosition(50.0, 20.0);
        (play.Hero().*begin)();
        play.Run(1); // in its first tick he still moves
        const DOUBLE2 place = play.Hero().GetPosition();
        play.Hold(VK_RIGHT).Run(89);
        EXPECT_EQ(play.Hero().GetPosition(), place);
        play.Run(1);
        EXPECT_NEAR(play.Hero().GetPosition().y, place.y + 800 / 3600.0, 1e-9) << "and then falls from a rest";
    }
}

TEST(HeroForms, SoundWhenAHitCostsOne) {
    Playground play;
    play.Run(1).Tap('I').TakeSounds();
    play.Hero().Hurt();
    play.Run(2);
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Pipe"));
    EXPECT_TRUE(play.Hero().IsAlive());
}

TEST(HeroForms, ChangeDuringAScriptedWalkComesToItsEnd) {
    for (const int move : {heroWalksOutOfPipe, heroWalksIntoCastle}) {
        SCOPED_TRACE(move);
        Playground play;
        play.Hero().StartAutoMove(move);
        play.Run(5).Hero().Grow();
        play.Run(91);
        EXPECT_FALSE(play.Hero().IsInvulnerable());
        const double x = play.Hero().GetPosition().x;
        EXPECT_GT(play.Run(10).Hero().GetPosition().x, x) << "and he walks on";
    }
}

TEST(HeroForms, DyingEndsAChangeAtOnce) {
    for (const auto& [oldForm, newForm, begin] : changes) {
        SCOPED_TRACE(testing::Message() << oldForm << " to " << newForm);
        Playground play;
        play.Hero().SetFormState(oldForm);
        (play.Hero().*begin)();
        play.Run(15).Hero().SetAlive(false); // while the old form shows
        EXPECT_EQ(play.Hero().GetFormState(), newForm);
        const double y = play.Hero().GetPosition().y;
        play.Run(10);
        EXPECT_LT(play.Hero().GetPosition().y, y - 40.0) << "the hop";
    }
}

TEST(HeroForms, AResetEndsAChangeAtOnce) {
    for (const auto& [oldForm, newForm, begin] : changes) {
        SCOPED_TRACE(testing::Message() << oldForm << " to " << newForm);
        Playground play;
        play.Hero().SetFormState(oldForm);
        (play.Hero().*begin)();
        play.Run(15).Tap(VK_HOME).Run(100);
        EXPECT_EQ(play.Hero().GetFormState(), newForm);
        EXPECT_NEAR(play.Hero().GetPosition().y, newForm == heroSmall ? 184.0 : 168.0, 1e-9) << "he fell to the floor";
    }
}

TEST(HeroForms, AShrinkWinsWhenTwoChangesEndEarly) {
    Playground play;
    play.Tap('O').Hero().Hurt();
    play.Run(15).Hero().Grow(); // both now run at once
    play.Tap('U').Run(1).Hero().SetAlive(false);
    EXPECT_EQ(play.Hero().GetFormState(), heroSmall);
}

// Star power

TEST(HeroStar, LastsThreeHundredTicks) {
    Playground play;
    play.Run(1).TakeSounds();
    play.Hero().ActivateStar();
    play.Run(100);
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Starrush"));
    play.Hero().ActivateStar(); // starts the time again, the music plays on
    play.Run(300);
    EXPECT_TRUE(play.Hero().IsStarActive());
    EXPECT_THAT(play.TakeSounds(), ElementsAre("Overworld"));
    play.Run(1);
    EXPECT_FALSE(play.Hero().IsStarActive());
    play.Run(300);
    EXPECT_THAT(play.TakeSounds(), testing::IsEmpty());
}

TEST(HeroStar, LeavesTheMusicThatFits) {
    struct {
        int hudTicks;
        bool flagDown;
        std::vector<std::string> started;
    } const cases[] = {{8970 - 301, false, {"Overworld"}}, // the time then reaches 101 in the star's last tick
                       {9000 - 301, false, {"OverworldHurry"}},
                       {9000 - 301, true, {}}}; // the castle's has been playing since the flag came down
    for (const auto& [hudTicks, flagDown, started] : cases) {
        SCOPED_TRACE(testing::Message() << hudTicks << ' ' << flagDown);
        Playground play;
        for (int tick = 0; tick < hudTicks; ++tick) HUD::GetSingleton()->Tick(1.0 / 60.0);
        if (flagDown) Level::GetSingleton()->SetFlagReached();
        play.Run(1).Hero().ActivateStar();
        play.Run(299).TakeSounds();
        play.Run(1);
        EXPECT_THAT(play.TakeSounds(), ElementsAreArray(started));
    }
}

// Painting

TEST(HeroPicture, ShowsFormAndState) {
    Playground play;
    const auto picture = [&play] { return play.Paint().PaintedHero(); };
    play.Run(1);
    EXPECT_EQ(picture().column, 0);
    EXPECT_EQ(picture().row, 2);
    EXPECT_EQ(play.Tap('I').Paint().PaintedHero().row, 0);
    EXPECT_EQ(play.Tap('O').Paint().PaintedHero().row, 6);
    play.Tap('U').Hold(VK_RIGHT).Run(1);
    std::vector<int> columns; // of every sixth tick
    for (int step = 0; step < 6; ++step) columns.push_back(play.Run(6).Paint().PaintedHero().column);
    EXPECT_THAT(columns, ElementsAre(1, 2, 3, 4, 1, 2));
    play.Hold(VK_UP).Run(1);
    EXPECT_EQ(picture().column, 6);
    play.Hero().Hurt();
    play.Run(1);
    EXPECT_EQ(picture().column, 7);
    play.Hero().SetFormState(3);
    EXPECT_FALSE(picture().isShown);
}

TEST(HeroPicture, TurnsWithTheKeysWhateverHappens) {
    Playground play;
    play.Run(1).Hold(VK_LEFT).Paint();
    EXPECT_TRUE(play.PaintedHero().mirrored);
    EXPECT_FALSE(play.Hero().IsFacingRight());
    play.LetGo(VK_LEFT).Paint();
    EXPECT_TRUE(play.PaintedHero().mirrored) << "he goes on looking there";
    play.Hold(VK_RIGHT).Hold(VK_LEFT).Paint();
    EXPECT_FALSE(play.PaintedHero().mirrored);
    play.LetGo(VK_RIGHT).Hero().Grow();
    play.Run(20).Paint();
    EXPECT_TRUE(play.PaintedHero().mirrored) << "in a change of form";
    play.LetGo(VK_LEFT).Hold(VK_RIGHT).Hero().SetAlive(false);
    play.Run(2).Paint();
    EXPECT_FALSE(play.PaintedHero().mirrored) << "even dead";
}

TEST(HeroPicture, CyclesThroughTheStarsColours) {
    Playground play;
    play.Run(1).Hero().ActivateStar();
    std::vector<int> bands;
    std::vector<int> expected;
    for (int paint = 1; paint <= 62; ++paint) {
        bands.push_back((play.Paint().PaintedHero().row - 2) / 3);
        expected.push_back((paint - 1 + paint / 60) % 8 + 1); // every sixtieth paint skips one
    }
    EXPECT_THAT(bands, ElementsAreArray(expected));
    EXPECT_EQ(play.DebugLines().back(), L"300 // 62\n");
    play.Tap('O').Paint();
    EXPECT_EQ(play.PaintedHero().row, 3 * (expected.back() + 3)) << "the fire form's rows lie two bands lower";
    play.Tap('U').Run(301).Paint();
    EXPECT_EQ(play.PaintedHero().row, 2);
    EXPECT_EQ(play.DebugLines().back(), L"-1 // 63\n");
}
