#include "game/Sound.h"

#include "engine/Audio.h"
#include "tests/support/Stage.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {
/// The sound manager on a recording desktop.
class SoundManager : public testing::Test {
protected:
    ~SoundManager() override { Singleton<Sound>::Destroy(); }

    static Sound& Manager() { return *Sound::GetSingleton(); }
    static void Play(int effect) { Manager().PlaySound(effect, soundPlay, volumeUnchanged); }
    static void PlayMusic(int track) { Manager().PlayMusic(track, soundPlay, volumeUnchanged); }

    /// What is sent within `count` frames: "VERB FILE", with the number of a copy behind it that is not the first.
    std::vector<std::string> RunFrames(int count) {
        for (int frame = 0; frame < count; ++frame) {
            Manager().Tick(1.0 / 60.0);
            stage.EndFrame();
        }
        std::vector<std::string> sent;
        for (const std::wstring& command : stage.TakeCommands()) {
            std::istringstream words(std::string(command.begin(), command.end()));
            std::string verb;
            std::string alias;
            words >> verb >> alias;
            if (verb == "open") {
                std::string file = std::filesystem::path(alias).stem().string();
                if (++copies[file] > 1) file += " " + std::to_string(copies[file]);
                while (words >> alias) {}
                names[alias] = file;
            } else if (verb != "set" && verb != "status") {
                sent.push_back(verb + " " + names[alias]);
            }
        }
        return sent;
    }

    Stage stage;
    std::map<std::string, std::string> names; // by alias
    std::map<std::string, int> copies;
};
} // namespace

TEST_F(SoundManager, LetsTheCopiesOfAnEffectTakeTurns) {
    const std::map<int, std::pair<std::string, int>> pools = {
        {effectCoin, {"Coin", 10}},          {effectJump, {"Jump", 7}},
        {effectKillEnemy, {"KillEnemy", 5}}, {effectFireballThrow, {"FireballThrow", 4}},
        {effectBlockBump, {"BlockBump", 5}}, {effectBlockBreak, {"BlockBreak", 3}},
        {effectDead, {"Dead", 1}},           {effectPipe, {"Pipe", 1}}};
    for (const auto& [effect, pool] : pools) {
        std::vector<std::string> expected = {"play " + pool.first};
        for (int copy = 2; copy <= pool.second; ++copy) expected.push_back(expected[0] + " " + std::to_string(copy));
        for (int request = 0; request < pool.second + 1; ++request)
            Play(effect); // the last one finds the first playing
        EXPECT_EQ(RunFrames(2), expected);
        RunFrames(600); // all have ended
        Play(effect);
        EXPECT_THAT(RunFrames(1), ElementsAre(expected.at(1 % expected.size())));
        RunFrames(600);
    }
}

TEST_F(SoundManager, AppliesActionsAndVolumesToOneCopy) {
    Manager().PlaySound(effectDead, soundPlay, 100);
    EXPECT_THAT(RunFrames(1), ElementsAre("play Dead"));
    EXPECT_THAT(RunFrames(1), ElementsAre("setaudio Dead"));
    Manager().PlaySound(effectDead, soundPause, 101);
    Manager().PlaySound(effectDead, 3, -2);
    Manager().PlaySound(effectDead, soundStop, 0);
    EXPECT_THAT(RunFrames(9), ElementsAre("pause Dead", "stop Dead", "setaudio Dead"));
    for (const int id : {-1, 13, 1000}) Manager().PlaySound(id, soundPlay, 100);
    for (const int id : {-1, 6, 1000}) Manager().PlayMusic(id, soundPlay, volumeUnchanged);
    EXPECT_THAT(RunFrames(2), IsEmpty());
}

TEST_F(SoundManager, PausesTheOtherTracksButStopsTheStar) {
    PlayMusic(musicOverworld);
    EXPECT_THAT(RunFrames(2), ElementsAre("play Overworld"));
    PlayMusic(musicUnderworld);
    EXPECT_THAT(RunFrames(2), ElementsAre("pause Overworld", "play Underworld"));
    PlayMusic(musicOverworld);
    EXPECT_THAT(RunFrames(2), ElementsAre("resume Overworld", "pause Underworld"));
    for (int time = 0; time < 2; ++time) {
        PlayMusic(musicStarrush);
        EXPECT_THAT(RunFrames(2), ElementsAre("pause Overworld", "play Starrush"));
        PlayMusic(musicOverworld);
        EXPECT_THAT(RunFrames(2), ElementsAre("resume Overworld", "stop Starrush"));
    }
    for (int frame = 0; frame < 5; ++frame) PlayMusic(musicCastleComplete);
    EXPECT_THAT(RunFrames(5), ElementsAre("pause Overworld", "play CastleComplete"));
    Manager().PlayMusic(musicCastleComplete, soundStop, volumeUnchanged);
    Manager().PlayMusic(musicUnderworld, soundPause, volumeUnchanged); // it is paused already
    EXPECT_THAT(RunFrames(5), ElementsAre("stop CastleComplete"));
}

TEST_F(SoundManager, StaysSilentWhateverItsFilesAre) {
    const std::filesystem::path root = std::filesystem::current_path();
    std::mt19937 random(7);
    for (const std::string kind : {"missing", "empty", "cut", "random"}) {
        SCOPED_TRACE(kind);
        const TestFolder folder;
        for (const auto& entry : std::filesystem::directory_iterator(root / "Resources/Sound")) {
            if (kind == "missing") break;
            std::ifstream file(entry.path(), std::ios::binary);
            std::string bytes(std::istreambuf_iterator<char>(file), {});
            if (kind == "empty") bytes.clear();
            if (kind == "cut") bytes.resize(bytes.size() / 3);
            if (kind == "random") std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
            folder.Write("Resources/Sound/" + entry.path().filename().string(), bytes);
        }
        std::filesystem::current_path(folder.Root());
        PlayMusic(musicOverworld);
        for (int effect = effectTest; effect <= effectFlag; ++effect) Play(effect);
        PlayMusic(musicStarrush);
        RunFrames(200);
        EXPECT_THAT(stage->boxes, IsEmpty());
        Singleton<Sound>::Destroy();
        std::filesystem::current_path(root);
    }
}
