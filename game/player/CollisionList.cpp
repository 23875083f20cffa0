#include "game/player/CollisionList.h"

#include "engine/GameEngine.h"
#include "game/Actions.h"
#include "game/ChosenLevel.h"
#include "game/HUD.h"
#include "game/Handy.h"
#include "game/Level.h"
#include "game/Sound.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "game/player/Pelko.h"

namespace {

bool Touch(RECT2 a, RECT2 b) { return Handy::GetSingleton()->Touch(a, b); }
bool AreNear(DOUBLE2 a, DOUBLE2 b) { return Handy::GetSingleton()->AreNear(a, b); }

/// Calls `act(index, overlap)` for every box of the list, 0 to `count` - 1, that touches `box`.
template <typename List, typename Action>
void ForEachTouching(RECT2 box, List* listPtr, int count, Action act) {
    for (int i = 0; i < count; ++i) {
        const RECT2 other = listPtr->GetHitRect(i);
        if (Touch(box, other)) act(i, Handy::GetSingleton()->GetIntersection(box, other));
    }
}

/// The same, but only for boxes whose position is near `position`.
template <typename List, typename Action>
void ForEachTouchingNear(DOUBLE2 position, RECT2 box, List* listPtr, int count, Action act) {
    for (int i = 0; i < count; ++i) {
        if (!AreNear(position, listPtr->GetPosition(i))) continue;
        const RECT2 other = listPtr->GetHitRect(i);
        if (Touch(box, other)) act(i, Handy::GetSingleton()->GetIntersection(box, other));
    }
}

/// At which end of the hero an overlap lies along an axis. It is at none if it covers him, lies inside him or has no
/// length.
enum class Side { none, low, high };

/// The hero reaches from `heroLow` to `heroHigh`, the overlap from `low` to `high`. Edges of the overlap are copies of
/// the hero's edges, so they can be compared for equality.
Side ContactSide(double heroLow, double heroHigh, double low, double high) {
    if (low > heroLow && high > heroLow && heroHigh > low && heroHigh == high) return Side::high;
    if (heroLow == low && high > heroLow && heroHigh > low && heroHigh > high) return Side::low;
    return Side::none;
}

/// Low is his left, high his right.
Side HorizontalSide(RECT2 hero, RECT2 overlap) {
    return ContactSide(hero.left, hero.right, overlap.left, overlap.right);
}

/// Low is his head, high his feet.
Side VerticalSide(RECT2 hero, RECT2 overlap) { return ContactSide(hero.top, hero.bottom, overlap.top, overlap.bottom); }

/// Puts thing `index` of the list, which overlaps a block, on top of the block.
template <typename List>
void LiftOntoBlock(List* listPtr, int index, RECT2 overlap) {
    listPtr->Move(index, DOUBLE2(0, -(overlap.bottom - overlap.top)));
    listPtr->ResetVelocity(index, false, true);
}

void StompEnemy(int index, RECT2 overlap) {
    Pelko* pelkoPtr = Pelko::GetSingleton();
    EnemyList* enemiesPtr = EnemyList::GetSingleton();
    pelkoPtr->ResetVelocity(false, true);
    pelkoPtr->Move(DOUBLE2(0, -(overlap.bottom - overlap.top)));
    pelkoPtr->StompBounce();
    Sound::GetSingleton()->PlaySound(effectKillEnemy, soundPlay, volumeUnchanged);
    enemiesPtr->Stomp(index);
    HUD::GetSingleton()->AddScore(enemiesPtr->GetPoints(index));
    if (enemiesPtr->IsTurnedByStomp(index)) enemiesPtr->SetMovingLeft(index, !pelkoPtr->IsFacingRight());
}

void BumpBlock(int index, RECT2 overlap) {
    Pelko* pelkoPtr = Pelko::GetSingleton();
    BlockList* blocksPtr = BlockList::GetSingleton();
    pelkoPtr->BumpHead();
    pelkoPtr->Move(DOUBLE2(0, overlap.bottom - overlap.top));
    const int type = blocksPtr->GetType(index);
    const bool isBreakable = type == blockTypeQuestion || type == blockTypeTreasure; // a small hero can break it too
    if (pelkoPtr->GetFormState() != heroSmall || isBreakable) blocksPtr->DamageBlock(index);
    blocksPtr->HitBlock(index);
    Sound::GetSingleton()->PlaySound(effectBlockBump, soundPlay, 100);
}

/// Starts the move through a pipe while the hero is on its strip and the player holds `action`; again on every tick.
void EnterPipe(RECT2 trigger, Action action, int move, char const* debugLine) {
    Pelko* pelkoPtr = Pelko::GetSingleton();
    if (!Touch(pelkoPtr->GetHitRectVertical(), trigger)) return;
    GameEngine::OutputDebugString(debugLine);
    if (!IsHeld(action)) return;
    pelkoPtr->StartAutoMove(move);
    Sound::GetSingleton()->PlaySound(effectPipe, soundPlay, 100);
}

} // namespace

void CollisionList::Tick(double) {
    if (!Pelko::GetSingleton()->IsInvulnerable()) {
        // Vertical before horizontal: a stomp comes before a touch from the side, a landing before a push.
        CollideEnemiesVertical();
        CollideEnemiesHorizontal();
        CollideBlocksVertical();
        CollideBlocksHorizontal();
        CollideEntities();
        CollidePipeEntrance();
        CollidePipeExit();
        CollideFlagPole();
        CollideShellWithEnemies();
    }
    CollideEnemiesWithBlocks();
    CollideEntitiesWithBlocks();
}

void CollisionList::CollideEnemiesVertical() {
    const RECT2 pelkoV = Pelko::GetSingleton()->GetHitRectVertical();
    ForEachTouching(pelkoV, EnemyList::GetSingleton(), EnemyList::slotCount, [pelkoV](int index, RECT2 move) {
        GameEngine::OutputDebugString("AABB - Pelko + Enemy - Vertical \n");
        switch (VerticalSide(pelkoV, move)) {
        case Side::high: StompEnemy(index, move); break;
        case Side::low: // it fell onto his head: that kills him in any form, even with star power
            Pelko::GetSingleton()->ResetVelocity(false, true);
            Pelko::GetSingleton()->SetAlive(false);
            break;
        case Side::none: break;
        }
    });
}

void CollisionList::CollideEnemiesHorizontal() {
    const RECT2 pelkoH = Pelko::GetSingleton()->GetHitRectHorizontal();
    EnemyList* enemiesPtr = EnemyList::GetSingleton();
    ForEachTouching(pelkoH, enemiesPtr, EnemyList::slotCount, [=](int index, RECT2 move) {
        GameEngine::OutputDebugString("AABB - Pelko + Enemy - Horizontal \n");
        if (Pelko::GetSingleton()->IsStarActive()) {
            enemiesPtr->Kill(index);
            HUD::GetSingleton()->AddScore(enemiesPtr->GetPoints(index));
        } else if (HorizontalSide(pelkoH, move) != Side::none) {
            Pelko::GetSingleton()->Hurt();
        }
    });
}

void CollisionList::CollideBlocksVertical() {
    const RECT2 pelkoV = Pelko::GetSingleton()->GetHitRectVertical();
    ForEachTouching(pelkoV, BlockList::GetSingleton(), BlockList::blockCount, [pelkoV](int index, RECT2 move) {
        GameEngine::OutputDebugString("AABB - Pelko + Block - Vertical \n");
        switch (VerticalSide(pelkoV, move)) {
        case Side::high:
            Pelko::GetSingleton()->ResetVelocity(false, true);
            Pelko::GetSingleton()->Move(DOUBLE2(0, -(move.bottom - move.top)));
            break;
        case Side::low: BumpBlock(index, move); break;
        case Side::none: break;
        }
    });
}

void CollisionList::CollideBlocksHorizontal() {
    const RECT2 pelkoH = Pelko::GetSingleton()->GetHitRectHorizontal();
    ForEachTouching(pelkoH, BlockList::GetSingleton(), BlockList::blockCount, [pelkoH](int, RECT2 move) {
        GameEngine::OutputDebugString("AABB - Pelko + Block - Horizontal \n");
        const double width = move.right - move.left;
        switch (HorizontalSide(pelkoH, move)) {
        case Side::high: Pelko::GetSingleton()->Move(DOUBLE2(-width, 0)); break;
        case Side::low: Pelko::GetSingleton()->Move(DOUBLE2(width, 0)); break;
        case Side::none: break;
        }
    });
}

bool CollisionList::CollideEntities() {
    bool result = false;
    Pelko* pelkoPtr = Pelko::GetSingleton();
    EntityList* entitiesPtr = EntityList::GetSingleton();
    ForEachTouchingNear(pelkoPtr->GetPosition(), pelkoPtr->GetHitRectHorizontal(), entitiesPtr, entitiesPtr->GetSize(),
                        [&result, pelkoPtr, entitiesPtr](int index, RECT2) {
                            result = true;
                            GameEngine::OutputDebugString("AABB - Pelko + Entity \n");
                            entitiesPtr->GiveTo(index, *pelkoPtr);
                            entitiesPtr->Collect(index);
                        });
    return result;
}

void CollisionList::CollidePipeEntrance() {
    EnterPipe(Level::GetSingleton()->GetPipeEntryRectVertical(), Action::goDown, heroSinksIntoPipe,
              "AABB - Pelko + Pipe Enterance\n");
}

void CollisionList::CollidePipeExit() {
    EnterPipe(Level::GetSingleton()->GetPipeEntryRectHorizontal(), Action::walkRight, heroWalksOutOfPipe,
              "AABB - Pelko + Pipe Exit\n");
}

void CollisionList::CollideFlagPole() {
    const RECT2 poleRect = Level::GetSingleton()->GetFlagpoleRect();
    const DOUBLE2 pelkoPos = Pelko::GetSingleton()->GetPosition();
    const DOUBLE2 polePos(poleRect.left, pelkoPos.y); // at his height, so only the horizontal distance counts
    if (!AreNear(polePos, pelkoPos) || !Touch(poleRect, Pelko::GetSingleton()->GetHitRectHorizontal())) return;
    Level::GetSingleton()->SetFlagReached();
    if (!Level::GetSingleton()->IsFlagDown()) Sound::GetSingleton()->PlaySound(effectFlag, soundPlay, 100);
}

void CollisionList::CollideShellWithEnemies() {
    constexpr int shellScore = 200;
    EnemyList* enemiesPtr = EnemyList::GetSingleton();
    const DOUBLE2 dorvakPos = enemiesPtr->GetPosition(EnemyList::shellSlot);
    const RECT2 dorvak = enemiesPtr->GetHitRect(EnemyList::shellSlot);
    if (dorvakPos.y <= chosenLevel.shellZone.top || dorvakPos.y >= chosenLevel.shellZone.bottom) return;
    ForEachTouchingNear(dorvakPos, dorvak, enemiesPtr, EnemyList::shellSlot, [=](int index, RECT2) {
        enemiesPtr->Kill(index);
        HUD::GetSingleton()->AddScore(shellScore);
        Sound::GetSingleton()->PlaySound(effectKillEnemy, soundPlay, 100);
    });
}

void CollisionList::CollideEnemiesWithBlocks() {
    EnemyList* enemiesPtr = EnemyList::GetSingleton();
    for (int i = 0; i < EnemyList::slotCount; ++i) {
        ForEachTouching(enemiesPtr->GetHitRect(i), BlockList::GetSingleton(), BlockList::blockCount,
                        [=](int, RECT2 move) { LiftOntoBlock(enemiesPtr, i, move); });
    }
}

void CollisionList::CollideEntitiesWithBlocks() {
    EntityList* entitiesPtr = EntityList::GetSingleton();
    for (int i = 0; i < entitiesPtr->GetSize(); ++i) {
        ForEachTouchingNear(entitiesPtr->GetPosition(i), entitiesPtr->GetHitRect(i), BlockList::GetSingleton(),
                            BlockList::blockCount, [=](int, RECT2 move) { LiftOntoBlock(entitiesPtr, i, move); });
    }
}
