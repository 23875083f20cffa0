#include "game/entities/Mushroom.h"

Mushroom::Mushroom(int x, int y, Bitmap* bitmapPtr, int kind)
    : WalkingPowerUp(x, y, bitmapPtr, 2, kind, entityEmerging), variant(kind) {
    targetY = y - strip.GetCellHeight();
}

bool Mushroom::Take() {
    state = entityGone;
    return true;
}

void Mushroom::PaintDebug(MATRIX3X2) { FillHitRect(COLOR(255, 0, 255, 150)); }
