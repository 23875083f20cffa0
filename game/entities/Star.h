#pragma once

#include "game/entities/WalkingPowerUp.h"

/// Leaves its block at once and walks like the mushroom.
class Star : public WalkingPowerUp {
public:
    Star(int x, int y, Bitmap* bitmapPtr);
    bool Take() override { return false; }
    void PaintDebug(MATRIX3X2 matView) override;
    RECT2 GetHitRect() override { return state == entityGone ? RECT2() : hitRect; }
    int GetType() override { return entityStar; }
    int GetVariant() override { return 0; }
};
