#pragma once

#include "game/entities/gifts/BlockGift.h"

/// What the mushroom and the star share: they walk, fall, stand on the level's outline and turn at its walls.
/// CollisionList lets them stand on blocks, through Move and ResetVelocity.
class WalkingPowerUp : public BlockGift {
public:
    void Tick(double deltaTime) override;
    int GetScore() override { return 1000; }
    void Move(DOUBLE2 delta) override { motion.position += delta; }
    void ResetVelocity(bool horizontal, bool vertical) override { motion.ResetVelocity(horizontal, vertical); }
    void Report(StateReport& report) const override;

protected:
    /// Shows cell `cell` of the bitmap's `cellCount` cells.
    WalkingPowerUp(int x, int y, Bitmap* bitmapPtr, int cellCount, int cell, int startState);

    int targetY;   // above this it has left its block
    RECT2 hitRect; // after the last tick

private:
    void LeaveBlock(double deltaTime);
    void Walk(double deltaTime);
    void TurnAtWalls();
    void StandOnLevel();

    bool movingRight = true;
};
