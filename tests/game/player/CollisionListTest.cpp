#include "game/player/CollisionList.h"
#include "game/HUD.h"
#include "game/Level.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "game/player/Pelko.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::Contains;

constexpr double dt = 1.0 / 60.0;

/// Contacts one at a time: things are put somewhere, then the resolver runs once.
class Contacts : public testing::Test {
protected:
    /// One Skreel at (600, 100), one at (800, 100), a Dorvak at (700, 100), all asleep.
    static constexpr int skreel = 0;
    static constexpr int dorvak = 2;

    void PutHero(double x, double y) { pelko->SetPosition(x, y); }
    void Resolve() { CollisionList::GetSingleton()->Tick(dt); }
    int Score() const { return HUD::GetSingleton()->GetScore(); }

    Playground play{
        Scene{Floor(3392), 3392, HeroAt(50, 184), EnemyAt(600, 100) + EnemyAt(800, 100) + EnemyAt(700, 100, 1)}};
    Pelko* pelko = Pelko::GetSingleton();
    EnemyList* enemies = EnemyList::GetSingleton();
    EntityList* entities = EntityList::GetSingleton();
    BlockList* blocks = BlockList::GetSingleton();
};

TEST_F(Contacts, LandingOnAnEnemyStompsItAndLiftsTheHero) {
    PutHero(600, 78); // feet at 94, the box from 92 to 108
    Resolve();
    EXPECT_EQ(pelko->GetPosition(), DOUBLE2(600, 76));
    EXPECT_EQ(Score(), 100);
    EXPECT_FALSE(HasBox(enemies->GetHitRect(skreel)));
    EXPECT_TRUE(pelko->IsAlive());
}

TEST_F(Contacts, AnEnemyOnTheHeadKillsEvenABigHeroUnderAStar) {
    pelko->SetFormState(heroBig);
    pelko->ActivateStar();
    PutHero(600, 104);
    CollisionList::GetSingleton()->CollideEnemiesVertical();
    pelko->Tick(dt);
    EXPECT_FALSE(pelko->IsAlive());
}

TEST_F(Contacts, AnEnemyAtTheSideHurtsAndUnderAStarIsKilled) {
    for (const double side : {-15.0, 15.0}) {
        SCOPED_TRACE(side);
        pelko->SetAlive(true);
        PutHero(600 + side, 100 - 8);
        CollisionList::GetSingleton()->CollideEnemiesHorizontal();
        pelko->Tick(dt);
        EXPECT_FALSE(pelko->IsAlive());
    }
    pelko->SetAlive(true);
    pelko->ActivateStar();
    PutHero(615, 92);
    Resolve();
    EXPECT_FALSE(HasBox(enemies->GetHitRect(skreel)));
    PutHero(715, 92);
    Resolve();
    EXPECT_EQ(Score(), 100 + 400);
    EXPECT_TRUE(pelko->IsAlive());
}

TEST_F(Contacts, AnEnemyThatCoversTheHeroDoesNothing) {
    // the enemy's box reaches over both edges of the hero's zero-width line and, in y, over his 16 pixels
    PutHero(700, 92); // the Dorvak is 24 pixels high: 88 to 112
    CollisionList::GetSingleton()->CollideEnemiesVertical();
    pelko->Tick(dt);
    EXPECT_TRUE(pelko->IsAlive());
    EXPECT_EQ(Score(), 0);
}

TEST_F(Contacts, AKickedShellSlidesTheWayTheHeroFaces) {
    for (const bool faceRight : {true, false}) {
        SCOPED_TRACE(faceRight);
        const int arrow = faceRight ? VK_RIGHT : VK_LEFT;
        play.Hold(arrow).Paint().LetGo(arrow);
        enemies->ResetVelocity(dorvak, true, true);
        const double x = enemies->GetPosition(dorvak).x;
        // first into the shell (if it walks), then the kick; a moving shell only turns
        for (int stomp = 0; stomp < 2; ++stomp) {
            const RECT2 box = enemies->GetHitRect(dorvak);
            PutHero((box.left + box.right) / 2, box.top - 14);
            CollisionList::GetSingleton()->CollideEnemiesVertical();
        }
        enemies->Tick(dt);
        EXPECT_NEAR(enemies->GetPosition(dorvak).x - x, (faceRight ? 8000 : -8000) * dt * dt, 1e-9);
    }
    EXPECT_EQ(Score(), 4 * 400);
}

TEST_F(Contacts, AHurtHeroPassesThroughEverythingWhileInvulnerable) {
    pelko->SetFormState(heroBig);
    pelko->Hurt();
    pelko->Tick(dt);
    ASSERT_TRUE(pelko->IsInvulnerable());
    for (const DOUBLE2 place : {DOUBLE2(600, 78), DOUBLE2(88, 298), DOUBLE2(264, 150)}) {
        PutHero(place.x, place.y);
        Resolve();
        EXPECT_EQ(pelko->GetPosition(), place);
    }
    EXPECT_EQ(Score(), 0);
}

TEST_F(Contacts, BlocksCarryTheHeroAndPushHimOutAtTheirSides) {
    PutHero(264, 136 - 13); // feet 3 pixels inside block 0
    Resolve();
    EXPECT_EQ(pelko->GetPosition(), DOUBLE2(264, 120));
    for (const int side : {-1, 1}) {
        PutHero(264 + side * 14, 138); // 2 of his 16 pixels inside
        CollisionList::GetSingleton()->CollideBlocksHorizontal();
        EXPECT_EQ(pelko->GetPosition(), DOUBLE2(264 + side * 16, 138));
        CollisionList::GetSingleton()->CollideBlocksHorizontal();
        EXPECT_EQ(pelko->GetPosition(), DOUBLE2(264 + side * 16, 138)) << "a touching edge pushes nobody";
    }
}

TEST_F(Contacts, ACoinIsTakenOnceAndNeverByADeadHero) {
    pelko->SetAlive(false);
    pelko->Tick(dt);
    PutHero(88, 298);
    EXPECT_FALSE(CollisionList::GetSingleton()->CollideEntities());
    pelko->SetAlive(true);
    PutHero(88, 298);
    EXPECT_TRUE(CollisionList::GetSingleton()->CollideEntities());
    EXPECT_FALSE(CollisionList::GetSingleton()->CollideEntities());
    EXPECT_EQ(HUD::GetSingleton()->GetCoins(), 1);
    EXPECT_EQ(Score(), 200);
}

TEST_F(Contacts, NothingTouchesWhatHasNoBox) {
    // a collected coin, a dead hero and a broken brick all have the box that means none
    for (int i = 0; i < entities->GetSize(); ++i) entities->Collect(i);
    pelko->SetAlive(false);
    pelko->Tick(dt);
    PutHero(0, 0);
    const std::size_t lines = play.DebugLines().size();
    Resolve();
    EXPECT_EQ(play.DebugLines().size(), lines);
}

TEST_F(Contacts, PowerUpsActOnTheFormTheyAreMeantFor) {
    struct Case {
        int content;
        int variant;
        int form;
        bool grows;
    };
    for (const Case& at : {Case{contentMushroom, 0, heroSmall, true}, Case{contentMushroom, 1, heroSmall, false},
                           Case{contentMushroom, 0, heroBig, false}, Case{contentFlower, 0, heroSmall, false},
                           Case{contentFlower, 0, heroBig, true}, Case{contentFlower, 0, heroFire, false}}) {
        SCOPED_TRACE(testing::Message() << "content " << at.content << " form " << at.form);
        pelko->SetAlive(true);
        pelko->SetFormState(at.form);
        const int index = entities->GetSize();
        entities->AddEntity(DOUBLE2(1000, 0), at.content, at.variant);
        for (int i = 0; i < 60; ++i) entities->Tick(dt); // out of the block
        const DOUBLE2 place = entities->GetPosition(index);
        PutHero(place.x + 8, place.y);
        const int score = Score();
        EXPECT_TRUE(CollisionList::GetSingleton()->CollideEntities());
        EXPECT_EQ(Score() - score, 1000);
        for (int i = 0; i < 2; ++i) pelko->Tick(dt);
        EXPECT_EQ(pelko->IsInvulnerable(), at.grows);
        for (int i = 0; i < 100; ++i) pelko->Tick(dt);
        EXPECT_EQ(pelko->GetFormState(), at.form + at.grows);
        entities->Tick(dt);
        EXPECT_FALSE(HasBox(entities->GetHitRect(index)));
    }
    EXPECT_FALSE(pelko->IsStarActive());
    entities->AddEntity(DOUBLE2(1000, 0), contentStar, 0);
    PutHero(1008, 14);
    CollisionList::GetSingleton()->CollideEntities();
    EXPECT_TRUE(pelko->IsStarActive());
}

TEST_F(Contacts, APipeTakesTheHeroOnlyWhileItsKeyIsHeld) {
    struct Case {
        RECT2 trigger;
        int key;
        DOUBLE2 step; // of the scripted move
        std::wstring line;
    };
    for (const Case& at : {Case{Level::GetSingleton()->GetPipeEntryRectVertical(), VK_DOWN, DOUBLE2(0, 35 * dt),
                                L"AABB - Pelko + Pipe Enterance\n"},
                           Case{Level::GetSingleton()->GetPipeEntryRectHorizontal(), VK_RIGHT, DOUBLE2(18 * dt, 0),
                                L"AABB - Pelko + Pipe Exit\n"}}) {
        SCOPED_TRACE(at.key);
        const DOUBLE2 place((at.trigger.left + at.trigger.right) / 2, at.trigger.bottom - 16);
        PutHero(place.x, place.y);
        Resolve();
        EXPECT_THAT(play.DebugLines(), Contains(at.line));
        pelko->Tick(dt);
        EXPECT_NE(pelko->GetPosition(), place + at.step);
        PutHero(place.x, place.y);
        play.Hold(at.key);
        Resolve();
        pelko->ResetVelocity(true, true);
        pelko->Tick(dt);
        EXPECT_EQ(pelko->GetPosition(), place + at.step);
        play.LetGo(at.key);
        pelko->ResetToStart(); // ends the move
    }
}

TEST_F(Contacts, TheFlagPoleLowersTheFlag) {
    PutHero(3160, 100);
    Resolve();
    for (int i = 0; i < 70; ++i) Level::GetSingleton()->Tick(dt);
    EXPECT_FALSE(Level::GetSingleton()->IsFlagDown());
    PutHero(3168, 100); // his right edge is at the middle of the pole
    Resolve();
    for (int i = 0; i < 70; ++i) Level::GetSingleton()->Tick(dt);
    EXPECT_TRUE(Level::GetSingleton()->IsFlagDown());
}

TEST_F(Contacts, EnemiesAndPowerUpsStandOnBlocks) {
    // block 0 is at (256, 136)
    enemies->Move(skreel, DOUBLE2(264 - 600, 130 - 100)); // its feet 2 pixels inside
    entities->AddEntity(DOUBLE2(256, 136 - 14 - 15), contentStar, 0);
    Resolve();
    EXPECT_EQ(enemies->GetPosition(skreel), DOUBLE2(264, 128));
    EXPECT_EQ(entities->GetPosition(entities->GetSize() - 1), DOUBLE2(256, 120));
}

TEST(ShellContacts, TheLastSlotKnocksOutWhatItTouchesInTheOverworld) {
    Scene scene = PlainScene();
    for (int i = 0; i < EnemyList::shellSlot; ++i) *scene.enemyFile += EnemyAt(600 + 20 * i, 120);
    *scene.enemyFile += EnemyAt(610, 120, enemyDorvak);
    const Playground play(scene);
    EnemyList* enemies = EnemyList::GetSingleton();
    for (const double y : {50.0, 224.0, 120.0}) { // at the ends of the overworld it does nothing any more
        EXPECT_EQ(HUD::GetSingleton()->GetScore(), 0);
        for (int i = 0; i < EnemyList::slotCount; ++i) enemies->Move(i, DOUBLE2(0, y - enemies->GetPosition(i).y));
        CollisionList::GetSingleton()->CollideShellWithEnemies();
    }
    EXPECT_EQ(HUD::GetSingleton()->GetScore(), 2 * 200);
    for (int i = 0; i < EnemyList::slotCount; ++i) EXPECT_EQ(HasBox(enemies->GetHitRect(i)), i > 1) << i;
}

} // namespace
