#include "engine/GameEngine.h"
#include "examples/hello/HelloGame.h"
#include "platform/WindowedDesktop.h"

int main() {
    platform::Desktop::Use(platform::MakeWindowedDesktop());
    GameEngine::GetSingleton()->SetGame(new HelloGame); // the engine deletes it
    return GameEngine::GetSingleton()->Run(nullptr, 1);
}
