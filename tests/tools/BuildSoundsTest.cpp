#include "platform/SoundFile.h"
#include "platform/sndfile/RecordingDecoder.h"
#include "tests/support/TestFolder.h"
#include "tools/build_sounds/Mastering.h"
#include "tools/build_sounds/Player.h"
#include "tools/build_sounds/ScoreReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

namespace {

using synth::Score;
using synth::Wave;
using testing::HasSubstr;
using Samples = std::vector<std::int16_t>;

const std::string oneTrack = "patch p\n  wave pulse\ntrack t p\n  gate 1\n";

Score Read(const std::string& text) {
    const TestFolder folder;
    folder.Write("x.score", text);
    return synth::ReadScore(folder.Path("x.score"));
}

TEST(BuildSounds, NamesFileAndLineOfWhatIsWrong) {
    const std::pair<std::string, const char*> cases[] = {
        {"tempo fast\n", "x.score:1: 'fast' is not a number"},
        {"\n# a comment\ntempo 900\n", "x.score:3: '900' is not between 20 and 400"},
        {"tmepo 120\n", "x.score:1: unknown word 'tmepo'"},
        {"patch p foo\n", "x.score:1: expected: patch NAME [like OTHER]"},
        {"patch p\n  wave organ\n", "x.score:2: no wave named 'organ'"},
        {"patch p\n  pitch 0@50 3@20\n", "x.score:2: the points are not in order of time"},
        {"  wave pulse\n", "x.score:1: an indented line outside a block"},
        {"track t p\n", "x.score:1: no patch named 'p'"},
        {oneTrack + "phrase a\n  c4:4 h4\n", "x.score:6: 'h4' is not a note"},
        {oneTrack + "phrase a\n  c4:4 d4 e4:8 |\n", "x.score:6: this bar lasts 2.5 beats instead of 4"},
        {oneTrack + "phrase a\n  ~ c4\n", "x.score:6: nothing stands before the tie"},
        {oneTrack + "beat b\n  x.z.\n", "x.score:6: 'z' is not one of x X o . -"},
        {oneTrack + "phrase a\n  c4:1 |\nsection s bars 2\n  t: a\n", "x.score:8: 't' plays 1 bars instead of 2"},
        {oneTrack + "section s bars 1000\n  t: rest*1000\norder s\n",
         "x.score:7: the score lasts longer than 15 minutes"},
        {"use missing.txt\n", "missing.txt:0: cannot be read"},
        {"use x.score\n", "x.score:1: 'use' goes round in a circle"},
        {oneTrack, "x.score: the score plays nothing"},
    };
    for (const auto& [text, fault] : cases)
        EXPECT_THAT([text = text] { Read(text); }, testing::ThrowsMessage<synth::ScoreError>(HasSubstr(fault)));
}

TEST(BuildSounds, PutsEveryNoteWhereItIsWritten) {
    const Score score = Read("tempo 60\nswing 16 0.6\n" + oneTrack +
                             "phrase a\n  c4:4 f#4+bb3:8. /g4:16 r:4 d5:8! ~ |\n"
                             "section one bars 1\n  t: a\n"
                             "section two bars 3 tempo 120\n  t: rest a-12*2\n"
                             "order one two\ntail 0.5\n");
    std::string notes; // start + length: pitch < where the slide begins
    for (const synth::Note& note : score.notes) {
        char text[64];
        std::snprintf(text, sizeof text, " %g+%g:%g<%g", note.start, note.length, note.pitch, note.glideFrom);
        notes += text;
    }
    // The swing makes the last sixteenth late; then a slide and a tie.
    EXPECT_EQ(notes, " 0+1:60<60 1+0.8:66<66 1+0.8:58<58 1.8+0.2:67<58 3+1:74<74"
                     // After a bar's rest, twice as fast and an octave lower.
                     " 6+0.5:48<48 6.5+0.4:54<54 6.5+0.4:46<46 6.9+0.1:55<46 7.5+0.5:62<62"
                     " 8+0.5:48<48 8.5+0.4:54<54 8.5+0.4:46<46 8.9+0.1:55<46 9.5+0.5:62<62");
    EXPECT_GT(score.notes[4].gain, score.notes[0].gain);
    EXPECT_DOUBLE_EQ(score.length, 4.0 + 6.0 + 0.5);
}

TEST(Player, PlaysNotesInTune) {
    for (const Wave wave : {Wave::pulse, Wave::triangle, Wave::saw, Wave::sine}) {
        for (const auto& [pitch, hertz] : {std::pair{69.0, 440.0}, {60.0, 261.626}, {38.0, 73.416}, {86.0, 1174.66}}) {
            synth::Patch patch;
            patch.wave = wave;
            const std::vector<float> tone = synth::PlayNote(patch, {0.0, 2.0, pitch, pitch, 1.0, 0}, 1);
            int periods = 0;
            for (std::size_t i = 1; i < 2 * synth::samplesPerSecond; ++i) periods += tone[i - 1] <= 0 && tone[i] > 0;
            EXPECT_NEAR(periods / 2.0, hertz, 0.5) << static_cast<int>(wave);
        }
    }
}

TEST(Player, EveryNoteEndsInSilenceWithoutAStep) {
    for (const double length : {0.002, 0.05, 0.5}) { // released in the attack, in the decay, while it is held
        synth::Patch patch;
        patch.wave = Wave::sine;
        patch.attack = 0.01;
        const std::vector<float> tone = synth::PlayNote(patch, {0.0, length, 45.0, 45.0, 1.0, 0}, 1);
        EXPECT_NEAR(tone.front(), 0.0F, 1e-3);
        EXPECT_NEAR(tone.back(), 0.0F, 1e-4);
        for (std::size_t i = 1; i < tone.size(); ++i) // a sine of 110 Hz moves by 0.016 at most
            ASSERT_NEAR(tone[i], tone[i - 1], 0.03F) << length << ", " << i;
    }
}

synth::Stereo ToStereo(const Samples& samples) {
    synth::Stereo sound;
    for (std::size_t i = 0; i < samples.size(); ++i)
        (i % 2 == 0 ? sound.left : sound.right).push_back(samples[i] / 32768.0F);
    return sound;
}

TEST(BuildSounds, MasteringReachesTheLoudnessAndKeepsThePeak) {
    // a quiet tone under hard drums: the limiter has to work, and takes loudness away
    const Score score = Read("loudness -14\npeak -6\ntempo 120\npatch p\n  wave sine\npatch k\n  wave noise\n"
                             "  envelope 0 40 0 10\ntrack t p\ntrack d k\n  gain 6\n"
                             "phrase a\n  a4:4 e4 c#4 a4 |\nbeat b\n  x...x...x...x... |\n"
                             "section s bars 4\n  t: a*4\n  d: b*4\norder s\n");
    const Samples samples = synth::Master(synth::PlayScore(score), score);
    EXPECT_THAT(samples, testing::Each(testing::AllOf(testing::Ge(-16423), testing::Le(16423)))); // -6 dB of full scale
    EXPECT_NEAR(synth::MeasureLoudness(ToStereo(samples)), -14.0, 0.25);
}

/// How much louder the sound is than what a file adds to it, as a ratio of powers; 0 if the file is shorter or longer.
double Fidelity(const Samples& samples, const std::string& path) {
    const auto decoderPtr = platform::OpenRecording(path);
    Samples heard(samples.size() + 2);
    if (!decoderPtr || decoderPtr->Read(heard) != samples.size() / 2) return 0.0;
    double power = 0.0;
    double error = 1e-9;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        power += std::pow(samples[i], 2.0);
        error += std::pow(samples[i] - heard[i], 2.0);
    }
    return power / error;
}

TEST(BuildSounds, MakesWhatTheGamePlays) {
    const TestFolder folder;
    const std::string mp3 = (folder.Root() / "x.mp3").string();
    const std::string wav = (folder.Root() / "x.wav").string();
    const std::string nowhere = (folder.Root() / "no such folder/x").string();
    for (const char* name : {"Starrush", "Coin", "PowerUp", "BlockBreak"}) {
        SCOPED_TRACE(name);
        const Score score = synth::ReadScore("art/sound/" + std::string(name) + ".score");
        const Samples samples = synth::Master(synth::PlayScore(score), score);
        ASSERT_TRUE(platform::SaveMp3(mp3, samples, 2, synth::samplesPerSecond, score.quality));
        ASSERT_TRUE(platform::SaveWav(wav, samples, 2, synth::samplesPerSecond));
        EXPECT_GT(Fidelity(samples, wav), 1e8);
        const double built = Fidelity(samples, mp3);
        EXPECT_GT(built, 20.0);
        const double kept = Fidelity(samples, "Resources/Sound/" + std::string(name) + ".mp3");
        EXPECT_GT(kept, 0.9 * built) << "the score was edited and the sound not built again";
    }
    EXPECT_FALSE(platform::SaveMp3(nowhere, Samples(2000), 2, synth::samplesPerSecond, 0.5));
    EXPECT_FALSE(platform::SaveWav(nowhere, Samples(2000), 2, synth::samplesPerSecond));
}

TEST(Loudness, OfTheReferenceToneIsWhatTheStandardSays) {
    Samples tone; // a sine of 997 Hz at full scale in one channel is at -3.01 LUFS
    for (int i = 0; i < 5 * synth::samplesPerSecond; ++i) {
        const double turn = 2.0 * std::numbers::pi * 997.0 * i / synth::samplesPerSecond;
        tone.insert(tone.end(), {static_cast<std::int16_t>(32767.0 * std::sin(turn)), 0});
    }
    EXPECT_NEAR(synth::MeasureLoudness(ToStereo(tone)), -3.01, 0.02);
}

} // namespace
