// Random keys, the debug keys included, for a long time: whatever they do, the game stays in order.

#include "game/HUD.h"
#include "game/Level.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#include <malloc.h>
#define QUILLFEN_MONKEY_COUNTS_HEAP
#endif

namespace {

constexpr int gameTicks = 20000;
constexpr int lastGame = 9;
constexpr int warmUpTicks = 10000;

/// Bytes in use on the heap; 0 where a sanitizer keeps the heap.
std::size_t HeapBytes() {
#ifdef QUILLFEN_MONKEY_COUNTS_HEAP
    return mallinfo2().uordblks;
#else
    return 0;
#endif
}

bool IsFinite(DOUBLE2 point) { return std::isfinite(point.x) && std::isfinite(point.y); }

/// Presses and releases keys as it likes. The star switch stays off once the flag is down: there two tracks would take
/// turns on every tick.
class Monkey {
public:
    Monkey(Playground& playground, unsigned seed) : play(playground), random(seed), hurried(seed % 2 == 0) {}

    void Act() {
        if (hurried && !held[0] && Chance(5)) Toggle(0);
        if (Level::GetSingleton()->IsFlagDown() && starSwitch) Tap(VK_TAB);
        if (Chance(10)) Toggle(Chance(2) ? Below(arrowCount) : Below(held.size()));
        if (paused && Chance(20)) Tap('P'); // a pause is soon dull
        if (Chance(30)) Tap(VK_SPACE);
        if (Chance(hurried ? 1000 : 300)) Tap(debugKeys[Below(debugKeys.size())]);
    }

private:
    bool Chance(unsigned one) { return random() % one == 0; }
    std::size_t Below(std::size_t count) { return random() % count; }
    void Toggle(std::size_t key) {
        held[key] = !held[key];
        held[key] ? play.Hold(keys[key]) : play.LetGo(keys[key]);
    }
    void Tap(int key) {
        if (key == VK_TAB) {
            if (!starSwitch && Level::GetSingleton()->IsFlagDown()) return;
            starSwitch = !starSwitch;
        }
        if (key == 'P') paused = !paused;
        play.Tap(key);
    }

    static constexpr std::size_t arrowCount = 3; // the ones that count most come first
    static constexpr std::array<int, 13> keys = {
        VK_RIGHT,       VK_UP,          VK_LEFT,        VK_DOWN,        'W',           'A', 'S', 'D',
        VK_NUMPAD0 + 2, VK_NUMPAD0 + 4, VK_NUMPAD0 + 5, VK_NUMPAD0 + 6, VK_NUMPAD0 + 8};
    static constexpr std::array<int, 10> debugKeys = {'E', 'Q', 'O', 'U', 'I', VK_HOME, VK_END, VK_DELETE, VK_TAB, 'P'};
    Playground& play;
    std::mt19937 random; // the same numbers everywhere, unlike the library's distributions
    std::array<bool, keys.size()> held = {};
    bool hurried; // to the right, where the flag is
    bool starSwitch = false;
    bool paused = false;
};

/// What must hold after every tick.
class Order {
public:
    void Check(Playground const& play) {
        ASSERT_TRUE(IsFinite(play.Hero().GetPosition()));
        ASSERT_TRUE(IsFinite(play.Camera()));
        Follow(blocks, *BlockList::GetSingleton(), 44, true);
        Follow(enemies, *EnemyList::GetSingleton(), 15, false);
        Follow(entities, *EntityList::GetSingleton(), EntityList::GetSingleton()->GetSize(), false);
        const HUD& hud = *HUD::GetSingleton();
        ASSERT_GE(hud.GetScore(), score);
        ASSERT_GE(hud.GetCoins(), coins);
        score = hud.GetScore();
        coins = hud.GetCoins();
    }
    std::size_t EntityCount() const { return entities.size(); }

private:
    /// What has a slot keeps it until it is gone, and no slot is filled again; `changes` allows other types.
    template <typename List>
    static void Follow(std::vector<int>& types, List const& list, int count, bool changes) {
        ASSERT_GE(static_cast<std::size_t>(count), types.size());
        for (int i = 0; i < count; ++i) {
            const auto slot = static_cast<std::size_t>(i);
            const int type = list.GetType(i);
            if (slot == types.size()) types.push_back(type);
            ASSERT_TRUE(changes || type == types[slot] || type == gone) << "slot " << i << ": " << type;
            ASSERT_TRUE(IsFinite(list.GetPosition(i))) << "slot " << i;
            types[slot] = type;
        }
    }

    static constexpr int gone = -1;
    std::vector<int> blocks;
    std::vector<int> enemies;
    std::vector<int> entities;
    int score = 0;
    int coins = 0;
};

class MonkeyAtTheKeys : public testing::TestWithParam<int> {};

/// One game from its start, with keys of its own.
TEST_P(MonkeyAtTheKeys, KeepsTheGameInOrder) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    if (GetParam() > 0) GTEST_SKIP() << "one game is enough under a sanitizer";
#endif
    Playground play = Playground::InRealLevel();
    if (GetParam() == lastGame) play.Hero().SetPosition(3170, 100); // at the flag pole, which no monkey finds
    // The text of the debug view loads its library and fonts when it is drawn first, and that is no growth.
    play.Tap('E').Paint().Tap('E');
    Monkey monkey(play, static_cast<unsigned>(GetParam()));
    Order order;
    std::size_t bytesAtWarmUp = 0;
    std::size_t entitiesAtWarmUp = 0;
    for (int tick = 0; tick < gameTicks; ++tick) {
        monkey.Act();
        play.Run(1);
        if (tick % 100 == 0) play.Paint();
        order.Check(play);
        ASSERT_FALSE(HasFailure()) << "tick " << tick;
        ASSERT_TRUE(play.TakeMessages().empty());
        play.ForgetRecords();
        if (tick != warmUpTicks) continue;
        bytesAtWarmUp = HeapBytes();
        entitiesAtWarmUp = order.EntityCount();
    }
    // What blocks release stays in the list, by its rules; nothing else may grow.
    constexpr std::size_t bytesPerEntity = 300;
    constexpr std::size_t slack = 64 * 1024; // caches such as the glyphs of the debug text
    const std::size_t released = order.EntityCount() - entitiesAtWarmUp;
    EXPECT_LE(HeapBytes(), bytesAtWarmUp + released * bytesPerEntity + slack);
}

INSTANTIATE_TEST_SUITE_P(Game, MonkeyAtTheKeys, testing::Range(0, lastGame + 1));

} // namespace
