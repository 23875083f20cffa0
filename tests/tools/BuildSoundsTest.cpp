#include "platform/SoundFile.h"
#include "platform/sndfile/RecordingDecoder.h"
#include "tests/support/TestSounds.h"
#include "tools/build_sounds/Mastering.h"
#include "tools/build_sounds/Player.h"
#include "tools/build_sounds/ScoreReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using synth::Note;
using synth::Patch;
using synth::Score;
using synth::Wave;
using testing::HasSubstr;

class BuildSounds : public testing::Test {
protected:
    Score Read(const std::string& text) const {
        folder.Write("x.score", text);
        return synth::ReadScore(folder.Path("x.score"));
    }
    std::string Fault(const std::string& text) const {
        try {
            Read(text);
        } catch (const synth::ScoreError& error) { return error.what(); }
        return "none";
    }

    TestFolder folder;
};

/// The frequency of a steady tone, from its upward crossings.
double MeasureHertz(const std::vector<float>& samples) {
    std::vector<double> crossings;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        if (samples[i - 1] > 0.0F || samples[i] <= 0.0F) continue;
        crossings.push_back(static_cast<double>(i) - samples[i] / (samples[i] - samples[i - 1]));
    }
    return static_cast<double>(crossings.size() - 1) / (crossings.back() - crossings.front()) * synth::samplesPerSecond;
}

const std::string oneTrack = "patch p\n  wave pulse\ntrack t p\n  gate 1\n";

TEST_F(BuildSounds, NamesFileAndLineOfWhatIsWrong) {
    const struct {
        std::string text;
        std::string line;
        std::string what;
    } cases[] = {
        {"tempo fast\n", ":1: ", "'fast' is not a number"},
        {"\n# a comment\ntempo 900\n", ":3: ", "not between 20 and 400"},
        {"tmepo 120\n", ":1: ", "unknown word 'tmepo'"},
        {"patch p foo\n", ":1: ", "expected: patch NAME"},
        {"patch p\n  wave organ\n", ":2: ", "no wave named 'organ'"},
        {"patch p\n  pitch 0@50 3@20\n", ":2: ", "order of time"},
        {"  wave pulse\n", ":1: ", "outside a block"},
        {"track t p\n", ":1: ", "no patch named 'p'"},
        {oneTrack + "phrase a\n  c4:4 h4\n", ":6: ", "'h4' is not a note"},
        {oneTrack + "phrase a\n  c4:4 d4 e4:8 |\n", ":6: ", "2.5 beats instead of 4"},
        {oneTrack + "phrase a\n  ~ c4\n", ":6: ", "before the tie"},
        {oneTrack + "beat b\n  x.z.\n", ":6: ", "'z'"},
        {oneTrack + "phrase a\n  c4:1 |\nsection s bars 2\n  t: a\n", ":8: ", "1 bars instead of 2"},
        {oneTrack + "section s\n  t: nowhere\n", ":6: ", "no phrase named 'nowhere'"},
        {oneTrack + "section s\n  u: rest\n", ":6: ", "no track named 'u'"},
        {oneTrack + "section s bars 1000\n  t: rest*1000\norder s\n", ":7: ", "longer than 15 minutes"},
        {"use missing.txt\n", "missing.txt:0: ", "cannot be read"},
        {"use x.score\n", "x.score:1: ", "circle"},
        {oneTrack, "x.score:", "plays nothing"},
    };
    for (const auto& [text, line, what] : cases) {
        SCOPED_TRACE(text);
        EXPECT_THAT(Fault(text), HasSubstr(line));
        EXPECT_THAT(Fault(text), HasSubstr(what));
    }
}

TEST_F(BuildSounds, PutsEveryNoteWhereItIsWritten) {
    const Score score = Read("tempo 60\nswing 16 0.6\n" + oneTrack +
                             "phrase a\n  c4:4 f#4+bb3:8. /g4:16 r:4 d5:8! ~ |\n"
                             "section one bars 1\n  t: a\n"
                             "section two bars 3 tempo 120\n  t: rest a-12*2\n"
                             "order one two\ntail 0.5\n");
    ASSERT_EQ(score.notes.size(), 15U);
    EXPECT_EQ(score.notes[0].pitch, 60.0);
    EXPECT_EQ(score.notes[1].pitch, 66.0);
    EXPECT_EQ(score.notes[2].pitch, 58.0);
    EXPECT_DOUBLE_EQ(score.notes[1].start, 1.0);
    EXPECT_DOUBLE_EQ(score.notes[3].start, 1.8); // the swing makes the last sixteenth of the beat late
    EXPECT_EQ(score.notes[3].glideFrom, 58.0);
    EXPECT_DOUBLE_EQ(score.notes[4].length, 1.0); // the tie
    EXPECT_GT(score.notes[4].gain, score.notes[0].gain);
    EXPECT_DOUBLE_EQ(score.notes[10].start, 4.0 + 2.0 + 2.0); // the second round, twice as fast, behind a bar's rest
    EXPECT_EQ(score.notes[10].pitch, 48.0);
    EXPECT_DOUBLE_EQ(score.length, 4.0 + 6.0 + 0.5);
}

TEST(Player, PlaysNotesInTune) {
    for (const Wave wave : {Wave::pulse, Wave::triangle, Wave::saw, Wave::sine}) {
        for (const auto& [pitch, hertz] : {std::pair{69.0, 440.0}, {60.0, 261.626}, {38.0, 73.416}, {86.0, 1174.66}}) {
            SCOPED_TRACE(pitch);
            Patch patch;
            patch.wave = wave;
            const std::vector<float> tone = synth::PlayNote(patch, {0.0, 1.0, pitch, pitch, 1.0, 0}, 1);
            EXPECT_NEAR(MeasureHertz(tone), hertz, hertz * 0.001);
        }
    }
}

TEST(Player, EveryNoteEndsInSilenceWithoutAStep) {
    for (const double length : {0.002, 0.05, 0.5}) { // let go in the attack, in the decay, while it is held
        SCOPED_TRACE(length);
        Patch patch;
        patch.wave = Wave::sine;
        patch.attack = 0.01;
        const std::vector<float> tone = synth::PlayNote(patch, {0.0, length, 45.0, 45.0, 1.0, 0}, 1);
        EXPECT_NEAR(tone.front(), 0.0F, 1e-3);
        EXPECT_NEAR(tone.back(), 0.0F, 1e-4);
        float step = 0.0F;
        for (std::size_t i = 1; i < tone.size(); ++i) step = std::max(step, std::abs(tone[i] - tone[i - 1]));
        EXPECT_LT(step, 0.03F); // a sine of 110 Hz moves by 0.016 at most
    }
}

TEST_F(BuildSounds, TheSameScoreGivesTheSameSamples) {
    const std::string text = "patch n\n  wave noise\npatch g\n  wave grit\n  detune 9\ntrack t n g\n  room 0.3\n"
                             "  echo 0.5 0.5 0.5 1\nphrase a\n  c3:8 d3 e3 f3 g3:2 |\nsection s bars 1\n  t: a\n"
                             "order s\n";
    const Score score = Read(text);
    EXPECT_EQ(synth::Master(synth::PlayScore(score), score), synth::Master(synth::PlayScore(Read(text)), score));
}

TEST_F(BuildSounds, MasteringReachesTheLoudnessAndKeepsThePeak) {
    const Score score = Read("loudness -14\npeak -6\ntempo 120\npatch p\n  wave sine\npatch k\n  wave noise\n"
                             "  envelope 0 40 0 10\ntrack t p\ntrack d k\n  gain 6\n"
                             "phrase a\n  a4:4 e4 c#4 a4 |\nbeat b\n  x...x...x...x... |\n"
                             "section s bars 4\n  t: a*4\n  d: b*4\norder s\n");
    const std::vector<std::int16_t> samples = synth::Master(synth::PlayScore(score), score);
    synth::Stereo heard;
    for (std::size_t i = 0; i < samples.size(); i += 2) {
        heard.left.push_back(samples[i] / 32768.0F);
        heard.right.push_back(samples[i + 1] / 32768.0F);
    }
    const auto [lowest, highest] = std::minmax_element(samples.begin(), samples.end());
    EXPECT_LE(std::max<int>(*highest, -*lowest), 32768 * 0.5013);
    EXPECT_NEAR(synth::MeasureLoudness(heard), -14.0, 0.5);
}

TEST(Loudness, OfTheReferenceToneIsWhatTheStandardSays) {
    synth::Stereo tone; // a sine of 997 Hz and full scale in one channel is at -3.01 LUFS
    for (int i = 0; i < 5 * synth::samplesPerSecond; ++i) {
        tone.left.push_back(std::sin(2.0F * 3.14159265F * 997.0F * static_cast<float>(i) / synth::samplesPerSecond));
        tone.right.push_back(0.0F);
    }
    EXPECT_NEAR(synth::MeasureLoudness(tone), -3.01, 0.05);
}

TEST_F(BuildSounds, AFileComesBackAsItWasWritten) {
    std::vector<std::int16_t> samples;
    for (int i = 0; i < 20000; ++i) {
        samples.push_back(static_cast<std::int16_t>(9000.0 * std::sin(i * 0.05)));
        samples.push_back(static_cast<std::int16_t>(7000.0 * std::sin(i * 0.08)));
    }
    const std::string mp3 = std::filesystem::path(folder.Path("x.mp3")).string();
    const std::string wav = std::filesystem::path(folder.Path("x.wav")).string();
    ASSERT_TRUE(platform::SaveMp3(mp3, samples, 2, 44100, 0.5));
    ASSERT_TRUE(platform::SaveWav(wav, samples, 2, 44100));
    for (const auto& [path, leastRatio] : {std::pair{mp3, 100.0}, {wav, 1e9}}) {
        SCOPED_TRACE(path);
        const auto decoderPtr = platform::OpenRecording(path);
        ASSERT_NE(decoderPtr, nullptr);
        std::vector<std::int16_t> heard(samples.size());
        ASSERT_EQ(decoderPtr->Read(heard), samples.size() / 2); // no more and no less: the encoder's delay is undone
        double power = 0.0;
        double error = 1e-9;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            power += std::pow(samples[i], 2.0);
            error += std::pow(samples[i] - heard[i], 2.0);
        }
        EXPECT_GT(power / error, leastRatio);
    }
}

TEST_F(BuildSounds, AnUnwritablePlaceIsReported) {
    const std::vector<std::int16_t> samples(2000);
    const std::string nowhere = std::filesystem::path(folder.Path("no such folder/x.mp3")).string();
    EXPECT_FALSE(platform::SaveMp3(nowhere, samples, 2, 44100, 0.5));
    EXPECT_FALSE(platform::SaveWav(nowhere, samples, 2, 44100));
}

} // namespace
