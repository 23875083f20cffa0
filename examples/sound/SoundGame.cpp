#include "examples/sound/SoundGame.h"

#include "platform/Messages.h"

#include <algorithm>

namespace {
constexpr int endsWanted = 5;
}

void SoundGame::GameStart() {
    WatchKeys(L" P");
    fontPtr = std::make_unique<Font>(L"DejaVu Sans", 20.0F);
    bellPtr = std::make_unique<Audio>(L"examples/sound/bell.wav");
    bellPtr->AddActionListener(this);
    bellPtr->SetVolume(70);
    Ring();
}

void SoundGame::Ring() {
    played = 0.0;
    bellPtr->Play(0, -1);
}

void SoundGame::CallAction(Caller*) {
    if (++ends < endsWanted) Ring();
}

void SoundGame::KeyPressed(TCHAR key) {
    GalleryGame::KeyPressed(key);
    if (key == VK_SPACE && !bellPtr->IsPlaying()) {
        ends = 0;
        Ring();
    }
    if (key == 'P' && bellPtr->IsPaused()) {
        bellPtr->Play(0, -1); // resumes
    } else if (key == 'P') {
        bellPtr->Pause();
    }
}

void SoundGame::GameTick(double deltaTime) {
    bellPtr->Tick(); // sends the next command; every sound needs this once per frame
    if (bellPtr->IsPlaying() && !bellPtr->IsPaused()) played += deltaTime;
}

void SoundGame::GamePaint(RECT) {
    const double part = bellPtr->IsPlaying() ? std::min(1.0, played * 1000.0 / bellPtr->GetDuration()) : 0.0;
    Engine().FillWindowRect(40, 44, 72);
    Engine().SetFont(fontPtr.get());
    Engine().SetColor(COLOR(224, 224, 232, 255));
    Engine().DrawString(L"Space rings the bell, P pauses it.", 64, 80, 500, 120);
    Engine().DrawRoundedRect(64.0, 180, 448, 220, 8, 8, 2);
    Engine().SetColor(COLOR(248, 208, 112, 255));
    if (part > 0.0) Engine().FillRect(RECT2(70, 186, 70 + 372 * part, 214));
    for (int i = 0; i < endsWanted; ++i) {
        const DOUBLE2 centre(96.0 + 80.0 * i, 300);
        Engine().DrawEllipse(centre, 24, 24, 2);
        if (i < ends) Engine().FillEllipse(centre, 16, 16); // how often the listener was called
    }
}
