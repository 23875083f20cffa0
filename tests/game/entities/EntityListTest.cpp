#include "game/entities/EntityList.h"
#include "game/HUD.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr double dt = 1.0 / 60.0;

/// Ground at y 200 from x 100 to 500, a wall at either end.
class Entities : public testing::Test {
protected:
    int Add(DOUBLE2 position, int type, int variant = 0) {
        entities->AddEntity(position, type, variant);
        return entities->GetSize() - 1;
    }
    void Run(int ticks, double step = dt) {
        for (int i = 0; i < ticks; ++i) entities->Tick(step);
    }
    DOUBLE2 At(int index) const { return entities->GetPosition(index); }

    static constexpr int placedCoins = 19;
    static constexpr double standingY = 200 - 16 + 800 * dt * dt; // gravity comes after the ray
    Playground play{Scene{Floor() + Solid(0, 100, 100, 200) + Solid(500, 100, 600, 200), 600, HeroAt(50, 50), ""}};
    EntityList* entities = EntityList::GetSingleton();
};

TEST_F(Entities, TheUndergroundCoinsLieInThreeRows) {
    ASSERT_EQ(entities->GetSize(), placedCoins);
    std::vector<DOUBLE2> corners;
    for (const int i : {0, 4, 5, 11, 12, 18}) corners.push_back(At(i));
    EXPECT_THAT(corners, ElementsAre(DOUBLE2(80, 298), DOUBLE2(144, 298), DOUBLE2(64, 330), DOUBLE2(160, 330),
                                     DOUBLE2(64, 362), DOUBLE2(160, 362)));
    EXPECT_EQ(entities->GetHitRect(0), RECT2(83, 298, 93, 314));
    entities->Collect(0);
    EXPECT_EQ(entities->GetHitRect(0), RECT2());
    EXPECT_EQ(entities->GetType(0), entityCoin) << "a collected coin keeps its place";
}

TEST_F(Entities, AppearInsideTheirBlock) {
    EXPECT_EQ(At(Add(DOUBLE2(300.7, 100.2), contentMushroom, 1)), DOUBLE2(300, 114));
    EXPECT_EQ(entities->GetMushroomVariant(placedCoins), 1);
    EXPECT_EQ(entities->GetMushroomVariant(Add(DOUBLE2(300, 100), contentFlower)), -1);
    for (const int nothing : {0, 5, -1}) entities->AddEntity(DOUBLE2(300, 100), nothing, 0);
    EXPECT_EQ(entities->GetSize(), placedCoins + 2);
}

TEST_F(Entities, ACoinOfABlockPaysAtOnceAndRisesFor20Ticks) {
    const int coin = Add(DOUBLE2(300, 150), contentCoin);
    EXPECT_EQ(HUD::GetSingleton()->GetCoins(), 1);
    EXPECT_EQ(HUD::GetSingleton()->GetScore(), 200);
    Run(10, 0.05);
    EXPECT_NEAR(At(coin).y, 164 - 10 * 5, 1e-9);
    EXPECT_FALSE(HasBox(entities->GetHitRect(coin)));
    Run(60, 0.05);
    EXPECT_NEAR(At(coin).y, 164 - 19 * 5 - 5, 1e-9) << "the last step is made in the tick that ends it";
}

TEST_F(Entities, AFlowerCanBeTakenWhenItHasRisenByItsHeight) {
    const int flower = Add(DOUBLE2(300, 200), contentFlower); // starts at 214, rises at 20 pixels a second
    Run(48);
    EXPECT_FALSE(HasBox(entities->GetHitRect(flower)));
    Run(3);
    EXPECT_NEAR(At(flower).y, 198, 20 * dt);
    EXPECT_EQ(entities->GetHitRect(flower), RECT2(300, At(flower).y, 316, At(flower).y + 16));
    const DOUBLE2 place = At(flower);
    Run(300);
    EXPECT_EQ(At(flower), place);
}

TEST_F(Entities, AMushroomRisesWalksFallsAndTurnsAtWalls) {
    const int mushroom = Add(DOUBLE2(440, 120), contentMushroom);
    EXPECT_EQ(entities->GetHitRect(mushroom), RECT2(440, 134, 456, 150)) << "touchable from the start";
    Run(19);
    EXPECT_EQ(At(mushroom).x, 440); // still inside
    Run(1);
    EXPECT_LT(At(mushroom).y, 118);
    Run(60);
    EXPECT_NEAR(At(mushroom).y, standingY, 1e-9);
    const double x = At(mushroom).x;
    Run(10);
    EXPECT_NEAR(At(mushroom).x, x + 10 * 2000 * dt * dt, 1e-9);
    double left = 1000;
    double right = 0;
    for (int i = 0; i < 2000; ++i) {
        Run(1);
        left = std::min(left, At(mushroom).x);
        right = std::max(right, At(mushroom).x);
    }
    EXPECT_NEAR(left, 100, 0.6);
    EXPECT_NEAR(right, 500 - 16, 0.6);
}

TEST_F(Entities, AStarLeavesAtOnceAndMovesLikeAMushroom) {
    const int star = Add(DOUBLE2(200, 100), contentStar);
    Run(1);
    EXPECT_NEAR(At(star).x, 200 + 2000 * dt * dt, 1e-9);
    EXPECT_NEAR(At(star).y, 114 + 800 * dt * dt, 1e-9);
    Run(60);
    const double x = At(star).x;
    EXPECT_NEAR(At(star).y, standingY, 1e-9);
    Run(10, 0.05);
    EXPECT_NEAR(At(star).x, x + 10 * 5, 1e-9);
}

TEST_F(Entities, AnEdgeInTheUpperHalfOfAWalkerIsACeiling) {
    const int star = Add(DOUBLE2(50, 82), contentStar); // a quarter of it above the left wall
    Run(1);
    EXPECT_NEAR(At(star).y, 100 + 800 * dt * dt, 1e-9);
}

TEST_F(Entities, OneThatIsTakenIsGoneAtOnceOrWithItsNextTick) {
    const int star = Add(DOUBLE2(200, 100), contentStar);
    const int flower = Add(DOUBLE2(300, 100), contentFlower);
    const int mushroom = Add(DOUBLE2(400, 100), contentMushroom);
    Run(60);
    for (const int index : {star, flower, mushroom}) entities->SetState(index, entityGone);
    EXPECT_FALSE(HasBox(entities->GetHitRect(star)));
    EXPECT_FALSE(HasBox(entities->GetHitRect(flower)));
    EXPECT_TRUE(HasBox(entities->GetHitRect(mushroom)));
    Run(1);
    EXPECT_FALSE(HasBox(entities->GetHitRect(mushroom)));
}

TEST_F(Entities, WhatFallsOutOfTheLevelLeavesAnEmptySlot) {
    const int star = Add(DOUBLE2(300, 100), contentStar);
    const int mushroom = Add(DOUBLE2(300, 100), contentMushroom);
    entities->SetState(star, entityIdle); // it does not move any more
    entities->Move(star, DOUBLE2(0, 499 - At(star).y));
    Run(1);
    EXPECT_EQ(entities->GetType(star), entityStar);
    entities->Move(star, DOUBLE2(0, 1));
    Run(1);
    EXPECT_EQ(entities->GetType(star), -1);
    EXPECT_EQ(At(star), DOUBLE2(0, 0));
    EXPECT_EQ(entities->GetHitRect(star), RECT2());
    EXPECT_EQ(entities->GetMushroomVariant(star), -1);
    entities->Move(star, DOUBLE2(1, 1)); // takes every order
    entities->SetState(star, entityActive);
    EXPECT_EQ(entities->GetType(mushroom), entityMushroom) << "the others keep their index";
    EXPECT_EQ(entities->GetSize(), placedCoins + 2);
}

} // namespace
