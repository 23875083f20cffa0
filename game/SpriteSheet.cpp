#include "game/SpriteSheet.h"

#include "engine/Bitmap.h"

std::unique_ptr<Bitmap> LoadSpriteSheet(char const* fileName) {
    auto bitmapPtr = std::make_unique<Bitmap>(fileName);
    bitmapPtr->SetTransparencyColor(255, 0, 255);
    return bitmapPtr;
}
