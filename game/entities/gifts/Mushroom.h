#pragma once

#include "game/entities/gifts/WalkingPowerUp.h"

/// Rises out of its block, then walks. It can be touched at once. Only variant 0 makes a small hero grow.
class Mushroom : public WalkingPowerUp {
public:
    Mushroom(int x, int y, Bitmap* bitmapPtr, int variant);
    bool Take() override;
    void PaintDebug(MATRIX3X2 /*matView*/) override { FillRect(hitRect, COLOR(255, 0, 255, 150)); }
    /// As it was after the last tick, even if it has been taken since.
    RECT2 GetHitRect() override { return hitRect; }
    void GiveTo(Pelko& hero) override;
    int GetType() override { return entityMushroom; }
    int GetVariant() override { return variant; }

private:
    int variant;
};
