#pragma once

#include "game/Singleton.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

class Audio;

// The numbers by which the game asks for sounds. A new one needs a row in Sound.cpp.
enum SoundEffect : int {
    effectTest = 0,
    effectJump = 1,
    effectBlockBump = 2,
    effectPipe = 3,
    effectCoin = 4,
    effectPowerUp = 5,
    effectStarrush = 6,
    effectKillEnemy = 7,
    effectDead = 8,
    effectGameOver = 9,
    effectBlockBreak = 10,
    effectFireballThrow = 11,
    effectFlag = 12,
    effectCount
};
enum Music : int {
    musicOverworld = 0,
    musicOverworldHurry = 1,
    musicUnderworld = 2,
    musicUnderworldHurry = 3,
    musicCastleComplete = 4,
    musicStarrush = 5, // played by the effect of the same name
    musicCount
};
enum SoundAction : int { soundStop = 0, soundPlay = 1, soundPause = 2 };
constexpr int volumeUnchanged = -1;

/// Every track and every effect of the game. A frequent effect has several copies, which take turns: so it can sound
/// again before it has ended.
class Sound {
public:
    /// The first call opens all sound files.
    static Sound* GetSingleton() { return Singleton<Sound>::Get(); }
    virtual ~Sound();

    /// Plays, pauses or stops an effect, then sets its volume: 0 to 100, or volumeUnchanged. A sound that plays already
    /// goes on playing. Unknown numbers are ignored.
    void PlaySound(int id, int action, int volume);
    /// Plays, pauses or stops a track. A track that starts pauses the others, and continues where it was paused itself.
    /// The star music is stopped instead, so it always starts from its beginning.
    void PlayMusic(int id, int action, int volume);
    /// Lets every sound send one of its commands; once a frame.
    void Tick(double deltaTime);

private:
    friend class Singleton<Sound>;
    Sound();

    struct Effect {
        std::vector<std::unique_ptr<Audio>> copies;
        std::size_t nextCopy = 0;
    };

    Audio* TakeCopy(int id);
    Audio* TrackPtr(int id) const;
    static void Request(Audio* audioPtr, int action, int volume);

    std::array<std::unique_ptr<Audio>, musicCount> tracks; // by number; null for the star music
    std::array<Effect, effectCount> effects;               // by number
};
