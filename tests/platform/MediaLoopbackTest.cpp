#include "platform/LoopbackMedia.h"
#include "tests/support/MediaStage.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

using platform::LoopbackMedia;

namespace {
/// Tests are not heard, and need no device.
[[maybe_unused]] const int inaudible = setenv("ALSOFT_DRIVERS", "null", 1);

/// A player that mixes into memory.
struct MediaLoopback : MediaStage<LoopbackMedia> {
    using Samples = std::vector<float>;

    MediaLoopback() : MediaStage(platform::MakeLoopbackMedia) {}

    Samples Render(int milliseconds) {
        Samples samples(static_cast<std::size_t>(milliseconds) * LoopbackMedia::samplesPerSecond / 1000 * 2);
        mediaPtr->Render(samples);
        mediaPtr->Update();
        return samples;
    }
    /// What is heard from 50 ms after the command on.
    Samples After(const std::wstring& command, int milliseconds) {
        Send(command);
        Render(50);
        return Render(milliseconds);
    }
    static double Loudness(const Samples& samples) {
        double sum = 0.0;
        for (const float sample : samples) sum += static_cast<double>(sample) * sample;
        return std::sqrt(sum / static_cast<double>(samples.size()));
    }
    /// The amplitude of 440 Hz on the left.
    static double Tone(const Samples& samples) {
        double cosine = 0.0;
        double sine = 0.0;
        for (std::size_t index = 0; index < samples.size(); index += 2) {
            const double angle = std::numbers::pi * 440 * static_cast<double>(index) / LoopbackMedia::samplesPerSecond;
            cosine += samples[index] * std::cos(angle);
            sine += samples[index] * std::sin(angle);
        }
        return 4.0 * std::hypot(cosine, sine) / static_cast<double>(samples.size());
    }
};

struct MediaDevice : MediaStage<platform::MediaInterface> {
    MediaDevice() : MediaStage(MakeWithThreads) {}
    static std::unique_ptr<platform::MediaInterface> MakeWithThreads(platform::Desktop& desktop) {
        static_cast<Stage::Desktop&>(desktop).hasThreads = true;
        return platform::MakeDeviceMedia(desktop);
    }
};
} // namespace

TEST_F(MediaLoopback, PlaysAToneAsItIsInTheFileAtTheVolumeAskedFor) {
    for (const std::wstring alias : {L"short", L"long"}) {
        Send(L"play " + alias + L" from 0 notify");
        const Samples samples = Render(250);
        EXPECT_NEAR(Tone(samples), 0.5, 0.01);
        EXPECT_NEAR(Loudness(samples), 0.5 / std::numbers::sqrt2, 0.01); // and nothing else
        for (std::size_t index = 0; index < samples.size(); index += 2) {
            ASSERT_FLOAT_EQ(samples[index], samples[index + 1]);
        }
        EXPECT_EQ(Loudness(After(L"stop " + alias, 50)), 0.0);
        Send(L"setaudio " + alias + L" volume to 500"); // before it plays, and while it does
        EXPECT_NEAR(Tone(After(L"play " + alias + L" from 0", 100)), 0.25, 0.01);
        EXPECT_NEAR(Tone(After(L"setaudio " + alias + L" volume to 100", 100)), 0.05, 0.002);
        EXPECT_LT(Loudness(After(L"setaudio " + alias + L" volume to 0", 50)), 1e-4);
        Send(L"stop " + alias);
    }
}

TEST_F(MediaLoopback, IsSilentWhilePausedOrSuspendedAndGoesOnFromThere) {
    for (const std::wstring alias : {L"short", L"long"}) {
        SCOPED_TRACE(alias.c_str());
        const int before = Notices();
        Send(L"play " + alias + L" from 0 notify");
        Render(200);
        EXPECT_EQ(Loudness(After(L"pause " + alias, 1000)), 0.0);
        EXPECT_NEAR(Loudness(After(L"resume " + alias, 50)), 0.354, 0.02);
        mediaPtr->Suspend(true);
        Render(50);
        EXPECT_EQ(Loudness(Render(1000)), 0.0);
        mediaPtr->Suspend(false);
        EXPECT_NEAR(Loudness(Render(alias == L"short" ? 160 : 5660)), 0.354, 0.02);
        EXPECT_EQ(Notices(), before);
        Render(100);
        EXPECT_EQ(Notices(), before + 1);
        EXPECT_EQ(Loudness(Render(300)), 0.0);
        EXPECT_EQ(Notices(), before + 1);
    }
}

TEST_F(MediaLoopback, PlaysFromAndToWhereItIsTold) {
    for (const std::wstring alias : {L"short", L"long"}) {
        Send(L"play " + alias + L" from 100 to 300 notify");
        const Samples samples = Render(1000);
        const auto silent = std::count(samples.begin(), samples.end(), 0.0F);
        EXPECT_NEAR(1.0 - static_cast<double>(silent) / static_cast<double>(samples.size()), 0.2, 0.01);
    }
    Send(L"play long from 5900 notify");
    EXPECT_GT(Loudness(Render(80)), 0.3);
    Render(100);
    EXPECT_EQ(Notices(), 3);
    Send(L"play short from 0 notify");
    Samples second(2 * LoopbackMedia::samplesPerSecond);
    mediaPtr->Render(second);
    Send(L"stop short"); // when it had ended, but nobody had looked
    Render(100);
    EXPECT_EQ(Notices(), 3);
}

TEST_F(MediaLoopback, MixesTheCopiesOfAFile) {
    Open("short.wav", L"copy");
    Do({L"play short from 0", L"play copy from 0", L"play long from 0"});
    EXPECT_NEAR(Tone(Render(200)), 1.5, 0.05);
    EXPECT_NEAR(Tone(After(L"close short", 100)), 1.0, 0.05);
}

TEST_F(MediaLoopback, KeepsTheTimeWithoutADeviceAndIsHeardAgainWithOne) {
    Do({L"play long from 0 notify", L"play short from 0 notify"});
    EXPECT_GT(Loudness(Render(100)), 0.3);
    mediaPtr->PlugIn(false);
    EXPECT_EQ(Loudness(Render(100)), 0.0);
    RunTo(30);
    EXPECT_EQ(Notices(), 1); // the short one
    mediaPtr->PlugIn(true);
    RunTo(230); // it is found on the way
    EXPECT_GT(Loudness(Render(2000)), 0.3);
    EXPECT_EQ(Notices(), 1);
    Render(2000); // not from the beginning: 6 seconds would not have gone by yet
    EXPECT_EQ(Notices(), 2);
    Send(L"play short from 0 notify"); // its decoded copy went with the first device
    EXPECT_NEAR(Tone(Render(100)), 0.5, 0.02);
}

TEST_F(MediaLoopback, KeepsTheTimeOfAFileThatHasGone) {
    for (const char* name : {"short.wav", "long.wav"}) folder.Write(name, "gone");
    Do({L"play short from 0 notify", L"play long from 0 notify"});
    EXPECT_EQ(Loudness(Render(100)), 0.0);
    EXPECT_NEAR(FrameOfNotice(), 30, 1);
    RunTo(355);
    EXPECT_NEAR(FrameOfNotice(), 360, 1);
}

TEST_F(MediaLoopback, SurvivesFilesOfAnyContent) {
    std::mt19937 random(1);
    const std::string tone = ToneWav(440, 0.5, 500);
    for (int round = 0; round < 60; ++round) {
        std::string bytes = tone;
        const int kind = round % 3; // cut short, a wrong header, no sense at all
        if (kind == 0) bytes.resize(random() % bytes.size());
        for (std::size_t index = 0; kind > 0 && index < (kind == 1 ? 44 : bytes.size()); ++index) {
            if (kind == 2 || random() % 4 == 0) bytes[index] = static_cast<char>(random());
        }
        const std::string name = std::to_string(round) + (round % 2 == 0 ? ".wav" : ".mp3");
        folder.Write(name, bytes);
        mediaPtr->Send(L"open \"" + folder.Path(name) + L"\" type mpegvideo alias any", nullptr, nullptr);
        mediaPtr->Send(L"play any from 0 notify", nullptr, windowPtr);
        Render(20);
        mediaPtr->Send(L"close any", nullptr, nullptr);
    }
}

// Every sound of the game is decoded to its end without a gap, and the end comes when its length says.
TEST_F(MediaLoopback, PlaysTheSoundsOfTheGameForTheirLength) {
    for (const std::wstring name : {L"Coin", L"Dead", L"GameOver", L"Starrush"}) {
        SCOPED_TRACE(name.c_str());
        const int before = Notices();
        Do({L"open \"Resources/Sound/" + name + L".mp3\" type mpegvideo alias sound", L"play sound from 0 notify"});
        EXPECT_GT(Loudness(Render(std::stoi(Length(L"sound")) - 30)), 0.01);
        EXPECT_EQ(Notices(), before);
        Render(60);
        EXPECT_EQ(Notices(), before + 1);
        Send(L"close sound");
    }
}

// On a machine without a synthesiser the time of a MIDI file is kept in silence.
TEST_F(MediaLoopback, PlaysMidiFilesAndMeasuresThemWithTheirTempoChanges) {
    // 96 ticks a beat; a beat of 0.5 s at first, of 1 s from tick 96 on; the second track has a flute, a channel
    // pressure and an a', which ends on tick 192
    const std::string header("MThd\0\0\0\6\0\1\0\2\0\x60", 14);
    const std::string tempos("MTrk\0\0\0\x0B\x60\xFF\x51\3\x0F\x42\x40\0\xFF\x2F\0", 19);
    const std::string notes("MTrk\0\0\0\x12\0\xC0\x49\0\xD0\x40\0\x90\x45\x7F\x81\x40\x45\0\0\xFF\x2F\0", 26);
    folder.Write("two.mid", header + tempos + notes);
    folder.Write("cut.mid", header + tempos + notes.substr(0, 17));
    folder.Write("random.mid", "MThd" + std::string(300, '\xE7'));
    Open("random.mid", L"random", platform::mediaCannotOpen, L"sequencer");
    Open("cut.mid", L"cut", platform::mediaDone, L"sequencer");
    Open("two.mid", L"two", platform::mediaDone, L"sequencer");
    EXPECT_EQ(Length(L"two"), L"1500");
    Send(L"play two from 0 notify");
    const Samples samples = Render(900);
    if (Loudness(samples) > 0.0) {
        EXPECT_GT(Tone(samples), 0.3 * Loudness(samples));
        Render(560);
        EXPECT_EQ(Notices(), 0);
        Render(80);
    } else {
        RunTo(91);
    }
    EXPECT_EQ(Notices(), 1);
}

// The real player on a device that nobody hears: its thread, the device's and ours meet in every way there is.
TEST_F(MediaDevice, PlaysBesideTheMainThread) {
    Do({L"play long from 0 notify", L"play short from 450 notify"});
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (int round = 0; Notices() < 1 && std::chrono::steady_clock::now() < giveUp; ++round) {
        Send(round % 2 == 0 ? L"setaudio long volume to 10" : L"setaudio long volume to 0");
        Send(round % 2 == 0 ? L"pause long" : L"resume long");
        mediaPtr->Suspend(round % 7 == 0);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        mediaPtr->Update();
    }
    EXPECT_EQ(Notices(), 1);
    Do({L"play short from 0 notify", L"close short"});
}
