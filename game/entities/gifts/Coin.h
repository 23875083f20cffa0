#pragma once

#include "game/entities/EntityMaster.h"
#include "game/entities/SpriteStrip.h"

/// A spinning coin of the level. After it was collected it is not drawn and cannot be touched, but keeps its slot.
class Coin : public EntityMaster {
public:
    Coin(int x, int y, Bitmap* bitmapPtr);
    void Tick(double deltaTime) override;
    void Paint(MATRIX3X2 matView) override;
    bool Take() override { return false; }
    DOUBLE2 GetPosition() override { return position; }
    void PaintDebug(MATRIX3X2 matView) override;
    /// Narrower than the picture.
    RECT2 GetHitRect() override;
    int GetScore() override { return 100; }
    void GiveTo(Pelko& hero) override;
    void Collect() override { collected = true; }
    void Move(DOUBLE2 delta) override { position += delta; }
    void ResetVelocity(bool /*horizontal*/, bool /*vertical*/) override {}
    int GetType() override { return entityCoin; }
    void SetState(int /*state*/) override {}
    int GetVariant() override { return 0; }
    void Report(StateReport& report) const override;

private:
    bool collected = false;
    DOUBLE2 position;
    SpriteStrip strip;
};
