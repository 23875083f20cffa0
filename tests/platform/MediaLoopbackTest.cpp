#include "platform/LoopbackMedia.h"
#include "platform/ScriptedDesktop.h"
#include "tests/support/TestSounds.h"
#include "tests/support/ThreadedDesktop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <thread>

using platform::LoopbackMedia;

namespace {
/// Tests are not heard, and need no device.
[[maybe_unused]] const int inaudible = setenv("ALSOFT_DRIVERS", "null", 1);

double Loudness(const std::vector<float>& samples) {
    double sum = 0.0;
    for (const float sample : samples) sum += static_cast<double>(sample) * sample;
    return std::sqrt(sum / static_cast<double>(samples.size()));
}

/// The amplitude of one frequency on the left.
double AmplitudeAt(double hertz, const std::vector<float>& samples) {
    double cosine = 0.0;
    double sine = 0.0;
    const std::size_t frames = samples.size() / 2;
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const double angle =
            2.0 * std::numbers::pi * hertz * static_cast<double>(frame) / LoopbackMedia::samplesPerSecond;
        cosine += samples[2 * frame] * std::cos(angle);
        sine += samples[2 * frame] * std::sin(angle);
    }
    return 2.0 * std::hypot(cosine, sine) / static_cast<double>(frames);
}

/// Counts the notices that arrive at a window of its own.
class NoticeCounter {
public:
    explicit NoticeCounter(platform::Desktop& postingDesktop) : desktop(postingDesktop) {
        platform::Window description;
        description.className = L"STATIC";
        description.userData = &count;
        description.procedure = [](HWND window, UINT message, WPARAM wParam, LPARAM) -> LRESULT {
            if (message == MM_MCINOTIFY && wParam == MCI_NOTIFY_SUCCESSFUL) ++*static_cast<int*>(window->userData);
            return 0;
        };
        windowPtr = desktop.CreateWindow(description);
    }
    ~NoticeCounter() { desktop.DestroyWindow(windowPtr); }

    HWND Window() const { return windowPtr; }
    int Count() {
        platform::Message message;
        while (desktop.PeekMessage(message)) desktop.DispatchMessage(message);
        return count;
    }

private:
    platform::Desktop& desktop;
    int count = 0;
    HWND windowPtr = nullptr;
};

/// Media that mix into memory, with a tone of 440 Hz at half of full scale open as "short" (0.5 s, one channel) and
/// "long" (6 s).
class MediaLoopback : public testing::Test {
protected:
    MediaLoopback() {
        folder.Write("short.wav", ToneWav(440, 0.5, 500, 1));
        folder.Write("long.wav", ToneWav(440, 0.5, 6000, 2, 48000));
        Send(L"open \"" + folder.Path("short.wav") + L"\" type waveaudio alias short");
        Send(L"open \"" + folder.Path("long.wav") + L"\" type waveaudio alias long");
    }

    void Send(std::wstring_view command) { EXPECT_EQ(mediaPtr->Send(command, nullptr, notices.Window()), 0U); }

    std::vector<float> Render(int milliseconds) {
        std::vector<float> samples(static_cast<std::size_t>(milliseconds) * LoopbackMedia::samplesPerSecond / 1000 * 2);
        mediaPtr->Render(samples);
        mediaPtr->Update();
        return samples;
    }

    /// Lets `frames` sixtieths of a second of the desktop's clock go by.
    void Wait(int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            desktop.Present(nullptr, {}, true);
            mediaPtr->Update();
        }
    }

    TestFolder folder;
    platform::ScriptedDesktop desktop;
    std::unique_ptr<LoopbackMedia> mediaPtr = platform::MakeLoopbackMedia(desktop);
    NoticeCounter notices{desktop};
};
} // namespace

TEST_F(MediaLoopback, PlaysAToneAsItIsInTheFile) {
    for (std::wstring alias : {L"short", L"long"}) {
        Send(L"play " + alias + L" from 0 notify");
        const std::vector<float> samples = Render(250);
        EXPECT_NEAR(AmplitudeAt(440, samples), 0.5, 0.01);
        EXPECT_NEAR(Loudness(samples), 0.5 / std::numbers::sqrt2, 0.01); // and nothing else
        for (std::size_t index = 0; index < samples.size(); index += 2) {
            ASSERT_FLOAT_EQ(samples[index], samples[index + 1]);
        }
        Send(L"stop " + alias);
        Render(50);
        EXPECT_EQ(Loudness(Render(50)), 0.0);
    }
}

TEST_F(MediaLoopback, FollowsTheVolume) {
    for (std::wstring alias : {L"short", L"long"}) {
        Send(L"setaudio " + alias + L" volume to 500"); // before it plays, and while it does
        Send(L"play " + alias + L" from 0");
        EXPECT_NEAR(AmplitudeAt(440, Render(100)), 0.25, 0.01);
        Send(L"setaudio " + alias + L" volume to 100");
        Render(50);
        EXPECT_NEAR(AmplitudeAt(440, Render(100)), 0.05, 0.002);
        Send(L"setaudio " + alias + L" volume to 0");
        Render(50);
        EXPECT_LT(Loudness(Render(50)), 1e-4);
        Send(L"stop " + alias);
    }
}

TEST_F(MediaLoopback, IsSilentWhilePausedOrSuspendedAndGoesOnFromThere) {
    for (std::wstring alias : {L"short", L"long"}) {
        SCOPED_TRACE(std::string(alias.begin(), alias.end()));
        const int before = notices.Count();
        const int rest = alias == L"short" ? 250 : 5750;
        Send(L"play " + alias + L" from 0 notify");
        Render(200);
        Send(L"pause " + alias);
        Render(50);
        EXPECT_EQ(Loudness(Render(1000)), 0.0);
        Send(L"resume " + alias);
        EXPECT_NEAR(Loudness(Render(50)), 0.354, 0.02);
        mediaPtr->Suspend(true);
        Render(50);
        EXPECT_EQ(Loudness(Render(1000)), 0.0);
        mediaPtr->Suspend(false);
        EXPECT_NEAR(Loudness(Render(rest - 40)), 0.354, 0.02);
        EXPECT_EQ(notices.Count(), before);
        Render(100);
        EXPECT_EQ(notices.Count(), before + 1);
        EXPECT_EQ(Loudness(Render(300)), 0.0);
        EXPECT_EQ(notices.Count(), before + 1);
    }
}

TEST_F(MediaLoopback, PlaysFromAndToWhereItIsTold) {
    for (std::wstring alias : {L"short", L"long"}) {
        Send(L"play " + alias + L" from 100 to 300 notify");
        const std::vector<float> samples = Render(1000);
        const auto heard = std::count_if(samples.begin(), samples.end(), [](float sample) { return sample != 0.0F; });
        EXPECT_NEAR(static_cast<double>(heard) / 2 / LoopbackMedia::samplesPerSecond, 0.2, 0.01);
    }
    Send(L"play long from 5900 notify");
    EXPECT_GT(Loudness(Render(80)), 0.3);
    Render(100);
    EXPECT_EQ(notices.Count(), 3);
}

TEST_F(MediaLoopback, MixesTheCopiesOfAFile) {
    Send(L"open \"" + folder.Path("short.wav") + L"\" type waveaudio alias copy");
    Send(L"play short from 0");
    Send(L"play copy from 0");
    Send(L"play long from 0");
    EXPECT_NEAR(AmplitudeAt(440, Render(200)), 1.5, 0.05);
    Send(L"close short");
    Render(50);
    EXPECT_NEAR(AmplitudeAt(440, Render(100)), 1.0, 0.05);
}

TEST_F(MediaLoopback, KeepsTheTimeWithoutADeviceAndIsHeardAgainWithOne) {
    Send(L"play long from 0 notify");
    Send(L"play short from 0 notify");
    EXPECT_GT(Loudness(Render(100)), 0.3);
    mediaPtr->PlugIn(false);
    EXPECT_EQ(Loudness(Render(100)), 0.0);
    Wait(30);
    EXPECT_EQ(notices.Count(), 1); // the short one
    mediaPtr->PlugIn(true);
    Wait(200); // it is found on the way
    EXPECT_GT(Loudness(Render(2000)), 0.3);
    EXPECT_EQ(notices.Count(), 1);
    Render(2000); // not from the beginning: 6 seconds would not have gone by yet
    EXPECT_EQ(notices.Count(), 2);
    Send(L"play short from 0 notify"); // its decoded copy went with the first device
    EXPECT_NEAR(AmplitudeAt(440, Render(100)), 0.5, 0.02);
}

TEST_F(MediaLoopback, KeepsTheTimeOfAFileThatHasGone) {
    for (const char* name : {"short.wav", "long.wav"}) folder.Write(name, "gone");
    Send(L"play short from 0 notify");
    Send(L"play long from 0 notify");
    EXPECT_EQ(Loudness(Render(100)), 0.0);
    Wait(29);
    EXPECT_EQ(notices.Count(), 0);
    Wait(3);
    EXPECT_EQ(notices.Count(), 1);
    Wait(330);
    EXPECT_EQ(notices.Count(), 2);
}

TEST_F(MediaLoopback, SurvivesFilesOfAnyContent) {
    std::srand(1);
    const std::string tone = ToneWav(440, 0.5, 500);
    for (int round = 0; round < 60; ++round) {
        std::string bytes = tone;
        if (round % 3 == 0) bytes.resize(static_cast<std::size_t>(std::rand()) % bytes.size());
        const std::size_t spoilt = round % 3 == 1 ? std::min<std::size_t>(bytes.size(), 44) : bytes.size();
        for (std::size_t index = 0; index < spoilt && round % 3 != 0; ++index) {
            if (round % 3 == 2 || std::rand() % 4 == 0) bytes[index] = static_cast<char>(std::rand());
        }
        const std::string name = std::to_string(round) + (round % 2 == 0 ? ".wav" : ".mp3");
        folder.Write(name, bytes);
        mediaPtr->Send(L"open \"" + folder.Path(name) + L"\" type mpegvideo alias any", nullptr, nullptr);
        mediaPtr->Send(L"play any from 0 notify", nullptr, notices.Window());
        Render(20);
        mediaPtr->Send(L"close any", nullptr, nullptr);
    }
}

// The real player on a device that nobody hears: its thread, the device's and ours meet in every way there is.
TEST(MediaDevice, PlaysBesideTheMainThread) {
    const TestFolder folder;
    folder.Write("short.wav", ToneWav(440, 0.05, 60));
    folder.Write("long.wav", ToneWav(440, 0.05, 5000));
    ThreadedDesktop desktop;
    const std::unique_ptr<platform::MediaInterface> mediaPtr = platform::MakeDeviceMedia(desktop);
    NoticeCounter notices(desktop);
    const auto send = [&](std::wstring_view command) {
        EXPECT_EQ(mediaPtr->Send(command, nullptr, notices.Window()), 0U);
    };
    send(L"open \"" + folder.Path("short.wav") + L"\" type waveaudio alias short");
    send(L"open \"" + folder.Path("long.wav") + L"\" type waveaudio alias long");
    send(L"play long from 0 notify");
    send(L"play short from 0 notify");
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    for (int round = 0; notices.Count() < 1 && std::chrono::steady_clock::now() < giveUp; ++round) {
        send(round % 2 == 0 ? L"setaudio long volume to 10" : L"setaudio long volume to 0");
        send(round % 2 == 0 ? L"pause long" : L"resume long");
        mediaPtr->Suspend(round % 7 == 0);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        mediaPtr->Update();
    }
    EXPECT_EQ(notices.Count(), 1);
    send(L"play short from 0 notify");
    send(L"close short");
}

// Every sound of the game is decoded to its end without a gap, and the end comes when its length says.
TEST_F(MediaLoopback, PlaysTheSoundsOfTheGameForTheirLength) {
    for (const char* name : {"Coin", "Dead", "GameOver", "Starrush"}) {
        SCOPED_TRACE(name);
        const std::wstring path = L"Resources/Sound/" + std::wstring(name, name + std::strlen(name)) + L".mp3";
        Send(L"open \"" + path + L"\" type mpegvideo alias sound");
        std::wstring reply;
        mediaPtr->Send(L"status sound length", &reply, nullptr);
        const int length = std::stoi(reply);
        const int before = notices.Count();
        Send(L"play sound from 0 notify");
        EXPECT_GT(Loudness(Render(length - 30)), 0.01);
        EXPECT_EQ(notices.Count(), before);
        Render(60);
        EXPECT_EQ(notices.Count(), before + 1);
        Send(L"close sound");
    }
}

TEST_F(MediaLoopback, PlaysMidiWhereThereIsASynthesiserAndKeepsItsTimeElsewhere) {
    // 96 ticks a beat of 0.5 s: a note of one second, half a second of rest
    folder.Write("note.mid", std::string("MThd\0\0\0\6\0\0\0\1\0\x60"
                                         "MTrk\0\0\0\x10\0\xC0\x49\0\x90\x45\x7F\x81\x40\x45\0\x60\xFF\x2F\0",
                                         38));
    Send(L"open \"" + folder.Path("note.mid") + L"\" type sequencer alias note");
    std::wstring reply;
    mediaPtr->Send(L"status note length", &reply, nullptr);
    EXPECT_EQ(reply, L"1500");
    Send(L"play note from 0 notify");
    const std::vector<float> samples = Render(900);
    const bool isHeard = Loudness(samples) > 0.0;
    if (isHeard) {
        EXPECT_GT(AmplitudeAt(440, samples), 0.3 * Loudness(samples)); // a', on a flute
        Render(560);
        EXPECT_EQ(notices.Count(), 0);
        Render(80);
    } else {
        Wait(91);
    }
    EXPECT_EQ(notices.Count(), 1);
}
