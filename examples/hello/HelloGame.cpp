#include "examples/hello/HelloGame.h"

#include "engine/GameEngine.h"
#include "platform/Messages.h"

#include <cmath>

void HelloGame::GameInitialize(HINSTANCE instance) {
    AbstractGame::GameInitialize(instance);
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetTitle(L"Hello");
    enginePtr->SetWidth(512);
    enginePtr->SetHeight(480);
    enginePtr->RunGameLoop(true); // 60 frames per second; without it the window is painted only when it has to be
    enginePtr->SetKeyList(static_cast<wchar_t>(VK_ESCAPE));
}

void HelloGame::GameStart() {
    fontPtr = std::make_unique<Font>(L"DejaVu Sans", 40.0F);
    GameEngine::GetSingleton()->EnableAntiAlias(true);
}

void HelloGame::KeyPressed(TCHAR key) {
    if (key == VK_ESCAPE) GameEngine::GetSingleton()->QuitGame();
}

void HelloGame::GameTick(double deltaTime) { seconds += deltaTime; }

void HelloGame::GamePaint(RECT rect) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    const int radius = 90 + static_cast<int>(std::lround(10.0 * std::sin(seconds)));

    enginePtr->FillWindowRect(168, 216, 240);
    enginePtr->SetColor(COLOR(248, 208, 112, 255));
    enginePtr->FillEllipse(rect.right / 2, 220, radius, radius);
    enginePtr->SetColor(COLOR(104, 168, 88, 255));
    enginePtr->FillRoundedRect(-80, 260, rect.right + 80, 760, 400, 160);
    enginePtr->SetColor(COLOR(40, 40, 64, 255));
    enginePtr->SetFont(fontPtr.get());
    enginePtr->DrawString(L"Hello, window!", 96, 340, rect.right, rect.bottom);
}
