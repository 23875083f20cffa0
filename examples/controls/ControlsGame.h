#pragma once

#include "engine/Button.h"
#include "engine/Callable.h"
#include "engine/TextBox.h"
#include "engine/Timer.h"
#include "examples/support/GalleryGame.h"

#include <atomic>
#include <memory>

/// A form for a signal lamp: what it says, how often it flashes, a button to switch it on and off.
class ControlsGame : public GalleryGame, public Callable {
public:
    ControlsGame() : GalleryGame(L"Timers and controls") {}
    void GameStart() override;
    void GameEnd() override;
    void GamePaint(RECT rect) override;
    /// Escape leaves a control here, so it must not end the program as well.
    void KeyPressed(TCHAR) override {}
    /// Something has happened to a control or the timer.
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
    std::atomic<int> changes = 0; // the timer counts them on a thread of its own
};
