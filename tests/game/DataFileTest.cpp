// The level's own files, well and badly written.

#include "game/entities/EnemyList.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr int enemySlots = 15;

/// Type and place of what stands in the slots, up to the last one that is taken.
std::vector<std::pair<int, DOUBLE2>> EnemiesOf(std::string const& file) {
    Scene scene;
    scene.enemyFile = file;
    const Playground play(scene);
    std::vector<std::pair<int, DOUBLE2>> slots;
    for (int i = 0; i < enemySlots; ++i)
        slots.emplace_back(EnemyList::GetSingleton()->GetType(i), EnemyList::GetSingleton()->GetPosition(i));
    while (!slots.empty() && slots.back().first == -1) slots.pop_back();
    return slots;
}

} // namespace

TEST(HeroFile, TheLastCompleteRecordWins) {
    const std::string big = HeroAt({50, 150}, 1);
    struct {
        std::string text;
        DOUBLE2 position;
        int form;
    } const cases[] = {
        {big, {50, 150}, 1},
        {"PositionX:     50\r\nPositionY:     150\r\n\r\nFormState:     1\r\n", {50, 150}, 1},
        {big + "\n\n" + HeroAt({70, 80}, 2), {70, 80}, 2},
        {"FormState:     1\nPositionX:     50\nPositionY:     150\n", {0, 0}, 0},    // the form closes a record
        {HeroAt({0, 150}, 2) + "PositionX:     60\nFormState:     1", {60, 150}, 1}, // what was not used counts on
        {big + "PositionX:    7\npositionX:     7\nPositionX :    7\nPositionY:     7\nFormState:     2\n",
         {50, 150},
         1},
        {"PositionX:     +48 px\nPositionY:     -7.9\nFormState:     \t2\n", {48, -7}, 2},
        {"PositionX:     60\nPositionX:     99999999999\nPositionX:     \nPositionX:     x5\nPositionX:\n" +
             big.substr(18),
         {60, 150},
         1},
        {big + std::string("\0\xFF\x80 binary\n", 11) + std::string(100000, 'x'), {50, 150}, 1},
        {"", {0, 0}, 0},
    };
    for (const auto& [text, position, form] : cases) {
        SCOPED_TRACE(text.substr(0, 200));
        Scene scene;
        scene.heroFile = text;
        Playground play(scene);
        EXPECT_EQ(play.Hero().GetPosition(), position);
        EXPECT_EQ(play.Hero().GetFormState(), form);
        EXPECT_THAT(play.TakeMessages(), IsEmpty());
    }
}

TEST(EnemyFile, FillsTheSlotsInItsOrder) {
    EXPECT_THAT(EnemiesOf(EnemyAt({736, 192}, 0) + "\n" + EnemyAt({800, 180}, 1) + EnemyAt({900, 192}, 2) +
                          "Type:          0\n" + EnemyAt({950, 190}, 0)),
                ElementsAre(Pair(0, DOUBLE2(736, 192)), Pair(1, DOUBLE2(800, 180)), Pair(0, DOUBLE2(950, 190))));
    // a record without a whole position waits for the rest
    EXPECT_THAT(EnemiesOf(EnemyAt({0, 192}, 0) + "PositionX:     50\nType:          1\r\n"),
                ElementsAre(Pair(1, DOUBLE2(50, 192))));
    EXPECT_THAT(EnemiesOf("PositionY:     7\nPositionX:     5\nPositionX:     6\nType:          0 walks\n"),
                ElementsAre(Pair(0, DOUBLE2(6, 7))));
    EXPECT_THAT(EnemiesOf(""), IsEmpty());

    std::string tooMany;
    for (int i = 1; i <= 10000; ++i) tooMany += EnemyAt({1.0 * i, 100});
    ASSERT_EQ(EnemiesOf(tooMany).size(), enemySlots);
    EXPECT_EQ(EnemiesOf(tooMany).back().second, DOUBLE2(15, 100));
}

TEST(LevelFiles, WithoutThemTheGameGoesOn) {
    for (const char* const outline : {"", "M 0 200 H 600 V", "M x y", "L 10 10"}) {
        SCOPED_TRACE(outline);
        Playground play({outline, 600, std::nullopt, std::nullopt});
        play.Run(1);
        std::vector<std::wstring> messages = play.TakeMessages();
        EXPECT_THAT(messages, testing::IsSupersetOf({L"File <Data_Pelko.txt> Could not be found!",
                                                     L"File <Data_Enemies.txt> Could not be found!"}));
        for (int i = 0; i < enemySlots; ++i) { // an empty slot takes every order
            EnemyList::GetSingleton()->Kill(i);
            EnemyList::GetSingleton()->Stomp(i);
            EnemyList::GetSingleton()->SetMovingLeft(i, true);
        }
        EXPECT_EQ(play.Hero().GetPosition().x, 8.0);
        EXPECT_EQ(play.Hero().GetFormState(), 0);
        play.Run(200);
        EXPECT_TRUE(play.Hero().IsAlive()) << "he falls, and starts again";
    }
}
