// Plays demos/first-steps.demo and compares what happens with numbers worked out from the rules of motion: a step is
// 1/60 s (the first one 0), gravity 800 px/s^2, a jump 335 px/s, walking 120 px/s^2 up to 100 px/s, and the speed
// changes before the place does.

#include "game/Level.h"
#include "game/Quillfen.h"
#include "game/player/Pelko.h"
#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"
#include "tools/demo/DemoRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr double tolerance = 1e-6;
constexpr double perTick = 1.0 / 60.0;

struct Moment {
    DOUBLE2 hero;
    bool alive;
    DOUBLE2 camera;
    std::uint32_t groundPixel; // of the ground at x = 1000, once the camera is at x = 984
};

/// Where something is `ticks` after it began to move at `speed` under gravity.
double Fall(double from, double speed, int ticks) {
    return from + speed * perTick * ticks + 800.0 * perTick * perTick * ticks * (ticks + 1) / 2.0;
}

class FirstSteps : public testing::Test {
protected:
    static void SetUpTestSuite() {
        RunDemo(ReadDemoFile("demos/first-steps.demo"), [](platform::ScriptedDesktop&, int,
                                                           const platform::FrameView& view) {
            const Pelko& hero = *Pelko::GetSingleton();
            constexpr int groundX = (1000 - 984) * 4;
            constexpr int groundY = 215 * 4;
            moments.push_back({hero.GetPosition(), hero.IsAlive(), Quillfen::GetSingleton()->GetCameraPosition(),
                               view.pixels[groundY * view.stride + groundX]});
        });
    }
    static const Moment& At(int frame) { return moments.at(static_cast<std::size_t>(frame)); }

    static std::vector<Moment> moments;
};

std::vector<Moment> FirstSteps::moments;

TEST_F(FirstSteps, FallsOntoTheGroundAndStands) {
    for (int frame = 0; frame <= 17; ++frame)
        EXPECT_NEAR(At(frame).hero.y, Fall(150.0, 0.0, frame), tolerance) << frame;
    for (int frame = 18; frame < 95; ++frame) EXPECT_NEAR(At(frame).hero.y, 184.0, tolerance) << frame;
    for (int frame = 0; frame <= 40; ++frame) EXPECT_EQ(At(frame).hero.x, 50.0) << frame;
}

TEST_F(FirstSteps, SpeedsUpToTheTopSpeed) {
    // The tick at 40 sees the key and begins to walk; from 41 on the speed grows by 2 px/s a tick.
    for (int n = 0; n <= 50; ++n) EXPECT_NEAR(At(40 + n).hero.x, 50.0 + n * (n + 1) / 60.0, tolerance) << n;
    for (int n = 0; n <= 100; ++n) EXPECT_NEAR(At(90 + n).hero.x, 92.5 + n * 100.0 / 60.0, tolerance) << n;
}

TEST_F(FirstSteps, JumpsInAParabolaOntoTheStep) {
    for (int m = 1; m <= 46; ++m) EXPECT_NEAR(At(94 + m).hero.y, Fall(184.0, -335.0, m), tolerance) << m;
    for (int frame = 141; frame <= 160; ++frame) EXPECT_NEAR(At(frame).hero.y, 168.0, tolerance) << frame;
}

TEST_F(FirstSteps, CrossesTheFirstPitInTheAir) {
    for (int m = 1; m <= 49; ++m) EXPECT_NEAR(At(390 + m).hero.y, Fall(184.0, -335.0, m), tolerance) << m;
    EXPECT_LT(At(397).hero.x, 600.0);
    EXPECT_GT(At(439).hero.x, 630.0);
    EXPECT_TRUE(At(450).alive);
}

TEST_F(FirstSteps, FallsIntoTheSecondPitAndComesBackAtTheCheckpoint) {
    const auto firstOff =
        std::find_if(moments.begin() + 700, moments.end(), [](const Moment& m) { return m.hero.y > 184.1; });
    const int off = static_cast<int>(firstOff - moments.begin());
    ASSERT_LT(off, 800);
    // The left foot, 6 px from the middle, has just passed the edge at 1160.
    EXPECT_GT(At(off).hero.x - 6.0, 1160.0);
    EXPECT_LE(At(off - 1).hero.x - 6.0, 1160.0);
    // 128 ticks of falling are the first to end below 2000: 128 * 129 / 9 > 1816 > 127 * 128 / 9.
    for (int ticks = 1; ticks <= 127; ++ticks) {
        EXPECT_NEAR(At(off - 1 + ticks).hero.y, Fall(184.0, 0.0, ticks), tolerance) << ticks;
    }
    EXPECT_EQ(At(off - 1 + 128).hero, DOUBLE2(1072.0, 180.0));
    EXPECT_EQ(At(off + 128).hero.x, 1072.0);
    EXPECT_NEAR(At(off + 160).hero.y, 184.0, tolerance);
}

TEST_F(FirstSteps, LooksAroundWithTheFreeCamera) {
    EXPECT_EQ(At(930).camera, DOUBLE2(984.0, 0.0)); // 80 px left of the hero's left edge
    EXPECT_NEAR(At(985).camera.x, 984.0 - 30 * 300.0 / 60.0, tolerance);
    EXPECT_NEAR(At(1035).camera.y, 10 * 300.0 / 60.0, tolerance);
    EXPECT_EQ(At(1050).camera, DOUBLE2(984.0, 0.0));
    EXPECT_EQ(At(1035).hero.x, 1072.0);
}

TEST_F(FirstSteps, LooksUnderTheHood) {
    EXPECT_NE(At(1110).groundPixel, At(1055).groundPixel); // the outline lies over the ground
    EXPECT_EQ(At(1150).groundPixel, At(1055).groundPixel);
}

// In two processes, since sounds are numbered for the life of one.
TEST(FirstStepsTrace, IsTheSameToTheLastBitEveryTime) {
    const TestFolder folder;
    const auto play = [&folder](const std::string& name) {
        EXPECT_EQ(
            RunProgram("demo_player demos/first-steps.demo --trace '" + (folder.Root() / name).string() + "'").exitCode,
            0);
        return folder.Read(name);
    };
    const std::string once = play("first-steps-1.trace");
    EXPECT_EQ(std::count(once.begin(), once.end(), '\n'), 1180);
    EXPECT_TRUE(play("first-steps-2.trace") == once);
}

} // namespace
