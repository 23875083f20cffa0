#pragma once

#include "engine/Bitmap.h"
#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"

class StateReport;

/// The hero's picture. His state decides the column of the sheet, his form and star power the row.
class HeroSprite {
public:
    static constexpr char const* picture = "Resources/Images/Pelkos.png";

    HeroSprite() : sheet(picture) {}

    void ShowStanding();
    void ShowJumping();
    void ShowDead();
    /// One tick of walking: the pose changes every six ticks.
    void Walk();
    /// `position` is the middle of the cell's top edge, in level pixels. If `form` is not a HeroForm, nothing is drawn.
    /// `band` is that of StarPower.
    void Paint(DOUBLE2 position, bool facingRight, int form, int band, const MATRIX3X2& matView);
    void Report(StateReport& report) const;

private:
    Bitmap sheet;
    int column = 0;
    int walkTicks = 0; // since the last change of the pose
};
