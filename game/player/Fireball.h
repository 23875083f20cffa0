#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/entities/SpriteStrip.h"

class Bitmap;
class StateReport;

/// A fireball of the hero. It bounces on the ground, rolls along blocks, and explodes at walls and at the first enemy
/// that it touches. It ends after the explosion, when it is too old, or when it is too far from the hero.
class Fireball {
public:
    /// Starts with its centre at `position`, flies in the hero's direction, and plays its sound. Borrows both bitmaps:
    /// a strip of four cells for the flying ball and one of three cells for the explosion.
    Fireball(DOUBLE2 position, Bitmap* fireballBitmapPtr, Bitmap* explosionBitmapPtr);
    virtual ~Fireball() = default;

    void Tick(double deltaTime);
    void Paint(MATRIX3X2 matView);

    /// Whether it has ended: it no longer moves and is not drawn.
    bool IsDone() const { return state == done; }
    bool IsExploding() const { return state == exploding; }
    /// The centre.
    DOUBLE2 GetPosition() const { return position; }
    void Report(StateReport& report) const;

private:
    enum State : int { flying = 0, exploding = 1, done = 2 };

    void EndWhenOldOrFar();
    void TickFlying(double deltaTime);
    void TickExploding();
    void BounceOffGround();
    void ExplodeAtWall();
    void ExplodeAtEnemy();
    void RollOnBlocks();
    void Move(double deltaTime);
    void Explode();
    bool Touches(DOUBLE2 otherPosition, RECT2 otherBox) const;
    RECT2 BoxAt(DOUBLE2 centre) const;

    SpriteStrip flyingStrip;
    SpriteStrip explosionStrip;
    int tickCounter = 0;
    int frame = 0;
    int direction; // -1 left, +1 right
    int width;     // of the box: that of the whole strip, so it hits an enemy before the picture reaches it
    State state = flying;
    DOUBLE2 position;
    DOUBLE2 velocity; // pixels per tick
    RECT2 hitRect;    // where it was before its last move
};
