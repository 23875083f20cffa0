#pragma once

#include "engine/COLOR.h"
#include "game/Motion.h"
#include "game/entities/EntityMaster.h"
#include "game/entities/SpriteStrip.h"

/// The base of everything that comes out of a block: states, picture, and neutral answers to the rest.
class BlockGift : public EntityMaster {
public:
    void Paint(MATRIX3X2 matView) override;
    bool Take() override { return false; }
    DOUBLE2 GetPosition() override { return motion.position; }
    int GetScore() override { return 0; }
    void Collect() override {}
    void Move(DOUBLE2 /*delta*/) override {}
    void ResetVelocity(bool /*horizontal*/, bool /*vertical*/) override {}
    void SetState(int newState) override { state = newState; }
    int GetVariant() override { return 0; }
    void Report(StateReport& report) const override;

protected:
    /// `cellCount` is the number of cells in the bitmap, `startState` an EntityState.
    BlockGift(int x, int y, Bitmap* bitmapPtr, int cellCount, int startState);

    /// One tick of rising, by `speed` in level pixels / s. A tick that begins at `top` or above makes it active
    /// instead.
    void Rise(double top, double speed, double deltaTime);
    bool IsShown() const { return state == entityEmerging || state == entityActive; }
    /// Gives the player 1000 points and makes it disappear.
    void PayPowerUp();
    /// Uses the current world matrix: the coins, which come first in the list, have set the view.
    static void FillRect(RECT2 box, COLOR color);

    SpriteStrip strip;
    Motion motion; // the position is the top-left corner
    int state;
};
