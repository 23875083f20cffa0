#pragma once

#include "engine/AbstractGame.h"
#include "engine/Font.h"

#include <memory>

/// The smallest whole program: a window, a sun that breathes, a greeting. Escape ends it.
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
