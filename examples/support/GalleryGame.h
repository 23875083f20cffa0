#pragma once

#include "engine/GameEngine.h"
#include "platform/WindowedDesktop.h"

/// The common part of the examples: a window of 512 x 480 with a title, a running loop, smooth edges; Escape quits.
class GalleryGame : public AbstractGame {
public:
    explicit GalleryGame(String const& windowTitle) : title(windowTitle) {}
    void GameInitialize(HINSTANCE instance) override;
    void KeyPressed(TCHAR key) override;

protected:
    static GameEngine& Engine() { return *GameEngine::GetSingleton(); }
    /// The keys whose release is reported: Escape and those in `more`.
    static void WatchKeys(String const& more);

private:
    String title;
};

/// Runs a Game in a window and returns the exit code. The desktop comes first, since a game may hold shapes.
template <class Game>
int RunInWindow() {
    platform::Desktop::Use(platform::MakeWindowedDesktop());
    GameEngine::GetSingleton()->SetGame(new Game);
    return GameEngine::GetSingleton()->Run(nullptr, 1);
}
