#pragma once

#include "engine/Bitmap.h"
#include "examples/support/GalleryGame.h"

#include <memory>

/// A sprite sheet: cells of one picture shown in turn, enlarged without blur, and mirrored on the way back.
class SpritesGame : public GalleryGame {
public:
    SpritesGame() : GalleryGame(L"Sprites") {}
    void GameStart() override;
    void GameTick(double deltaTime) override;
    void GamePaint(RECT rect) override;

private:
    void PaintSheet(int cell);
    void PaintWalker(int cell);
    void PaintCoins();

    std::unique_ptr<Bitmap> walkerPtr; // 8 cells of 16 x 32 in one row, with transparent pixels
    std::unique_ptr<Bitmap> coinPtr;   // 6 cells of 16 x 16; one colour stands for "transparent"
    double seconds = 0.0;
    double x = 64.0; // of the walker's centre, window pixels
    int direction = 1;
};
