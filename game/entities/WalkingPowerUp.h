#pragma once

#include "engine/COLOR.h"
#include "game/Motion.h"
#include "game/entities/EntityMaster.h"
#include "game/entities/SpriteStrip.h"

/// What the mushroom and the star share: both walk, fall, stand on the level's outline and turn at its walls. That
/// blocks hold them up is decided with the other contacts, through Move and ResetVelocity.
class WalkingPowerUp : public EntityMaster {
public:
    void Tick(double deltaTime) override;
    void Paint(MATRIX3X2 matView) override;
    DOUBLE2 GetPosition() override { return motion.position; }
    int GetScore() override { return 1000; }
    void Collect() override {}
    void Move(DOUBLE2 delta) override { motion.position += delta; }
    void ResetVelocity(bool horizontal, bool vertical) override { motion.ResetVelocity(horizontal, vertical); }
    void SetState(int newState) override { state = newState; }
    void Report(StateReport& report) const override;

protected:
    /// Shows cell `cell` of the bitmap's `cellCount`, from the start in `startState`.
    WalkingPowerUp(int x, int y, Bitmap* bitmapPtr, int cellCount, int cell, int startState);
    /// Draws under the world matrix that is set: the coins before it in the list set the view.
    void FillHitRect(COLOR color) const;

    SpriteStrip strip;
    int targetY;   // a rising one is out of its block above this
    RECT2 hitRect; // as of the last tick
    int state;

private:
    void Rise(double deltaTime);
    void Walk(double deltaTime);
    void TurnAtWalls();
    void StandOnLevel();
    bool IsShown() const { return state == entityEmerging || state == entityActive; }

    bool movingRight = true;
    Motion motion; // the position is the top-left corner
};
