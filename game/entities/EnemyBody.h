#pragma once

#include "engine/COLOR.h"
#include "game/Motion.h"
#include "game/entities/EnemyMaster.h"
#include "game/entities/SpriteStrip.h"

/// What the enemies share: they sleep until the hero comes near, walk and fall, stand on the level's outline, turn at
/// its walls, and are drawn about their centre. A class of its own decides which state does which of these.
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

    /// Begins a tick: wakes the enemy, for good, when the hero is within 190 level pixels, and takes the horizontal
    /// speed of the tick before away. False while it sleeps.
    bool BeginTick();
    void AnimateWalk() { strip.Animate(8, 2); }
    /// Pushes it where it faces; `push` times the seconds of this tick is the tick's speed.
    void Push(double push, double deltaTime) { motion.velocity.x += (movingLeft ? -push : push) * deltaTime; }
    bool HasFallenOut() const;

    /// The cell about the position.
    RECT2 GetCellRect() const;
    /// Draws the cell with its centre on the position, scaled by -1 to mirror it.
    void PaintCentered(double scaleX, double scaleY, const MATRIX3X2& matView) const {
        strip.PaintCentered(motion.position, scaleX, scaleY, matView);
    }
    /// The pictures face left.
    void PaintFacing(const MATRIX3X2& matView) const { PaintCentered(movingLeft ? 1.0 : -1.0, 1.0, matView); }
    void FillHitRect(COLOR color, const MATRIX3X2& matView);

    Motion motion; // the position is the centre of the picture
    SpriteStrip strip;

private:
    const EnemyKind& kind;
    bool movingLeft = true;
    bool active = false;
};
