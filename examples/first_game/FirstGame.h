#pragma once

#include "engine/AbstractGame.h"
#include "engine/Bitmap.h"
#include "engine/DOUBLE2.h"
#include "engine/HitRegion.h"

#include <memory>

class FirstGame : public AbstractGame {
public:
    void GameInitialize(HINSTANCE instance) override;
    void GameStart() override;
    void KeyPressed(TCHAR key) override;
    void GameTick(double deltaTime) override;
    void GamePaint(RECT rect) override;

private:
    void Walk(double deltaTime);
    void Fall(double deltaTime);

    std::unique_ptr<Bitmap> walkerPtr;
    HitRegion ground;
    DOUBLE2 feet = {60, 100}; // the middle of the sprite's lower edge, in window pixels
    DOUBLE2 velocity;         // window pixels / s
    bool standing = false;
    int facing = 1; // -1 left, +1 right
};
