#pragma once

#include "game/entities/gifts/BlockGift.h"

/// Rises out of its block and stays on top of it; only there can it be touched. It gives the big hero the fire form.
class Flower : public BlockGift {
public:
    Flower(int x, int y, Bitmap* bitmapPtr);
    void Tick(double deltaTime) override;
    void PaintDebug(MATRIX3X2 /*matView*/) override { FillRect(hitRect, COLOR(80, 200, 50, 80)); }
    RECT2 GetHitRect() override { return state == entityActive ? hitRect : RECT2(); }
    void GiveTo(Pelko& hero) override;
    int GetType() override { return entityFlower; }
    void Report(StateReport& report) const override;

private:
    int targetY; // where it stops rising
    RECT2 hitRect;
};
