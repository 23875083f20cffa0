#pragma once

#include "game/Singleton.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

class Audio;

// What the rest of the game asks for, by number. A new one needs a row in a table of Sound.cpp.
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
    musicStarrush = 5, // sounds by the effect of the same name
    musicCount
};
enum SoundAction : int { soundStop = 0, soundPlay = 1, soundPause = 2 };
constexpr int volumeUnchanged = -1;

/// Every track and every effect of the game. Frequent effects have several copies that take turns, so that they can
/// overlap themselves.
class Sound {
public:
    /// The first call opens all sound files.
    static Sound* GetSingleton() { return Singleton<Sound>::Get(); }
    virtual ~Sound();

    /// Plays, pauses or stops an effect, then sets its volume: 0 to 100, or volumeUnchanged. What plays already is not
    /// started again. Unknown numbers are ignored.
    void PlaySound(int id, int action, int volume);
    /// Plays, pauses or stops a track. One that starts pauses the others, and goes on from where it was paused itself;
    /// the star music is stopped instead and always starts from its beginning.
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

    std::array<std::unique_ptr<Audio>, musicCount> tracks; // by number; no object of its own for the star music
    std::array<Effect, effectCount> effects;               // by number
};
