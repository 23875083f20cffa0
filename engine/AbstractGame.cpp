#include "engine/AbstractGame.h"

#include "engine/GameEngine.h"

void AbstractGame::GameInitialize(HINSTANCE) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetTitle(L"Game Engine version 2_13 jan 2014");
    enginePtr->SetIcon(1000);
    enginePtr->SetSmallIcon(1001);
    enginePtr->SetWidth(640);
    enginePtr->SetHeight(480);
}
