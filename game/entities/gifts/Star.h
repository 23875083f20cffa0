#pragma once

#include "game/entities/gifts/WalkingPowerUp.h"

/// Leaves its block at once and walks like the mushroom. It gives star power.
class Star : public WalkingPowerUp {
public:
    Star(int x, int y, Bitmap* bitmapPtr);
    void PaintDebug(MATRIX3X2 /*matView*/) override { FillRect(hitRect, COLOR(255, 255, 255, 150)); }
    RECT2 GetHitRect() override { return state == entityGone ? RECT2() : hitRect; }
    void GiveTo(Pelko& hero) override;
    int GetType() override { return entityStar; }
};
