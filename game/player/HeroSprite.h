#pragma once

#include "engine/Bitmap.h"
#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"

class StateReport;

/// The hero's picture: the states choose its column, form and star power the row.
class HeroSprite {
public:
    static constexpr char const* picture = "Resources/Images/Pelkos.png";

    HeroSprite() : sheet(picture) {}

    void ShowStanding();
    void ShowJumping();
    void ShowDead();
    /// A tick of walking: the next pose every six ticks.
    void Walk();
    /// `position` is the middle of the cell's top edge, in level pixels. A `form` that is no HeroForm draws nothing;
    /// `band` are the colours that StarPower chooses.
    void Paint(DOUBLE2 position, bool facingRight, int form, int band, const MATRIX3X2& matView);
    void Report(StateReport& report) const;

private:
    Bitmap sheet;
    int column = 0;
    int walkTicks = 0; // since the last change of the pose
};
