#include "examples/support/GalleryGame.h"

#include "platform/Messages.h"

void GalleryGame::GameInitialize(HINSTANCE instance) {
    AbstractGame::GameInitialize(instance);
    Engine().SetTitle(title);
    Engine().SetWidth(512);
    Engine().SetHeight(480);
    Engine().RunGameLoop(true);
    Engine().EnableAntiAlias(true);
    WatchKeys(L"");
}

void GalleryGame::KeyPressed(TCHAR key) {
    if (key == VK_ESCAPE) Engine().QuitGame();
}

void GalleryGame::WatchKeys(String const& more) { Engine().SetKeyList(String(static_cast<wchar_t>(VK_ESCAPE)) + more); }
