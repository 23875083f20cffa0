#pragma once

#include "engine/Audio.h"
#include "engine/Callable.h"
#include "examples/support/GalleryGame.h"

#include <memory>

/// A bell that rings until its listener has been told five times that it ended. Space rings again, P pauses and
/// resumes.
class SoundGame : public GalleryGame, public Callable {
public:
    SoundGame() : GalleryGame(L"Sound") {}
    void GameStart() override;
    void KeyPressed(TCHAR key) override;
    void GameTick(double deltaTime) override;
    void GamePaint(RECT rect) override;
    void CallAction(Caller* callerPtr) override;

private:
    void Ring();

    std::unique_ptr<Audio> bellPtr;
    std::unique_ptr<Font> fontPtr;
    double played = 0.0; // seconds since the bell was rung
    int ends = 0;
};
