#pragma once

#include "platform/Types.h"

/// What the engine drives: derive a game from this and give it to GameEngine::SetGame. All calls come on the main
/// thread.
class AbstractGame {
public:
    virtual ~AbstractGame() = default;
    /// Once, before the window exists: set title, size and keys. Call this default first, then set your own.
    virtual void GameInitialize(HINSTANCE hInstance);
    /// Once, when window and canvas exist and before the first frame: load bitmaps here at the earliest.
    virtual void GameStart() {}
    /// Once, after the last frame.
    virtual void GameEnd() {}
    /// `x` and `y` in client pixels; `wParam` holds the MK_ flags.
    virtual void MouseButtonAction(bool /*isLeft*/, bool /*isDown*/, int /*x*/, int /*y*/, WPARAM /*wParam*/) {}
    virtual void MouseMove(int /*x*/, int /*y*/, WPARAM /*wParam*/) {}
    /// Every frame, before GameTick.
    virtual void CheckKeyboard() {}
    /// Once for every release of a key of the key list, between two frames, in the order of the releases.
    virtual void KeyPressed(TCHAR /*key*/) {}
    /// Every frame after GameTick; the only place where drawing is allowed. `rect` is {0, 0, width, height}.
    virtual void GamePaint(RECT /*rect*/) {}
    /// Every frame; `deltaTime` is the time since the previous frame in seconds, at most 0.05.
    virtual void GameTick(double /*deltaTime*/) {}
};
