#pragma once

#include "engine/COLOR.h"
#include "game/Motion.h"
#include "game/entities/EntityMaster.h"
#include "game/entities/SpriteStrip.h"

/// What comes out of a block: its states and its picture. It has no box, no score and does not move unless its class
/// says otherwise.
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
    /// `cellCount` is that of the bitmap.
    BlockGift(int x, int y, Bitmap* bitmapPtr, int cellCount, int startState);

    /// A tick of rising, `speed` in level pixels / s. It becomes active in the tick that begins at `top` or above it.
    void Rise(double top, double speed, double deltaTime);
    bool IsShown() const { return state == entityEmerging || state == entityActive; }
    /// Pays the player, and is gone.
    void PayPowerUp();
    /// Draws under the world matrix that is set: the coins before it in the list set the view.
    static void FillRect(RECT2 box, COLOR color);

    SpriteStrip strip;
    Motion motion; // the position is the top-left corner
    int state;
};
