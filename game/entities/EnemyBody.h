#pragma once

#include "engine/COLOR.h"
#include "game/Motion.h"
#include "game/entities/EnemyMaster.h"
#include "game/entities/SpriteStrip.h"

/// What all enemies share: they sleep until the hero comes near, walk, fall, stand on the level's outline, turn at its
/// walls, and are drawn about their centre. Each enemy's class decides what it does in which state.
class EnemyBody : public EnemyMaster {
public:
    void Release() override {}
    DOUBLE2 GetPosition() override { return motion.position; }
    void Move(DOUBLE2 delta) override { motion.position += delta; }
    void HandleLevelCollision() override;
    void ResetVelocity(bool horizontal, bool vertical) override { motion.ResetVelocity(horizontal, vertical); }
    void SetMovingLeft(bool left) override { movingLeft = left; }
    int GetType() override { return kind.type; }
    const EnemyKind& GetKind() const override { return kind; }
    void Report(StateReport& report) const override;

protected:
    /// Borrows the bitmap and `kind`, which must outlive it.
    EnemyBody(int x, int y, Bitmap* bitmapPtr, const EnemyKind& kind);

    /// Begins a tick: sets the horizontal speed to 0. False while the enemy sleeps; it wakes when the hero is less than
    /// 190 level pixels away, and stays awake.
    bool BeginTick();
    void AnimateWalk() { strip.Animate(8, 2); }
    /// Adds `push` times the tick's seconds to its speed, in the direction in which it walks.
    void Push(double push, double deltaTime) { motion.velocity.x += (movingLeft ? -push : push) * deltaTime; }
    bool HasFallenOut() const;

    /// The cell, with its centre at the position.
    RECT2 GetCellRect() const;
    /// Draws the cell with its centre at the position; a scale of -1 mirrors it.
    void PaintCentered(double scaleX, double scaleY, const MATRIX3X2& matView) const {
        strip.PaintCentered(motion.position, scaleX, scaleY, matView);
    }
    /// Mirrors the picture, which faces left, for one that walks to the right.
    void PaintFacing(const MATRIX3X2& matView) const { PaintCentered(movingLeft ? 1.0 : -1.0, 1.0, matView); }
    void FillHitRect(COLOR color, const MATRIX3X2& matView);

    Motion motion; // the position is the centre of the picture
    SpriteStrip strip;

private:
    const EnemyKind& kind;
    bool movingLeft = true;
    bool active = false;
};
