#pragma once

#include "engine/Button.h"
#include "engine/Callable.h"
#include "engine/TextBox.h"
#include "engine/Timer.h"
#include "examples/support/GalleryGame.h"

#include <atomic>
#include <memory>

/// A form for a signal lamp: its text, the delay of its flashes, a button that switches it on and off.
class ControlsGame : public GalleryGame, public Callable {
public:
    ControlsGame() : GalleryGame(L"Timers and controls") {}
    void GameStart() override;
    void GameEnd() override;
    void GamePaint(RECT rect) override;
    /// Does nothing: in a form Escape leaves a control, so it must not quit the program.
    void KeyPressed(TCHAR) override {}
    /// Called by the controls and the timer.
    void CallAction(Caller* callerPtr) override;

private:
    template <class Made>
    std::unique_ptr<Made> Add(String const& text, int x, int y, int width);
    void TakeOver();
    void Switch();

    std::unique_ptr<TextBox> textBoxPtr;
    std::unique_ptr<TextBox> delayBoxPtr;
    std::unique_ptr<Button> switchPtr;
    std::unique_ptr<Button> closePtr;
    std::unique_ptr<Timer> timerPtr;
    std::unique_ptr<Font> fontPtr;
    std::unique_ptr<Font> signalFontPtr;
    String signal = L"";
    std::atomic<int> changes = 0; // counted by the timer on its own thread
};
