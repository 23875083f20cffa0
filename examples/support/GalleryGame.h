#pragma once

#include "engine/GameEngine.h"
#include "platform/WindowedDesktop.h"

/// What the examples share: a window 512 x 480 with a title, the loop running, smooth edges, Escape ends.
class GalleryGame : public AbstractGame {
public:
    explicit GalleryGame(String const& windowTitle) : title(windowTitle) {}
    void GameInitialize(HINSTANCE instance) override;
    void KeyPressed(TCHAR key) override;

protected:
    static GameEngine& Engine() { return *GameEngine::GetSingleton(); }
    /// Escape, and the keys an example wants to hear of besides.
    static void WatchKeys(String const& more);

private:
    String title;
};

/// Runs a Game in a window; the exit code of the program. The desktop comes first, since a game may hold shapes.
template <class Game>
int RunInWindow() {
    platform::Desktop::Use(platform::MakeWindowedDesktop());
    GameEngine::GetSingleton()->SetGame(new Game);
    return GameEngine::GetSingleton()->Run(nullptr, 1);
}
