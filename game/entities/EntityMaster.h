#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"

class Bitmap;
class Pelko;
class StateReport;

/// The result of GetType.
enum EntityType : int { entityCoinBlock = 0, entityCoin = 1, entityFlower = 2, entityMushroom = 3, entityStar = 4 };

/// What a block holds; EntityList::AddEntity makes an entity from it.
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
    entityGone = 3 // taken or finished: it is not drawn and cannot be touched
};

/// A harmless thing of the level: a coin or a power-up.
class EntityMaster {
public:
    /// `x`, `y` is the top-left corner in level pixels. Each class keeps the arguments that it needs.
    EntityMaster(int /*x*/, int /*y*/, Bitmap* /*bitmapPtr*/) {}
    virtual ~EntityMaster() = default;
    virtual void Tick(double deltaTime) = 0;
    virtual void Paint(MATRIX3X2 matView) = 0;
    /// Takes a mushroom away and returns true; does nothing for other entities. The game does not use it.
    virtual bool Take() = 0;
    /// Top-left corner of the picture.
    virtual DOUBLE2 GetPosition() = 0;
    virtual void PaintDebug(MATRIX3X2 matView) = 0;
    /// All zero when it cannot be touched.
    virtual RECT2 GetHitRect() = 0;
    /// A number for the class. The points that the player gets are in GiveTo.
    virtual int GetScore() = 0;
    /// The hero has touched it. A coin cannot be touched again.
    virtual void Collect() = 0;
    virtual void Move(DOUBLE2 delta) = 0;
    /// Stops the chosen directions.
    virtual void ResetVelocity(bool horizontal, bool vertical) = 0;
    /// An EntityType.
    virtual int GetType() = 0;
    /// An EntityState.
    virtual void SetState(int state) = 0;
    /// The variant of a mushroom; 0 for other entities.
    virtual int GetVariant() = 0;
    /// What happens when the hero touches it: to him, to the points, and which sound plays.
    virtual void GiveTo(Pelko& hero) = 0;
    virtual void Report(StateReport& report) const = 0;
};
