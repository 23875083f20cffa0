#include "engine/GameEngine.h"
#include "game/entities/EnemyList.h"
#include "game/player/Pelko.h"
#include "tests/support/Playground.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace {

constexpr double dt = 1.0 / 60.0;
constexpr double floorY = 200.0; // of the playground

/// A Skreel in slot 0 and a Dorvak in slot 1, on flat ground with a wall on either side; the hero looks on from above.
class Enemies : public testing::Test {
protected:
    static constexpr int skreel = 0;
    static constexpr int dorvak = 1;

    void Run(int ticks, double step = dt) {
        for (int i = 0; i < ticks; ++i) enemies->Tick(step);
    }
    DOUBLE2 At(int index) const { return enemies->GetPosition(index); }
    bool IsGone(int index) const { return enemies->GetType(index) == -1; }

    Playground play{Scene{Floor() + Solid(0, 100, 100, 200) + Solid(500, 100, 600, 200), 600, HeroAt(50, 50),
                          EnemyAt(300, 192) + EnemyAt(400, 188, enemyDorvak)}};
    EnemyList* enemies = EnemyList::GetSingleton();
    Pelko* pelko = Pelko::GetSingleton();
};

TEST_F(Enemies, SleepUntilTheHeroIsNearAndThenStayAwake) {
    pelko->SetPosition(110, 0); // 190 away: not yet
    Run(10);
    EXPECT_EQ(At(skreel), DOUBLE2(300, 192));
    pelko->SetPosition(110.5, 0);
    Run(1);
    EXPECT_NEAR(At(skreel).x, 300 - 2000 * dt * dt, 1e-9);
    pelko->SetPosition(5000, 0);
    Run(59);
    EXPECT_NEAR(At(skreel).x, 300 - 60 * 2000 * dt * dt, 1e-6);
    EXPECT_NEAR(At(skreel).y, floorY - 8, 1e-9);
    EXPECT_EQ(At(dorvak), DOUBLE2(400, 188));
}

TEST_F(Enemies, TurnAtWallsAndStayBetweenThem) {
    pelko->SetPosition(300, 0);
    double left = 300;
    double right = 300;
    for (int i = 0; i < 3000; ++i) {
        Run(1);
        left = std::min(left, At(skreel).x);
        right = std::max(right, At(skreel).x);
        ASSERT_NEAR(At(dorvak).y, floorY - 12, 1e-9);
    }
    EXPECT_NEAR(left, 108, 0.6); // half its width from the wall, and one step
    EXPECT_NEAR(right, 492, 0.6);
}

TEST_F(Enemies, AStompedSkreelLiesFlatFor30Ticks) {
    pelko->SetPosition(300, 0);
    Run(1);
    enemies->Stomp(skreel);
    const DOUBLE2 place = At(skreel);
    EXPECT_FALSE(HasBox(enemies->GetHitRect(skreel)));
    Run(30);
    EXPECT_EQ(At(skreel), place);
    Run(1);
    EXPECT_TRUE(IsGone(skreel));
    EXPECT_EQ(At(skreel), DOUBLE2(0, 0));
}

TEST_F(Enemies, AKilledSkreelHopsAndFallsThroughTheGround) {
    pelko->SetPosition(300, 0);
    Run(1, 0.02);
    const DOUBLE2 place = At(skreel);
    enemies->Kill(skreel);
    Run(1, 0.02);
    // 150 upwards, less 1600 * 0.02
    EXPECT_NEAR(At(skreel).y, place.y - 118 * 0.02, 1e-9);
    EXPECT_EQ(At(skreel).x, place.x);
    EXPECT_FALSE(HasBox(enemies->GetHitRect(skreel)));
    Run(100, 0.02);
    EXPECT_TRUE(IsGone(skreel));
}

TEST_F(Enemies, ADorvakHidesInAShellThatLiesStillUntilItIsKicked) {
    pelko->SetPosition(300, 0);
    Run(1);
    const RECT2 walking = enemies->GetHitRect(dorvak);
    enemies->Stomp(dorvak);
    const RECT2 shell = enemies->GetHitRect(dorvak);
    EXPECT_EQ(shell, RECT2(walking.left, walking.top + 9, walking.right, walking.bottom));
    enemies->Move(dorvak, DOUBLE2(0, -50)); // even in mid-air
    const DOUBLE2 place = At(dorvak);
    Run(30);
    EXPECT_EQ(At(dorvak), place);
    enemies->Stomp(dorvak);
    Run(1);
    EXPECT_NEAR(At(dorvak).x, place.x - 8000 * dt * dt, 1e-9);
    EXPECT_GT(At(dorvak).y, place.y);
    enemies->Stomp(dorvak); // changes nothing any more
    double right = 0;
    for (int i = 0; i < 600; ++i) {
        Run(1);
        right = std::max(right, At(dorvak).x);
    }
    EXPECT_NEAR(right, 492, 2.3) << "it slides between the walls";
}

TEST_F(Enemies, AShellIsForgottenFarFromTheHeroAndAWalkerIsNot) {
    GameEngine::GetSingleton()->SetWidth(512); // what "far" is measured by
    pelko->SetPosition(400, 0);
    Run(1); // awake
    pelko->SetPosition(1000.9, 0);
    const auto moveTo = [this](double x) { enemies->Move(dorvak, DOUBLE2(x - At(dorvak).x, 100 - At(dorvak).y)); };
    moveTo(-5000);
    Run(1);
    EXPECT_FALSE(IsGone(dorvak));
    enemies->Stomp(dorvak);
    for (const double x : {745.0, 1511.0}) {
        moveTo(x);
        Run(1);
        EXPECT_FALSE(IsGone(dorvak)) << x;
    }
    moveTo(1513);
    Run(1);
    EXPECT_TRUE(IsGone(dorvak));
}

TEST_F(Enemies, AKilledDorvakIsUntouchableAndGoneWhenTheHeroIsAway) {
    pelko->SetPosition(400, 0);
    Run(1);
    enemies->Kill(dorvak);
    EXPECT_FALSE(HasBox(enemies->GetHitRect(dorvak)));
    Run(60);
    EXPECT_FALSE(IsGone(dorvak));
    pelko->SetPosition(3000, 0);
    Run(1);
    EXPECT_TRUE(IsGone(dorvak));
}

TEST_F(Enemies, AnythingBelowTheLevelIsDeleted) {
    pelko->SetPosition(300, 0);
    enemies->Move(skreel, DOUBLE2(0, 500 - 192));
    enemies->Move(dorvak, DOUBLE2(0, 499 - 188));
    Run(1);
    EXPECT_TRUE(IsGone(skreel));
    EXPECT_FALSE(IsGone(dorvak));
}

/// Which part of the sheet is seen: the cell, and the quarter of it that shows at the enemy's top left.
struct Seen {
    std::uint32_t cell;
    std::uint32_t quarter; // 0 top left, 1 top right, 2 bottom left, 3 bottom right
    friend bool operator==(Seen, Seen) = default;
    friend std::ostream& operator<<(std::ostream& stream, Seen seen) {
        return stream << "cell " << seen.cell << " quarter " << seen.quarter;
    }
};

TEST(EnemyPictures, FaceTheWayTheyWalkAndDieUpsideDown) {
    platform::Picture sheet(48, 16);
    constexpr std::uint32_t mark = 0xFF000077;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 48; ++x)
            sheet.At(x, y) = mark | static_cast<std::uint32_t>(x / 16 << 16 | (y / 8 * 2 + x / 8 % 2) << 8);
    Scene scene = PlainScene();
    scene.enemyFile = EnemyAt(120, 192);
    scene.pictures = {{"Skreel.bmp", sheet}};
    Playground play(scene);
    EnemyList* enemies = EnemyList::GetSingleton();
    const auto seen = [&] {
        play.Paint();
        const std::uint32_t colour = play.ColourAt(enemies->GetPosition(0) - DOUBLE2(4, 4));
        return (colour & 0xFF) == (mark & 0xFF) ? Seen{colour >> 16 & 0xFF, colour >> 8 & 0xFF} : Seen{9, 9};
    };
    EXPECT_EQ(seen(), (Seen{9, 9})) << "asleep it is not drawn";
    play.Run(7);
    EXPECT_EQ(seen(), (Seen{0, 0}));
    enemies->SetMovingLeft(0, false);
    play.Run(1);
    EXPECT_EQ(seen(), (Seen{1, 1})) << "mirrored, in the second pose from the eighth tick on";
    enemies->Stomp(0);
    play.Run(1);
    EXPECT_EQ(seen(), (Seen{2, 0}));
    enemies->Kill(0);
    play.Run(1);
    EXPECT_EQ(seen(), (Seen{0, 2}));
}

} // namespace
