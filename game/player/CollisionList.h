#pragma once

#include "engine/MATRIX3X2.h"
#include "game/Singleton.h"

/// Finds contacts and what follows from them: of the hero with enemies, blocks, entities, pipes and the flag pole, of
/// the shelled enemy with the others, of enemies and entities with blocks. Bodies handle the level's outline
/// themselves. All boxes are in level pixels; an all-zero box touches nothing.
class CollisionList {
public:
    static CollisionList* GetSingleton() { return Singleton<CollisionList>::Get(); }
    virtual ~CollisionList() = default;
    /// All tests of a frame. They come before anything moves.
    void Tick(double deltaTime);
    /// Does nothing: contacts have no picture.
    void Paint(MATRIX3X2 /*matView*/) {}

    // The tests, in their order. Each asks for the hero's box once, when it starts.

    void CollideEnemiesVertical();
    void CollideEnemiesHorizontal();
    void CollideBlocksVertical();
    void CollideBlocksHorizontal();
    /// True if the hero touched one.
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
