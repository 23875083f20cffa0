#pragma once

#include "engine/MATRIX3X2.h"
#include "game/Singleton.h"

/// Decides the contacts between the things of the level: the hero with enemies, blocks, entities, pipe mouths and the
/// flag pole; the shelled enemy with the others; enemies and entities with blocks. Contact with the level's outline is
/// not its business. All boxes are in level pixels; an all-zero box touches nothing.
class CollisionList {
public:
    static CollisionList* GetSingleton() { return Singleton<CollisionList>::Get(); }
    virtual ~CollisionList() = default;
    /// All tests of a frame, before anything moves.
    void Tick(double deltaTime);
    /// Contacts have no picture.
    void Paint(MATRIX3X2 /*matView*/) {}

    // The tests, in their order. Each takes the hero's box once, at its start.

    void CollideEnemiesVertical();
    void CollideEnemiesHorizontal();
    void CollideBlocksVertical();
    void CollideBlocksHorizontal();
    /// Whether the hero touched one.
    bool CollideEntities();
    void CollidePipeEntrance();
    void CollidePipeExit();
    void CollideFlagPole();
    void CollideShellWithEnemies();
    void CollideEnemiesWithBlocks();
    void CollideEntitiesWithBlocks();

private:
    friend class Singleton<CollisionList>;
    CollisionList() = default;
};
