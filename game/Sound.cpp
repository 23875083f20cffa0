#include "game/Sound.h"

#include "engine/Audio.h"

#include <algorithm>
#include <span>

namespace {
struct SoundFile {
    int id;
    char const* fileName;
    std::size_t copyCount = 1;
};

// Sounds are opened in the order of these tables; it decides their numbers for the media interface.
constexpr SoundFile trackFiles[] = {
    {musicOverworld, "./Resources/Sound/Overworld.mp3"},
    {musicOverworldHurry, "Resources/Sound/OverworldHurry.mp3"},
    {musicUnderworld, "Resources/Sound/Underworld.mp3"},
    {musicUnderworldHurry, "Resources/Sound/UnderworldHurry.mp3"},
    {musicCastleComplete, "Resources/Sound/CastleComplete.mp3"},
};

// Single sounds first, then those with copies.
constexpr SoundFile effectFiles[] = {
    {effectTest, "Resources/Sound/Test.mp3"},
    {effectPipe, "Resources/Sound/Pipe.mp3"},
    {effectPowerUp, "Resources/Sound/PowerUp.mp3"},
    {effectStarrush, "Resources/Sound/Starrush.mp3"},
    {effectDead, "Resources/Sound/Dead.mp3"},
    {effectGameOver, "Resources/Sound/GameOver.mp3"},
    {effectFlag, "Resources/Sound/Flag.mp3"},
    {effectCoin, "Resources/Sound/Coin.mp3", 10},
    {effectJump, "Resources/Sound/Jump.mp3", 7},
    {effectKillEnemy, "Resources/Sound/KillEnemy.mp3", 5},
    {effectFireballThrow, "Resources/Sound/FireballThrow.mp3", 4},
    {effectBlockBump, "Resources/Sound/BlockBump.mp3", 5},
    {effectBlockBreak, "Resources/Sound/BlockBreak.mp3", 3},
};

constexpr bool HasOneRow(std::span<const SoundFile> files, int id) {
    return std::ranges::count(files, id, &SoundFile::id) == 1;
}
constexpr bool AreComplete() {
    for (int effect = 0; effect < effectCount; ++effect)
        if (!HasOneRow(effectFiles, effect)) return false;
    for (int track = 0; track < musicCount; ++track)
        if (track != musicStarrush && !HasOneRow(trackFiles, track)) return false;
    return true;
}
static_assert(AreComplete(), "each effect and each track has one row");
} // namespace

Sound::Sound() {
    for (const auto& [id, fileName, copyCount] : trackFiles)
        tracks[static_cast<std::size_t>(id)] = std::make_unique<Audio>(fileName);
    for (const auto& [id, fileName, copyCount] : effectFiles) {
        auto& copies = effects[static_cast<std::size_t>(id)].copies;
        while (copies.size() < copyCount) copies.push_back(std::make_unique<Audio>(fileName));
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
    for (int other = 0; other < musicCount; ++other) {
        Audio* const otherPtr = TrackPtr(other);
        if (otherPtr == selectedPtr) continue;
        if (other == musicStarrush) {
            otherPtr->Stop();
        } else {
            otherPtr->Pause();
        }
    }
}

void Sound::Tick(double) {
    for (auto const& trackPtr : tracks)
        if (trackPtr) trackPtr->Tick();
    for (Effect const& effect : effects) {
        for (auto const& copyPtr : effect.copies) copyPtr->Tick();
    }
}

Audio* Sound::TakeCopy(int id) {
    if (id < 0 || id >= effectCount) return nullptr;
    Effect& effect = effects[static_cast<std::size_t>(id)];
    Audio* const copyPtr = effect.copies[effect.nextCopy].get();
    effect.nextCopy = (effect.nextCopy + 1) % effect.copies.size();
    return copyPtr;
}

Audio* Sound::TrackPtr(int id) const {
    if (id == musicStarrush) return effects[effectStarrush].copies.front().get();
    if (id < 0 || id >= musicCount) return nullptr;
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
