#pragma once

#include "engine/HitRegion.h"
#include "examples/support/GalleryGame.h"

/// A rock whose outline comes from a file, rays that follow the mouse and where they cross the outline, and below it
/// the rock combined with a ball that goes round: united, without the ball, common part, either but not both.
class HitRegionsGame : public GalleryGame {
public:
    HitRegionsGame() : GalleryGame(L"Hit regions") {}
    void GameStart() override;
    void GameTick(double deltaTime) override;
    void GamePaint(RECT rect) override;

private:
    void PaintRay(DOUBLE2 vector);
    void PaintCombinations();

    HitRegion rock;
    HitRegion ball;
    double seconds = 0.0;
};
