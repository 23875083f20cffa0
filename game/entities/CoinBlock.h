#pragma once

#include "game/entities/EntityMaster.h"
#include "game/entities/SpriteStrip.h"

/// The coin that pops out of a block. It pays when it appears, rises while it spins, and is gone after 20 ticks.
class CoinBlock : public EntityMaster {
public:
    CoinBlock(int x, int y, Bitmap* bitmapPtr);
    void Tick(double deltaTime) override;
    void Paint(MATRIX3X2 matView) override;
    bool Take() override { return false; }
    DOUBLE2 GetPosition() override { return position; }
    void PaintDebug(MATRIX3X2 /*matView*/) override {}
    /// None: it is paid for already.
    RECT2 GetHitRect() override { return {}; }
    int GetScore() override { return 0; }
    void Collect() override {}
    void Move(DOUBLE2 /*delta*/) override {}
    void ResetVelocity(bool /*horizontal*/, bool /*vertical*/) override {}
    int GetType() override { return entityCoinBlock; }
    void SetState(int newState) override { state = newState; }
    int GetVariant() override { return 0; }
    void Report(StateReport& report) const override;

private:
    int age = 0; // ticks
    DOUBLE2 position;
    SpriteStrip strip;
    int state = entityEmerging;
};
