#pragma once

#include "engine/Bitmap.h"
#include "engine/HitRegion.h"
#include "examples/support/GalleryGame.h"

#include <memory>

/// Every drawing operation once, each in a cell of its own.
class ShapesGame : public GalleryGame {
public:
    ShapesGame() : GalleryGame(L"Shapes and text") {}
    void GameStart() override;
    void GamePaint(RECT rect) override;

private:
    struct Sample;
    static const Sample samples[];

    std::unique_ptr<Font> labelFontPtr;
    std::unique_ptr<Bitmap> coinPtr;
    HitRegion region;
};
