#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/entities/SpriteStrip.h"

class Bitmap;
class StateReport;

/// What the hero throws: it bounces over the ground, rolls along blocks, explodes at walls and at the first enemy it
/// touches. It ends after the explosion, when it gets too old, and when it is too far from the hero.
class Fireball {
public:
    /// Starts with its centre at `position`, flies where the hero faces, and is heard. Borrows both strips of cells:
    /// four of the flying ball, three of the explosion.
    Fireball(DOUBLE2 position, Bitmap* fireballBitmapPtr, Bitmap* explosionBitmapPtr);
    virtual ~Fireball() = default;

    void Tick(double deltaTime);
    void Paint(MATRIX3X2 matView);

    /// Nothing moves or shows any more.
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
    int width;     // of the box: the whole strip's, so that it reaches an enemy before the picture does
    State state = flying;
    DOUBLE2 position;
    DOUBLE2 velocity; // pixels per tick
    RECT2 hitRect;    // one move behind the position
};
