#include "game/entities/EnemyList.h"
#include "game/player/Pelko.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using Slots = std::vector<std::pair<int, DOUBLE2>>;

/// Type and place of what stands in the slots, up to the last one that is taken.
Slots SlotsOf(std::string const& enemyFile) {
    Scene scene = PlainScene();
    scene.enemyFile = enemyFile;
    const Playground play(scene);
    EnemyList* enemies = EnemyList::GetSingleton();
    Slots slots;
    for (int i = 0; i < EnemyList::slotCount; ++i) slots.emplace_back(enemies->GetType(i), enemies->GetPosition(i));
    while (!slots.empty() && slots.back().first == -1) slots.pop_back();
    return slots;
}

TEST(EnemyFile, FillsTheSlotsInItsOrder) {
    EXPECT_THAT(
        SlotsOf(EnemyAt(736, 192, 0) + "\n" + EnemyAt(800, 180, 1) + EnemyAt(900, 192, 2) + EnemyAt(950, 190, 0)),
        ElementsAre(Pair(0, DOUBLE2(736, 192)), Pair(1, DOUBLE2(800, 180)), Pair(0, DOUBLE2(950, 190))));
}

TEST(EnemyFile, ARecordWithoutAWholePositionWaitsForTheRest) {
    EXPECT_THAT(SlotsOf(EnemyAt(0, 192, 0) + "PositionX:     50\nType:          1\n"),
                ElementsAre(Pair(1, DOUBLE2(50, 192))));
    EXPECT_THAT(SlotsOf("PositionY:     7\nPositionX:     5\nPositionX:     6\nType:          0\n"),
                ElementsAre(Pair(0, DOUBLE2(6, 7))));
}

TEST(EnemyFile, PassesOverWhatIsNoField) {
    EXPECT_THAT(SlotsOf("PositionX:    9\npositionX:     9\nSpeed:         9\nPositionX:     \nPositionX:     nine\n"
                        "PositionX:     99999999999999\n\xFF\xFE\x01 binary and longer\nType:\nPos\n"
                        "PositionX:     +42abc\nPositionY:       7\nType:          0 walks\nPositionX:     3"),
                ElementsAre(Pair(0, DOUBLE2(42, 7))));
    EXPECT_THAT(SlotsOf(""), IsEmpty());
    EXPECT_THAT(SlotsOf("PositionX:     5\r\nPositionY:     6\r\nType:          1\r\n"),
                ElementsAre(Pair(1, DOUBLE2(5, 6))));
}

TEST(EnemyFile, NeverPlacesMoreThanTheSlotsHold) {
    std::string file;
    for (int i = 1; i <= 10000; ++i) file += EnemyAt(i, 100);
    const Slots slots = SlotsOf(file);
    ASSERT_EQ(slots.size(), 15U);
    EXPECT_EQ(slots.back().second, DOUBLE2(15, 100));
}

TEST(EnemyFile, WithoutItThereIsAMessageAndNoEnemy) {
    Scene scene = PlainScene();
    scene.enemyFile.reset();
    const Playground play(scene);
    EnemyList* enemies = EnemyList::GetSingleton();
    EXPECT_THAT(play.Boxes(), ElementsAre(L"File <Data_Enemies.txt> Could not be found!"));
    for (int i = 0; i < EnemyList::slotCount; ++i) {
        enemies->Kill(i); // an empty slot takes every order
        enemies->Stomp(i);
        enemies->SetMovingLeft(i, true);
        EXPECT_EQ(enemies->GetType(i), -1);
    }
    enemies->Tick(1.0 / 60.0);
}

} // namespace
