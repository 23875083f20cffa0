#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"

class Bitmap;
class StateReport;

/// The result of GetType, and the Type in the enemy file.
enum EnemyType : int { enemySkreel = 0, enemyDorvak = 1 };

/// What the rest of the game knows about a kind of enemy.
struct EnemyKind {
    EnemyType type;
    char const* name;    // in art/level/actors.txt, from which the enemy file is made
    char const* picture; // a strip of equal cells
    int cellCount;
    int height;           // of the picture, level pixels
    int points;           // for the hero who defeats it
    bool isTurnedByStomp; // to the side that the hero faces
};

/// An enemy of the level. Its position is the centre of its picture, in level pixels.
class EnemyMaster {
public:
    /// Each class keeps the arguments that it needs.
    EnemyMaster(int /*x*/, int /*y*/, Bitmap* /*bitmapPtr*/) {}
    virtual ~EnemyMaster() = default;
    virtual void Tick(double deltaTime) = 0;
    virtual void Paint(MATRIX3X2 matView) = 0;
    /// Called just before the destructor of the list deletes the enemy.
    virtual void Release() = 0;
    /// The hero has landed on it. True if its state changes.
    virtual bool Stomp() = 0;
    /// It is hit by a fireball, by star power or by a shell. True if its state changes.
    virtual bool Kill() = 0;
    virtual DOUBLE2 GetPosition() = 0;
    virtual void PaintDebug(MATRIX3X2 matView) = 0;
    /// All zero when it cannot be touched.
    virtual RECT2 GetHitRect() = 0;
    virtual void Move(DOUBLE2 delta) = 0;
    /// Puts it on the level's outline and turns it at walls. Called in the enemy's own tick.
    virtual void HandleLevelCollision() = 0;
    /// Stops the chosen directions.
    virtual void ResetVelocity(bool horizontal, bool vertical) = 0;
    /// An EnemyType.
    virtual int GetType() = 0;
    /// Whether the list may delete it.
    virtual bool IsDead() = 0;
    virtual void SetMovingLeft(bool movingLeft) = 0;
    virtual const EnemyKind& GetKind() const = 0;
    virtual void Report(StateReport& report) const = 0;
};
