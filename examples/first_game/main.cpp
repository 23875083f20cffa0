#include "FirstGame.h"
#include "engine/GameEngine.h"
#include "platform/WindowedDesktop.h"

int main() {
    platform::Desktop::Use(platform::MakeWindowedDesktop());
    GameEngine::GetSingleton()->SetGame(new FirstGame); // the engine deletes it
    return GameEngine::GetSingleton()->Run(nullptr, 1);
}
