#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"

class Bitmap;
class StateReport;

/// What GetType answers, and what the enemy file's Type says.
enum EnemyType : int { enemySkreel = 0, enemyDorvak = 1 };

/// What the rest of the game knows about a kind of enemy.
struct EnemyKind {
    EnemyType type;
    char const* name;    // in the list of actors that the enemy file is made from
    char const* picture; // a strip of equal cells
    int cellCount;
    int height;           // of the picture, level pixels
    int points;           // for the hero who defeats it
    bool isTurnedByStomp; // to where the hero faces
};

/// An enemy of the level. Its position is the centre of its picture, in level pixels.
class EnemyMaster {
public:
    /// Each class keeps what it needs of these.
    EnemyMaster(int /*x*/, int /*y*/, Bitmap* /*bitmapPtr*/) {}
    virtual ~EnemyMaster() = default;
    virtual void Tick(double deltaTime) = 0;
    virtual void Paint(MATRIX3X2 matView) = 0;
    /// The list calls this just before it deletes the enemy at its own end.
    virtual void Release() = 0;
    /// The hero has landed on it. True if that changed something.
    virtual bool Stomp() = 0;
    /// Hit by a fireball, by star power or by a shell. True if that changed something.
    virtual bool Kill() = 0;
    virtual DOUBLE2 GetPosition() = 0;
    virtual void PaintDebug(MATRIX3X2 matView) = 0;
    /// All zero when it cannot be touched.
    virtual RECT2 GetHitRect() = 0;
    virtual void Move(DOUBLE2 delta) = 0;
    /// Stands on the level's outline and turns at its walls; part of the enemy's own tick.
    virtual void HandleLevelCollision() = 0;
    /// Stops the chosen directions.
    virtual void ResetVelocity(bool horizontal, bool vertical) = 0;
    /// An EnemyType.
    virtual int GetType() = 0;
    /// The list may delete it.
    virtual bool IsDead() = 0;
    virtual void SetMovingLeft(bool movingLeft) = 0;
    virtual const EnemyKind& GetKind() const = 0;
    virtual void Report(StateReport& report) const = 0;
};
