#include "game/player/HeroSprite.h"

#include "engine/GameEngine.h"
#include "game/StateReport.h"
#include "game/player/HeroForms.h"

namespace {
constexpr int standingColumn = 0;
constexpr int walkColumns = 4; // 1 to 4
constexpr int jumpColumn = 6;
constexpr int deadColumn = 7;

// The sheet consists of bands: a row of big cells above a row of small ones. Band 0 has the hero's own colours, bands 1
// to 8 those of the star. The fire form uses the big row that is two bands further down.
constexpr int bandHeight = HeroForms::bigHeight + HeroForms::smallHeight;
constexpr int fireBand = 2;
} // namespace

void HeroSprite::ShowStanding() { column = standingColumn; }

void HeroSprite::ShowJumping() { column = jumpColumn; }

void HeroSprite::ShowDead() { column = deadColumn; }

void HeroSprite::Walk() {
    constexpr int ticksPerPose = 6;
    if (++walkTicks != ticksPerPose) return;
    walkTicks = 0;
    column = column % walkColumns + 1;
}

void HeroSprite::Paint(DOUBLE2 position, bool facingRight, int form, int band, const MATRIX3X2& matView) {
    int top = band * bandHeight;
    int height = HeroForms::bigHeight;
    switch (form) {
    case heroSmall:
        top += HeroForms::bigHeight;
        height = HeroForms::smallHeight;
        break;
    case heroBig: break;
    case heroFire: top += fireBand * bandHeight; break;
    default: return;
    }
    constexpr int width = HeroForms::width;
    // centre the cell on the position's line, mirror it there, put it in the level, then apply the camera
    const MATRIX3X2 matCenter = MATRIX3X2::CreateTranslationMatrix(-HeroForms::halfWidth, 0.0);
    const MATRIX3X2 matScale = MATRIX3X2::CreateScalingMatrix(facingRight ? 1.0 : -1.0, 1.0);
    const MATRIX3X2 matTranslate = MATRIX3X2::CreateTranslationMatrix(position);
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(matCenter * matScale * matTranslate * matView);
    enginePtr->DrawBitmap(&sheet, DOUBLE2(), RECT2(column * width, top, column * width + width, top + height));
}

void HeroSprite::Report(StateReport& report) const {
    report.Add("frameColumn", column);
    report.Add("walkFrameTimer", walkTicks);
}
