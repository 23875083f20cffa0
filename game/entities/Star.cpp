#include "game/entities/Star.h"

Star::Star(int x, int y, Bitmap* bitmapPtr) : WalkingPowerUp(x, y, bitmapPtr, 1, 0, entityActive) {
    targetY = y + strip.GetCellHeight();
}

void Star::PaintDebug(MATRIX3X2) { FillHitRect(COLOR(255, 255, 255, 150)); }
