#pragma once

#include "engine/HitRegion.h"
#include "examples/support/GalleryGame.h"

/// A rock whose outline comes from a file, and rays towards the mouse with their crossings. Below it, the rock combined
/// with a circling ball: united, without the ball, their common part, and the parts that are not common.
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
