#pragma once

#include "game/entities/EntityMaster.h"
#include "game/entities/SpriteStrip.h"

/// Rises out of its block and stays on top of it. It can be touched when it has arrived.
class Flower : public EntityMaster {
public:
    Flower(int x, int y, Bitmap* bitmapPtr);
    void Tick(double deltaTime) override;
    void Paint(MATRIX3X2 matView) override;
    bool Take() override { return false; }
    DOUBLE2 GetPosition() override { return position; }
    /// Draws under the world matrix that is set: the coins before it in the list set the view.
    void PaintDebug(MATRIX3X2 matView) override;
    RECT2 GetHitRect() override { return state == entityActive ? hitRect : RECT2(); }
    int GetScore() override { return 0; }
    void Collect() override {}
    void Move(DOUBLE2 /*delta*/) override {}
    void ResetVelocity(bool /*horizontal*/, bool /*vertical*/) override {}
    int GetType() override { return entityFlower; }
    void SetState(int newState) override { state = newState; }
    int GetVariant() override { return 0; }
    void Report(StateReport& report) const override;

private:
    DOUBLE2 position;
    SpriteStrip strip;
    int targetY; // where it stops rising
    RECT2 hitRect;
    int state = entityEmerging;
};
