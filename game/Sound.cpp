#include "game/Sound.h"

#include "engine/Audio.h"

namespace {
constexpr char const* trackFiles[] = {"./Resources/Sound/Overworld.mp3", "Resources/Sound/OverworldHurry.mp3",
                                      "Resources/Sound/Underworld.mp3", "Resources/Sound/UnderworldHurry.mp3",
                                      "Resources/Sound/CastleComplete.mp3"};

struct EffectFile {
    SoundEffect id;
    char const* fileName;
    std::size_t copyCount;
};

// In the order of opening, which numbers the sounds for the media interface: first what exists once, then the copies.
constexpr EffectFile effectFiles[] = {
    {effectTest, "Resources/Sound/Test.mp3", 1},
    {effectPipe, "Resources/Sound/Pipe.mp3", 1},
    {effectPowerUp, "Resources/Sound/PowerUp.mp3", 1},
    {effectStarrush, "Resources/Sound/Starrush.mp3", 1},
    {effectDead, "Resources/Sound/Dead.mp3", 1},
    {effectGameOver, "Resources/Sound/GameOver.mp3", 1},
    {effectFlag, "Resources/Sound/Flag.mp3", 1},
    {effectCoin, "Resources/Sound/Coin.mp3", 10},
    {effectJump, "Resources/Sound/Jump.mp3", 7},
    {effectKillEnemy, "Resources/Sound/KillEnemy.mp3", 5},
    {effectFireballThrow, "Resources/Sound/FireballThrow.mp3", 4},
    {effectBlockBump, "Resources/Sound/BlockBump.mp3", 5},
    {effectBlockBreak, "Resources/Sound/BlockBreak.mp3", 3},
};
} // namespace

Sound::Sound() {
    for (std::size_t index = 0; index < trackCount; ++index) tracks[index] = std::make_unique<Audio>(trackFiles[index]);
    for (EffectFile const& file : effectFiles) {
        auto& copies = effects[file.id].copies;
        while (copies.size() < file.copyCount) copies.push_back(std::make_unique<Audio>(file.fileName));
    }
}

Sound::~Sound() = default;

void Sound::PlaySound(int id, int action, int volume) {
    Audio* const audioPtr = TakeCopy(id);
    if (audioPtr != nullptr) Request(audioPtr, action, volume);
}

void Sound::PlayMusic(int id, int action, int volume) {
    Audio* const selectedPtr = TrackPtr(id);
    if (selectedPtr == nullptr) return;
    Request(selectedPtr, action, volume);
    if (action != soundPlay) return;
    for (auto const& trackPtr : tracks) {
        if (trackPtr.get() != selectedPtr) trackPtr->Pause();
    }
    Audio* const starPtr = TrackPtr(musicStarrush);
    if (starPtr != selectedPtr) starPtr->Stop();
}

void Sound::Tick(double) {
    for (auto const& trackPtr : tracks) trackPtr->Tick();
    for (Effect const& effect : effects) {
        for (auto const& copyPtr : effect.copies) copyPtr->Tick();
    }
}

Audio* Sound::TakeCopy(int id) {
    if (id < 0 || id >= static_cast<int>(effectCount)) return nullptr;
    Effect& effect = effects[static_cast<std::size_t>(id)];
    Audio* const copyPtr = effect.copies[effect.nextCopy].get();
    effect.nextCopy = (effect.nextCopy + 1) % effect.copies.size();
    return copyPtr;
}

Audio* Sound::TrackPtr(int id) const {
    if (id == musicStarrush) return effects[effectStarrush].copies.front().get();
    if (id < 0 || id >= static_cast<int>(trackCount)) return nullptr;
    return tracks[static_cast<std::size_t>(id)].get();
}

void Sound::Request(Audio* audioPtr, int action, int volume) {
    switch (action) {
    case soundStop: audioPtr->Stop(); break;
    case soundPlay: audioPtr->Play(0, -1); break;
    case soundPause: audioPtr->Pause(); break;
    default: break;
    }
    if (volume >= 0 && volume <= 100) audioPtr->SetVolume(volume);
}
