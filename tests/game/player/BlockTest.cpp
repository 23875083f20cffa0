#include "game/HUD.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "game/player/CollisionList.h"
#include "game/player/Pelko.h"
#include "tests/support/Playground.h"

#include <gtest/gtest.h>

namespace {

constexpr double dt = 1.0 / 60.0;

class Blocks : public testing::Test {
protected:
    /// The hero's head hits the block in the middle; then the block's next tick comes.
    void Bump(int index) {
        const DOUBLE2 block = blocks->GetPosition(index);
        Pelko::GetSingleton()->SetPosition(block.x + 8, block.y + 14);
        CollisionList::GetSingleton()->CollideBlocksVertical();
        blocks->Tick(dt);
    }
    void BumpUntilRest(int index) {
        Bump(index);
        for (int i = 0; i < 60; ++i) blocks->Tick(dt);
    }
    void BecomeForm(int form) { Pelko::GetSingleton()->SetFormState(form); }
    int ReleasedCount() const { return EntityList::GetSingleton()->GetSize() - placedCoins; }
    int IndexOfLastReleased() const { return EntityList::GetSingleton()->GetSize() - 1; }
    int TypeOfLastReleased() const { return EntityList::GetSingleton()->GetType(IndexOfLastReleased()); }

    static constexpr int placedCoins = 19;
    Playground play;
    BlockList* blocks = BlockList::GetSingleton();
};

TEST_F(Blocks, AQuestionBlockGivesItsCoinOnceAndStaysAsAUsedBlock) {
    constexpr int question = 0;
    blocks->Tick(dt);
    BumpUntilRest(question);
    EXPECT_EQ(ReleasedCount(), 1);
    EXPECT_EQ(TypeOfLastReleased(), entityCoinBlock);
    EXPECT_EQ(HUD::GetSingleton()->GetCoins(), 1);
    EXPECT_EQ(HUD::GetSingleton()->GetScore(), 200);
    EXPECT_EQ(blocks->GetType(question), blockTypeUsed);
    EXPECT_EQ(blocks->GetHitRect(question), RECT2(256, 136, 272, 152));
    Bump(question);
    EXPECT_EQ(ReleasedCount(), 1);
    EXPECT_EQ(blocks->GetHitRect(question), RECT2(256, 136, 272, 152)) << "a used block moved";
}

TEST_F(Blocks, ABumpedBlockJumpsAtOnceAndSettlesBackToItsPlace) {
    constexpr int brick = 1;
    blocks->Tick(dt);
    Pelko::GetSingleton()->SetPosition(328, 150);
    CollisionList::GetSingleton()->CollideBlocksVertical();
    EXPECT_NEAR(blocks->GetPosition(brick).y, 136 - 800 * dt, 1e-9);
    blocks->Tick(dt);
    EXPECT_NEAR(blocks->GetPosition(brick).y, 136 - 720 * dt, 1e-9);
    for (int i = 0; i < 20; ++i) blocks->Tick(dt);
    EXPECT_EQ(blocks->GetPosition(brick).y, 136);
}

TEST_F(Blocks, OnlyABigHeroBreaksABrick) {
    constexpr int brick = 1;
    blocks->Tick(dt);
    for (int i = 0; i < 5; ++i) BumpUntilRest(brick);
    EXPECT_EQ(blocks->GetType(brick), blockTypeBrick);
    for (const int form : {heroBig, heroFire}) {
        const int target = brick + 2 * (form - heroBig);
        BecomeForm(form);
        Bump(target);
        EXPECT_EQ(blocks->GetType(target), blockTypeBroken);
        EXPECT_FALSE(HasBox(blocks->GetHitRect(target)));
    }
    EXPECT_EQ(ReleasedCount(), 0);
}

TEST_F(Blocks, APowerUpBlockGivesWhatFitsTheHeroAtThatMoment) {
    struct Case {
        int block;
        int form;
        int type;
        int variant; // -1: no mushroom
    };
    constexpr int treasure = 7; // a mushroom of the other kind, whatever the form
    constexpr int star = 25;
    blocks->Tick(dt);
    for (const Case& at : {Case{2, heroSmall, entityMushroom, 0}, Case{9, heroBig, entityFlower, -1},
                           Case{29, heroFire, entityFlower, -1}, Case{treasure, heroBig, entityMushroom, 1},
                           Case{star, heroSmall, entityStar, -1}}) {
        SCOPED_TRACE(at.block);
        BecomeForm(at.form);
        const DOUBLE2 place = blocks->GetPosition(at.block);
        Bump(at.block);
        EXPECT_EQ(TypeOfLastReleased(), at.type);
        const int index = IndexOfLastReleased();
        EXPECT_EQ(EntityList::GetSingleton()->GetMushroomVariant(index), at.variant);
        // inside the block, which has jumped 800 / 60 pixels: 136 - 13.33 cut to 122, and 14 deeper
        const DOUBLE2 start(place.x, static_cast<int>(place.y - 800 * dt) + 14);
        EXPECT_EQ(EntityList::GetSingleton()->GetPosition(index), start);
        EXPECT_EQ(blocks->GetType(at.block), blockTypeUsed) << "even a small hero empties it";
    }
}

TEST_F(Blocks, TheBrickOfManyCoinsEndsForABigHeroOnly) {
    constexpr int coinBrick = 23;
    blocks->Tick(dt);
    for (int i = 0; i < 15; ++i) BumpUntilRest(coinBrick);
    EXPECT_EQ(HUD::GetSingleton()->GetCoins(), 15);
    BecomeForm(heroBig);
    for (int i = 0; i < 11; ++i) BumpUntilRest(coinBrick);
    EXPECT_EQ(HUD::GetSingleton()->GetCoins(), 26);
    EXPECT_EQ(blocks->GetType(coinBrick), blockTypeBroken);
}

} // namespace
