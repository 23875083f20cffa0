#pragma once

#include "game/entities/gifts/BlockGift.h"

/// The coin that pops out of a block. It pays when it appears, rises while it spins, and is gone after 20 ticks.
class CoinBlock : public BlockGift {
public:
    CoinBlock(int x, int y, Bitmap* bitmapPtr);
    void Tick(double deltaTime) override;
    void PaintDebug(MATRIX3X2 /*matView*/) override {}
    /// All zero: it has paid already.
    RECT2 GetHitRect() override { return {}; }
    void GiveTo(Pelko& /*hero*/) override {}
    int GetType() override { return entityCoinBlock; }
    void Report(StateReport& report) const override;

private:
    int age = 0; // ticks
};
