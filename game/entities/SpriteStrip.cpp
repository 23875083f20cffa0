#include "game/entities/SpriteStrip.h"

#include "engine/Bitmap.h"
#include "engine/GameEngine.h"

SpriteStrip::SpriteStrip(Bitmap* stripPtr, int cellCount)
    : bitmapPtr(stripPtr), cellWidth(stripPtr->GetWidth() / cellCount), cellHeight(stripPtr->GetHeight()) {}

void SpriteStrip::Show(int frame) {
    cycle = {0, frame};
    clip = RECT2(cellWidth * frame, 0, cellWidth * frame + cellWidth, cellHeight);
}

void SpriteStrip::Animate(int ticksPerFrame, int frameCount) {
    cycle.Tick(ticksPerFrame, frameCount);
    clip = RECT2(cellWidth * cycle.frame, 0, cellWidth * cycle.frame + cellWidth, cellHeight);
}

void SpriteStrip::Paint(const MATRIX3X2& matWorld) const {
    if (!HasBox(clip)) return;
    GameEngine::GetSingleton()->SetWorldMatrix(matWorld);
    GameEngine::GetSingleton()->DrawBitmap(bitmapPtr, DOUBLE2(0, 0), clip);
}

void SpriteStrip::Paint(DOUBLE2 position, const MATRIX3X2& matView) const {
    Paint(MATRIX3X2::CreateTranslationMatrix(position) * matView);
}

void SpriteStrip::PaintCentered(DOUBLE2 position, double scaleX, double scaleY, const MATRIX3X2& matView) const {
    const MATRIX3X2 matCenter = MATRIX3X2::CreateTranslationMatrix(-GetMiddleX(), -GetMiddleY());
    const MATRIX3X2 matScale = MATRIX3X2::CreateScalingMatrix(scaleX, scaleY);
    const MATRIX3X2 matTranslate = MATRIX3X2::CreateTranslationMatrix(position);
    // centre the cell on the origin, mirror it there, put it in the level, then apply the camera
    Paint(matCenter * matScale * matTranslate * matView);
}

RECT2 SpriteStrip::GetCellRect(DOUBLE2 position) const {
    return {position.x, position.y, position.x + cellWidth, position.y + cellHeight};
}

void SpriteStrip::Report(StateReport& report) const {
    cycle.Report(report);
    report.Add("cell", clip);
}
