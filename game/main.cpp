#include "engine/GameEngine.h"
#include "game/Quillfen.h"
#include "platform/WindowedDesktop.h"

int main() {
    platform::Desktop::Use(platform::MakeWindowedDesktop());
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetGame(Quillfen::GetSingleton());
    return enginePtr->Run(nullptr, 1);
}
