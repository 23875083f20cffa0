#include "game/player/StarPower.h"

#include "engine/GameEngine.h"
#include "game/ChosenLevel.h"
#include "game/Level.h"
#include "game/Sound.h"
#include "game/StateReport.h"

void StarPower::Activate() {
    constexpr int duration = 300; // ticks
    Sound::GetSingleton()->PlayMusic(musicStarrush, soundPlay, volumeUnchanged);
    ticksLeft = duration;
    isActive = true;
}

void StarPower::Tick() {
    --ticksLeft;
    isActive = ticksLeft >= 0;
    if (ticksLeft != 0) return;
    if (Level::GetSingleton()->IsFlagDown()) {
        Sound::GetSingleton()->PlayMusic(musicCastleComplete, soundPlay, volumeUnchanged);
    } else {
        Level::StartMusic(chosenLevel.music);
    }
}

int StarPower::NextBand() {
    constexpr int bandCount = 8;
    constexpr int paintsPerSkip = 60; // so often one band is skipped
    if (isActive) {
        ++paintCount;
        if (paintCount % paintsPerSkip == 0) ++band;
        band = band % bandCount + 1;
    }
    GameEngine::OutputDebugString(String(L"") + ticksLeft + L" // " + paintCount + L"\n");
    return isActive ? band : 0;
}

void StarPower::Report(StateReport& report) const {
    report.Add("starCounter", ticksLeft);
    report.Add("starTickCounter", paintCount);
    report.Add("starPalette", band);
}
