#include "tools/level_check/PlayCheck.h"

#include "engine/GameEngine.h"
#include "game/ChosenLevel.h"
#include "game/Handy.h"
#include "game/Level.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "game/player/CollisionList.h"
#include "game/player/Pelko.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace {

constexpr double frame = 1.0 / 60.0;
constexpr int leftArrow = 37;
constexpr int upArrow = 38;
constexpr int rightArrow = 39;
constexpr int never = -1;
constexpr int longestTry = 150; // ticks
constexpr double fellOutY = 460.0;
constexpr int placeSize = 12; // places closer together than this are one
constexpr int smallHeight = 16;

bool Touch(RECT2 a, RECT2 b) { return Handy::GetSingleton()->Touch(a, b); }

} // namespace

void PlayCheck::Run(Findings& findings) {
    Prepare();
    Explore(Pelko::GetSingleton()->GetPosition());
    if (pipeEntered) Explore(chosenLevel.room.start);

    const BlockList& blocks = *BlockList::GetSingleton();
    for (int i = 0; i < BlockList::blockCount; ++i) {
        if (!bumped[static_cast<std::size_t>(i)]) {
            const DOUBLE2 at = blocks.GetPosition(i);
            findings.Add("block " + std::to_string(i) + " cannot be bumped",
                         RECT2(at.x, at.y, at.x + 16.0, at.y + 16.0));
        }
    }
    const EntityList& entities = *EntityList::GetSingleton();
    for (std::size_t i = 0; i < collected.size(); ++i) {
        if (!collected[i]) {
            const DOUBLE2 at = entities.GetPosition(static_cast<int>(i));
            findings.Add("coin " + std::to_string(i) + " cannot be collected",
                         RECT2(at.x, at.y, at.x + 16.0, at.y + 16.0));
        }
    }
    const Level& level = *Level::GetSingleton();
    if (!flagTouched) findings.Add("the flag cannot be reached", level.GetFlagpoleRect());
    const RECT2 wayDown = level.GetPipeEntryRectVertical(); // a level may do without pipes
    const RECT2 wayOut = level.GetPipeEntryRectHorizontal();
    if (HasBox(wayDown) && !pipeEntered) findings.Add("nobody can stand on the pipe down", wayDown);
    if (HasBox(wayOut) && !pipeLeft) findings.Add("nobody can stand at the pipe out of the room below", wayOut);
    ReportPits(findings);
}

/// The hero plays alone: enemies that fall out of the level are removed.
void PlayCheck::Prepare() {
    EnemyList& enemies = *EnemyList::GetSingleton();
    for (int i = 0; i < EnemyList::slotCount; ++i) enemies.Move(i, DOUBLE2(0.0, 1000.0));
    enemies.Tick(0.0);
    for (int i = 0; i < BlockList::blockCount; ++i) blockRestY.push_back(BlockList::GetSingleton()->GetPosition(i).y);
    bumped.assign(BlockList::blockCount, false);
    collected.assign(static_cast<std::size_t>(EntityList::GetSingleton()->GetSize()), false);
}

void PlayCheck::PlaceHero(DOUBLE2 position) {
    Pelko& hero = *Pelko::GetSingleton();
    PressKeys(0, false);
    hero.ResetToStart(); // ends scripted moves
    hero.SetAlive(true);
    hero.SetState(heroStanding);
    hero.SetFormState(heroSmall);
    hero.SetPosition(position.x, position.y);
}

void PlayCheck::PressKeys(int direction, bool jump) {
    desktop.SetKey(leftArrow, direction < 0);
    desktop.SetKey(rightArrow, direction > 0);
    desktop.SetKey(upArrow, jump);
}

void PlayCheck::Tick() {
    CollisionList::GetSingleton()->Tick(frame);
    LookAround();
    Pelko::GetSingleton()->Tick(frame);
    BlockList::GetSingleton()->Tick(frame);
}

/// Notes the effects of this tick's contacts, and removes power-ups from blocks before they change the hero.
void PlayCheck::LookAround() {
    for (std::size_t i = 0; i < bumped.size(); ++i) {
        if (BlockList::GetSingleton()->GetPosition(static_cast<int>(i)).y < blockRestY[i]) bumped[i] = true;
    }
    const EntityList& entities = *EntityList::GetSingleton();
    for (std::size_t i = 0; i < collected.size(); ++i) {
        if (!HasBox(entities.GetHitRect(static_cast<int>(i)))) collected[i] = true;
    }
    if (entities.GetSize() > static_cast<int>(collected.size())) {
        Singleton<EntityList>::Destroy();
        EntityList::GetSingleton()->CreateCoins();
    }

    const Level& level = *Level::GetSingleton();
    const Pelko& hero = *Pelko::GetSingleton();
    if (Touch(hero.GetHitRectHorizontal(), level.GetFlagpoleRect())) flagTouched = true;
    if (Touch(hero.GetHitRectVertical(), level.GetPipeEntryRectVertical())) pipeEntered = true;
    if (Touch(hero.GetHitRectVertical(), level.GetPipeEntryRectHorizontal())) pipeLeft = true;
}

void PlayCheck::Explore(DOUBLE2 start) {
    Try(start, {0, 0, never, 0, false});
    while (!open.empty()) {
        const DOUBLE2 place = open.begin()->second;
        open.erase(open.begin());
        for (const int direction : {-1, +1}) {
            Try(place, {direction, 0, never, 9, false});
            Try(place, {direction, 0, never, 40, false});
            for (const int jumpTick : {0, 20, 45}) {
                Try(place, {direction, 0, jumpTick, longestTry, false});
                Try(place, {direction, 0, jumpTick, jumpTick + 18, false});
                Try(place, {direction, 0, jumpTick, jumpTick + 18, true});
            }
            for (const int startTick : {8, 20}) Try(place, {direction, startTick, 0, longestTry, false});
        }
        Try(place, {0, 0, 0, 0, false});
    }
}

/// Plays one try from a standstill. If the hero ends it standing, that is a new place to play from.
void PlayCheck::Try(DOUBLE2 start, const Moves& moves) {
    PlaceHero(start);
    const Pelko& hero = *Pelko::GetSingleton();
    int still = 0;
    DOUBLE2 before = start;
    for (int tick = 0; tick < longestTry; ++tick) {
        const bool held = tick >= moves.startTick && tick < moves.turnTick;
        const bool back = moves.turnsBack && tick >= moves.turnTick && tick < moves.turnTick + 20;
        const bool over = moves.jumpTick != never && tick > moves.jumpTick + 60; // come to rest after the landing
        PressKeys(over   ? 0
                  : held ? moves.direction
                  : back ? -moves.direction
                         : 0,
                  tick == moves.jumpTick || tick == moves.jumpTick + 1);
        Tick();
        if (!hero.IsAlive() || hero.GetPosition().y > fellOutY) return;
        const DOUBLE2 now = hero.GetPosition();
        still = now == before ? still + 1 : 0;
        before = now;
        if (still > 4 && tick > std::max(moves.jumpTick, moves.startTick) + 2) break;
    }
    if (still == 0) return;
    const std::pair<int, int> place(static_cast<int>(std::floor(before.x / placeSize)),
                                    static_cast<int>(std::round(before.y / 8.0)));
    if (!seen.emplace(place, true).second) return;
    open.emplace(place, before);
}

int PlayCheck::GroundAt(int x) const {
    int y = map.height / 2;
    while (y > 0 && map.IsSolid(x, y - 1)) --y;
    return y;
}

std::vector<PlayCheck::Pit> PlayCheck::FindPits() const {
    std::vector<Pit> pits;
    for (int x = 0; x < map.width; ++x) {
        if (map.IsSolid(x, map.height - 1)) continue;
        int right = x;
        while (right < map.width && !map.IsSolid(right, map.height - 1)) ++right;
        pits.push_back({x, right});
        x = right;
    }
    return pits;
}

/// Runs over the level ground before the pit and jumps at its edge.
bool PlayCheck::CanCross(const Pit& pit) {
    const int ground = GroundAt(pit.left - 1);
    int runUp = 8;
    while (runUp < 60 && GroundAt(pit.left - runUp - 9) == ground) ++runUp;
    const Pelko& hero = *Pelko::GetSingleton();
    for (int jumpX = pit.left - 8; jumpX <= pit.left + 5; ++jumpX) {
        PlaceHero(DOUBLE2(pit.left - runUp, ground - smallHeight));
        for (int tick = 0; tick < longestTry; ++tick) {
            PressKeys(+1, hero.GetPosition().x >= jumpX);
            Tick();
            if (hero.GetPosition().y > ground + 40.0 && hero.GetPosition().x < pit.right) break;
            if (hero.GetPosition().x > pit.right + 4.0) return true;
        }
    }
    return false;
}

void PlayCheck::ReportPits(Findings& findings) {
    constexpr int firstWidest = 32;
    constexpr int widest = 72;
    constexpr int roomRight = 300; // the underground room lies below everything left of here
    bool isFirst = true;
    for (const Pit& pit : FindPits()) {
        const int width = pit.right - pit.left;
        const int top = std::min(GroundAt(pit.left - 1), GroundAt(pit.right));
        const RECT2 place(pit.left, top, pit.right, map.height / 2.0);
        const auto report = [&](const std::string& fault) {
            findings.Add("the pit of " + std::to_string(width) + " pixels " + fault, place);
        };
        if (pit.left < roomRight) report("is above the room below");
        if (width > widest) report("is wider than " + std::to_string(widest));
        if (isFirst && width > firstWidest) report("is the first and wider than " + std::to_string(firstWidest));
        if (!CanCross(pit)) report("cannot be crossed by the small hero");
        isFirst = false;
    }
}
