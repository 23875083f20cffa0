#include "game/player/Fireball.h"

#include "engine/Bitmap.h"
#include "game/HUD.h"
#include "game/entities/EnemyList.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {
constexpr double deltaTime = 1.0 / 60.0;
constexpr double tolerance = 1e-9;
constexpr double stepX = 170.0 / 60.0; // level pixels per tick

/// A fireball of its own beside a hero who throws none.
class Thrown {
public:
    explicit Thrown(DOUBLE2 position, Scene const& scene = PlainScene())
        : play(scene), ball("Resources/Images/Fireball.bmp"), explosion("Resources/Images/Explosion.bmp"),
          fireball(position, &ball, &explosion) {}

    Thrown& Run(int ticks, double step = deltaTime) {
        for (int tick = 0; tick < ticks; ++tick) fireball.Tick(step);
        return *this;
    }
    DOUBLE2 Position() const { return fireball.GetPosition(); }

    Playground play;
    Bitmap ball;
    Bitmap explosion;
    Fireball fireball;
};

Scene SceneWithEnemies(std::string const& enemies) {
    Scene scene = PlainScene();
    scene.enemyFile = enemies;
    return scene;
}

int ThrowsHeard(Playground& play) {
    const std::vector<std::string> sounds = play.Run(1).TakeSounds();
    return static_cast<int>(std::ranges::count(sounds, "FireballThrow"));
}
} // namespace

TEST(Fireball, FallsAndBouncesOffTheGround) {
    Thrown thrown({60, 190});
    thrown.Run(7);
    EXPECT_NEAR(thrown.Position().x, 60 + 7 * stepX, tolerance);
    EXPECT_NEAR(thrown.Position().y, 190 + 13 / 60.0 * (7 * 8 / 2), tolerance) << "196.07: 4 more than 200";
    thrown.Run(1); // put back on the ground; 3 up, less the fall of 8 ticks
    EXPECT_NEAR(thrown.Position().y, 196 - 3 + 8 * 13 / 60.0, tolerance);
    EXPECT_FALSE(thrown.fireball.IsExploding());
}

TEST(Fireball, FliesWhereTheHeroFaces) {
    Playground play;
    play.Hold(VK_LEFT).Paint();
    Bitmap ball("Resources/Images/Fireball.bmp");
    Bitmap explosion("Resources/Images/Explosion.bmp");
    Fireball fireball({60, 100}, &ball, &explosion);
    play.LetGo(VK_LEFT).Hold(VK_RIGHT).Paint(); // turning later changes nothing
    fireball.Tick(deltaTime);
    EXPECT_NEAR(fireball.GetPosition().x, 60 - stepX, tolerance);
}

TEST(Fireball, ExplodesAtAWallAndIsOver) {
    Scene scene = PlainScene();
    scene.outline += Solid(80, 100, 100, 210);
    Thrown thrown({60, 150}, scene);
    int ticks = 0;
    while (!thrown.fireball.IsExploding() && ticks < 60) ++ticks, thrown.Run(1);
    EXPECT_EQ(ticks, 7) << "its middle 4 before the wall: after six ticks, seen in the next";
    const DOUBLE2 place = thrown.Position();
    thrown.Run(16); // pictures change on ticks 12, 18 and 24, counted from the throw
    EXPECT_TRUE(thrown.fireball.IsExploding());
    EXPECT_EQ(thrown.Position(), place);
    thrown.Run(1);
    EXPECT_TRUE(thrown.fireball.IsDone());
}

TEST(Fireball, KillsOneEnemyOnly) {
    struct {
        int type;
        int points;
    } const cases[] = {{enemySkreel, 100}, {enemyDorvak, 400}};
    for (const auto& [type, points] : cases) {
        SCOPED_TRACE(type);
        Thrown thrown({80, 190}, SceneWithEnemies(EnemyAt(90, 190, type) + EnemyAt(90, 190, type)));
        thrown.Run(1);
        EXPECT_TRUE(thrown.fireball.IsExploding());
        EXPECT_EQ(HUD::GetSingleton()->GetScore(), points);
        EXPECT_FALSE(HasBox(EnemyList::GetSingleton()->GetHitRect(0)));
        EXPECT_TRUE(HasBox(EnemyList::GetSingleton()->GetHitRect(1)));
        thrown.Run(1);
        EXPECT_EQ(HUD::GetSingleton()->GetScore(), points);
    }
}

TEST(Fireball, FindsNothingToHitWhereNobodyIs) {
    Thrown thrown({8, 3}); // over (0, 0), where empty slots claim to be
    thrown.Run(1);
    EXPECT_FALSE(thrown.fireball.IsExploding());
    EXPECT_EQ(HUD::GetSingleton()->GetScore(), 0);
}

TEST(Fireball, RollsAlongTheTopOfABlock) {
    Thrown thrown({244, 130}); // the first block is at (256, 136)
    thrown.play.Hero().SetPosition(244, 184);
    thrown.Run(8);
    EXPECT_NEAR(thrown.Position().y, 132 + 13 / 60.0, tolerance);
    EXPECT_FALSE(thrown.fireball.IsExploding());
    EXPECT_NEAR(thrown.Position().x, 244 + 8 * stepX, tolerance);
}

TEST(Fireball, EndsWhenOldOrFarFromTheHero) {
    struct {
        DOUBLE2 position; // the hero is at x = 50
        bool ends;
    } const cases[] = {{{250, 100}, false},   {{250.1, 100}, true}, {{-150, 100}, false},
                       {{-150.1, 100}, true}, {{60, 399.9}, false}, {{60, 400}, true}};
    for (const auto& [position, ends] : cases) {
        SCOPED_TRACE(position.x);
        Thrown thrown(position);
        EXPECT_EQ(thrown.Run(1, 0.0).fireball.IsDone(), ends);
    }
    Thrown old({60, 100});
    EXPECT_FALSE(old.Run(299, 0.0).fireball.IsDone());
    EXPECT_TRUE(old.Run(1, 0.0).fireball.IsDone());
}

TEST(Fireball, OnlyTheFireFormThrowsAndTwoAtMost) {
    Playground play;
    for (const int form : {heroSmall, heroBig}) {
        play.Hero().SetFormState(form);
        EXPECT_EQ(ThrowsHeard(play.Tap(VK_SPACE)), 0);
    }
    play.Tap('O');
    for (const int expected : {1, 1, 0}) EXPECT_EQ(ThrowsHeard(play.Tap(VK_SPACE)), expected);
    play.Hero().SetPosition(400, 184); // too far from both
    EXPECT_EQ(ThrowsHeard(play.Run(1).Tap(VK_SPACE).Tap(VK_SPACE).Tap(VK_SPACE)), 2);
}

TEST(Fireball, IsPaintedAroundItsMiddle) {
    Playground play;
    play.Tap('O').Run(60).Tap(VK_SPACE).Paint();
    EXPECT_TRUE(play.BoundsOf(SceneFolder::fireball) == RECT2(46, 168 + 5 - 4, 54, 168 + 5 + 4));
}
