#include "engine/GameEngine.h"
#include "platform/Resources.h"
#include "platform/ScriptedDesktop.h"

#include <cstdio>

struct Game : AbstractGame {
    void GameStart() override { GameEngine::GetSingleton()->RunGameLoop(true); }
    void GamePaint(RECT) override {
        GameEngine& engine = *GameEngine::GetSingleton();
        engine.FillWindowRect(10, 20, 30);
        engine.SetColor(COLOR(200, 100, 50, 255));
        engine.FillRect(20, 20, 40, 40);
    }
};

/// Exit code 0 if three frames show the square on its ground and the embedded text is there.
int main() {
    auto desktopPtr = std::make_unique<platform::ScriptedDesktop>();
    int goodFrames = 0;
    desktopPtr->onFrame = [&goodFrames](int, const platform::FrameView& frame) {
        goodFrames += frame.pixels[0] == 0xFF0A141E && frame.pixels[30 * frame.stride + 30] == 0xFFC86432;
    };
    desktopPtr->End(3);
    platform::Desktop::Use(std::move(desktopPtr));
    GameEngine::GetSingleton()->SetGame(new Game);
    const int exitCode = GameEngine::GetSingleton()->Run(nullptr, 1);
    platform::Desktop::Use(nullptr);
    const bool hasResource = !platform::FindResource(1, "TEXT").empty();
    std::printf("exit code %d, %d good frames, resource found: %d\n", exitCode, goodFrames, hasResource);
    return exitCode == 0 && goodFrames == 3 && hasResource ? 0 : 1;
}
