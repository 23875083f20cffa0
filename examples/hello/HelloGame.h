#pragma once

#include "engine/AbstractGame.h"
#include "engine/Font.h"

#include <memory>

/// The smallest complete program: a window, a pulsing sun, a greeting. Escape quits.
class HelloGame : public AbstractGame {
public:
    void GameInitialize(HINSTANCE instance) override;
    void GameStart() override;
    void KeyPressed(TCHAR key) override;
    void GameTick(double deltaTime) override;
    void GamePaint(RECT rect) override;

private:
    std::unique_ptr<Font> fontPtr;
    double seconds = 0.0;
};
