#include "examples/controls/ControlsGame.h"

template <class Made>
std::unique_ptr<Made> ControlsGame::Add(String const& text, int x, int y, int width) {
    auto madePtr = std::make_unique<Made>(text);
    madePtr->SetBounds(x, y, width, 34);
    madePtr->AddActionListener(this);
    madePtr->Show();
    return madePtr;
}

// Controls are children of the window, so they are made once it exists. Tab visits them in this order.
void ControlsGame::GameStart() {
    fontPtr = std::make_unique<Font>(L"sans-serif", 15.0F);
    signalFontPtr = std::make_unique<Font>(L"sans-serif", 28.0F);
    textBoxPtr = Add<TextBox>(L"Land ahead!", 136, 32, 344);
    delayBoxPtr = Add<TextBox>(L"250", 136, 80, 96);
    switchPtr = Add<Button>(L"Switch on", 248, 80, 112);
    closePtr = Add<Button>(L"Close", 376, 80, 104);
    switchPtr->SetFont(L"sans-serif", true, false, false, 18);
    timerPtr = std::make_unique<Timer>(250, this);
    TakeOver();
}

void ControlsGame::GameEnd() {
    timerPtr.reset(); // it makes no calls after this
    textBoxPtr.reset();
    delayBoxPtr.reset();
    switchPtr.reset();
    closePtr.reset();
}

void ControlsGame::CallAction(Caller* callerPtr) {
    if (callerPtr == timerPtr.get()) {
        ++changes;
    } else if (callerPtr == switchPtr.get()) {
        Switch();
    } else if (callerPtr == closePtr.get()) {
        Engine().QuitGame();
    } else {
        TakeOver(); // Enter in one of the text boxes
    }
}

void ControlsGame::TakeOver() {
    const int delay = delayBoxPtr->GetText().ToInteger();
    const bool isGood = delay >= 20 && delay <= 5000;
    delayBoxPtr->SetBackcolor(255, isGood ? 255 : 214, isGood ? 255 : 206);
    if (isGood) timerPtr->SetDelay(delay);
    signal = textBoxPtr->GetText();
}

void ControlsGame::Switch() {
    if (timerPtr->IsRunning()) {
        timerPtr->Stop();
        changes = 0;
    } else {
        TakeOver();
        timerPtr->Start();
    }
    switchPtr->SetText(timerPtr->IsRunning() ? L"Switch off" : L"Switch on");
}

void ControlsGame::GamePaint(RECT rect) {
    const int seen = changes;
    const bool isLit = seen % 2 == 1;
    Engine().FillWindowRect(236, 240, 246);
    Engine().SetColor(COLOR(24, 32, 56, 255));
    Engine().FillRect(0, 144, rect.right, rect.bottom);
    if (isLit) {
        Engine().SetColor(COLOR(255, 236, 160, 48));
        for (int radius = 72; radius <= 128; radius += 28) Engine().FillEllipse(256, 290, radius, radius);
    }
    Engine().SetColor(isLit ? COLOR(255, 244, 200, 255) : COLOR(60, 70, 102, 255));
    Engine().FillEllipse(256, 290, 48, 48);
    Engine().SetColor(COLOR(150, 162, 192, 255));
    Engine().DrawEllipse(DOUBLE2(256, 290), 48, 48, 3.0);
    Engine().SetFont(fontPtr.get());
    Engine().DrawString(String(L"Changes: ") + seen, 32, 156, -1, -1);
    if (isLit) {
        Engine().SetColor(COLOR(255, 244, 200, 255));
        Engine().SetFont(signalFontPtr.get());
        Engine().DrawString(signal, 32, 428, -1, -1);
    }
    Engine().SetFont(fontPtr.get());
    Engine().SetColor(COLOR(40, 48, 64, 255));
    Engine().DrawString(L"Signal", 32, 40, -1, -1);
    Engine().DrawString(L"Milliseconds", 32, 88, -1, -1);
}
