#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"

class Bitmap;
class Pelko;
class StateReport;

/// What GetType answers.
enum EntityType : int { entityCoinBlock = 0, entityCoin = 1, entityFlower = 2, entityMushroom = 3, entityStar = 4 };

/// What a block holds, and what EntityList::AddEntity makes of it.
enum BlockContent : int {
    contentNothing = 0,
    contentCoin = 1,
    contentFlower = 2,
    contentMushroom = 3,
    contentStar = 4,
    contentCount
};

enum EntityState : int {
    entityIdle = 0,
    entityEmerging = 1, // rising out of its block
    entityActive = 2,
    entityGone = 3 // taken or finished: not drawn, not touchable
};

/// A harmless thing of the level: a coin or a power-up.
class EntityMaster {
public:
    /// Top-left corner in level pixels; each class keeps what it needs of these.
    EntityMaster(int /*x*/, int /*y*/, Bitmap* /*bitmapPtr*/) {}
    virtual ~EntityMaster() = default;
    virtual void Tick(double deltaTime) = 0;
    virtual void Paint(MATRIX3X2 matView) = 0;
    /// True if it is taken by this.
    virtual bool Take() = 0;
    /// Top-left corner of the picture.
    virtual DOUBLE2 GetPosition() = 0;
    virtual void PaintDebug(MATRIX3X2 matView) = 0;
    /// All zero when it cannot be touched.
    virtual RECT2 GetHitRect() = 0;
    /// What the class is worth. What the player really gets is decided by GiveTo.
    virtual int GetScore() = 0;
    /// The hero has touched it; a coin can then not be touched again.
    virtual void Collect() = 0;
    virtual void Move(DOUBLE2 delta) = 0;
    /// Stops the chosen directions.
    virtual void ResetVelocity(bool horizontal, bool vertical) = 0;
    /// An EntityType.
    virtual int GetType() = 0;
    /// An EntityState.
    virtual void SetState(int state) = 0;
    /// Which kind of mushroom; 0 for everything else.
    virtual int GetVariant() = 0;
    /// Gives the hero who touches it what it is good for, and the player points and sound.
    virtual void GiveTo(Pelko& hero) = 0;
    virtual void Report(StateReport& report) const = 0;
};
