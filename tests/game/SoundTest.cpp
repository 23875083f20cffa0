#include "game/Sound.h"

#include "engine/Audio.h"
#include "tests/support/Stage.h"
#include "tests/support/TestSounds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {
/// The sound manager on a recording desktop. Aliases are counted from its first object.
class SoundManager : public testing::Test {
protected:
    ~SoundManager() override { Singleton<Sound>::Destroy(); }

    void Open() {
        Sound::GetSingleton();
        opening = desktop.TakeCommands();
        firstAlias = std::stoi(opening.front().substr(opening.front().find(L"audio") + 5));
    }

    void Play(int effect) { Sound::GetSingleton()->PlaySound(effect, soundPlay, volumeUnchanged); }
    void PlayMusic(int track) { Sound::GetSingleton()->PlayMusic(track, soundPlay, volumeUnchanged); }

    /// What is sent within `count` frames: VERB NUMBER, "play" for "play … from 0 notify".
    std::vector<std::string> RunFrames(int count) {
        for (int frame = 0; frame < count; ++frame) {
            Sound::GetSingleton()->Tick(1.0 / 60.0);
            desktop.EndFrame();
        }
        std::vector<std::string> commands;
        for (const std::wstring& text : desktop.TakeCommands()) commands.push_back(Shortened(text));
        return commands;
    }

    std::string Shortened(const std::wstring& text) const {
        const std::string verb(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(text.find(L' ')));
        return verb + " " +
               std::to_string(std::stoi(text.substr(text.find(L"audio", 6 * (verb == "setaudio")) + 5)) - firstAlias);
    }

    Stage desktop;
    std::vector<std::wstring> opening;
    int firstAlias = 0;
};
} // namespace

TEST_F(SoundManager, OpensItsSoundsInAFixedOrder) {
    Open();
    std::vector<std::wstring> files;
    for (const std::wstring& text : opening) {
        if (!text.starts_with(L"open")) continue;
        const std::size_t begin = text.rfind(L'/') + 1;
        EXPECT_EQ(text.substr(text.find(L'"', begin)),
                  L"\" type mpegvideo alias audio" + std::to_wstring(firstAlias + static_cast<int>(files.size())));
        files.push_back(text.substr(begin, text.find(L".mp3") - begin));
    }
    std::vector<std::wstring> expected = {L"Overworld",      L"OverworldHurry", L"Underworld", L"UnderworldHurry",
                                          L"CastleComplete", L"Test",           L"Pipe",       L"PowerUp",
                                          L"Starrush",       L"Dead",           L"GameOver",   L"Flag"};
    expected.insert(expected.end(), 10, L"Coin");
    expected.insert(expected.end(), 7, L"Jump");
    expected.insert(expected.end(), 5, L"KillEnemy");
    expected.insert(expected.end(), 4, L"FireballThrow");
    expected.insert(expected.end(), 5, L"BlockBump");
    expected.insert(expected.end(), 3, L"BlockBreak");
    EXPECT_EQ(files, expected);
    EXPECT_TRUE(opening.front().starts_with(L"open \"./Resources/Sound/Overworld.mp3\""));
    EXPECT_THAT(opening, SizeIs(3 * expected.size())); // every file is there and has a length
    EXPECT_THAT(RunFrames(2), IsEmpty());
}

TEST_F(SoundManager, LetsTheCopiesOfAnEffectTakeTurns) {
    Open();
    const std::map<int, std::pair<int, int>> pools = {{effectCoin, {12, 10}},     {effectJump, {22, 7}},
                                                      {effectKillEnemy, {29, 5}}, {effectFireballThrow, {34, 4}},
                                                      {effectBlockBump, {38, 5}}, {effectBlockBreak, {43, 3}}};
    for (const auto& [effect, pool] : pools) {
        SCOPED_TRACE(effect);
        const auto [first, count] = pool;
        std::vector<std::string> expected;
        for (int copy = 0; copy < count; ++copy) {
            Play(effect);
            expected.push_back("play " + std::to_string(first + copy));
        }
        EXPECT_EQ(RunFrames(1), expected);
        RunFrames(120); // all have ended
        Play(effect);
        EXPECT_THAT(RunFrames(1), ElementsAre("play " + std::to_string(first)));
        RunFrames(120);
    }
    const std::map<int, int> singles = {{effectTest, 5}, {effectPipe, 6},      {effectPowerUp, 7}, {effectStarrush, 8},
                                        {effectDead, 9}, {effectGameOver, 10}, {effectFlag, 11}};
    for (const auto& [effect, alias] : singles) {
        Play(effect);
        Play(effect);
        EXPECT_THAT(RunFrames(2), ElementsAre("play " + std::to_string(alias)));
    }
}

TEST_F(SoundManager, AppliesActionsAndVolumesToOneCopy) {
    Open();
    Sound* const soundPtr = Sound::GetSingleton();
    soundPtr->PlaySound(effectDead, soundPlay, 100);
    EXPECT_THAT(RunFrames(1), ElementsAre("play 9"));
    EXPECT_THAT(RunFrames(1), ElementsAre("setaudio 9"));
    soundPtr->PlaySound(effectDead, soundPause, 101);
    soundPtr->PlaySound(effectDead, 3, -2);
    soundPtr->PlaySound(effectDead, soundStop, 0);
    EXPECT_THAT(RunFrames(9), ElementsAre("pause 9", "stop 9", "setaudio 9"));
    for (const int id : {-1, 13, 1000}) soundPtr->PlaySound(id, soundPlay, 100);
    for (const int id : {-1, 6, 1000}) soundPtr->PlayMusic(id, soundPlay, volumeUnchanged);
    EXPECT_THAT(RunFrames(2), IsEmpty());
}

TEST_F(SoundManager, PausesTheOtherTracksButStopsTheStar) {
    Open();
    PlayMusic(musicOverworld);
    EXPECT_THAT(RunFrames(2), ElementsAre("play 0"));
    PlayMusic(musicUnderworld);
    EXPECT_THAT(RunFrames(2), ElementsAre("pause 0", "play 2"));
    PlayMusic(musicOverworld);
    EXPECT_THAT(RunFrames(2), ElementsAre("resume 0", "pause 2"));
    PlayMusic(musicStarrush);
    EXPECT_THAT(RunFrames(2), ElementsAre("pause 0", "play 8"));
    PlayMusic(musicOverworld);
    EXPECT_THAT(RunFrames(2), ElementsAre("resume 0", "stop 8"));
    PlayMusic(musicStarrush);
    EXPECT_THAT(RunFrames(2), ElementsAre("pause 0", "play 8"));
    for (int frame = 0; frame < 5; ++frame) PlayMusic(musicCastleComplete);
    EXPECT_THAT(RunFrames(5), ElementsAre("play 4", "stop 8"));
    Sound::GetSingleton()->PlayMusic(musicCastleComplete, soundStop, volumeUnchanged);
    Sound::GetSingleton()->PlayMusic(musicUnderworld, soundPause, volumeUnchanged); // it is paused already
    EXPECT_THAT(RunFrames(5), ElementsAre("stop 4"));
}

TEST_F(SoundManager, StaysSilentWhateverItsFilesAre) {
    std::srand(7);
    const std::filesystem::path previous = std::filesystem::current_path();
    std::vector<std::pair<std::string, std::string>> real;
    for (const auto& entry : std::filesystem::directory_iterator("Resources/Sound")) {
        std::ifstream file(entry.path(), std::ios::binary);
        real.emplace_back(entry.path().filename().string(),
                          std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
    }
    ASSERT_THAT(real, SizeIs(18));
    const TestFolder folder;
    std::filesystem::current_path(folder.Path(""));
    for (const char* kind : {"missing", "empty", "cut", "random"}) {
        SCOPED_TRACE(kind);
        std::filesystem::create_directories("Resources/Sound");
        for (auto [name, bytes] : real) {
            if (std::string_view(kind) == "missing") break;
            if (std::string_view(kind) == "empty") bytes.clear();
            if (std::string_view(kind) == "cut") bytes.resize(bytes.size() / 3);
            if (std::string_view(kind) == "random") {
                for (char& byte : bytes) byte = static_cast<char>(std::rand());
            }
            folder.Write("Resources/Sound/" + name, bytes);
        }
        PlayMusic(musicOverworld);
        for (int effect = 0; effect <= 12; ++effect) Play(effect);
        PlayMusic(musicStarrush);
        RunFrames(200);
        EXPECT_THAT(desktop->boxes, IsEmpty());
        Singleton<Sound>::Destroy();
        std::filesystem::remove_all("Resources");
    }
    std::filesystem::current_path(previous);
}
