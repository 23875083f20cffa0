#include "platform/Media.h"
#include "platform/ScriptedDesktop.h"
#include "tests/support/TestSounds.h"

#include <gtest/gtest.h>

using platform::ScriptedDesktop;

namespace {
/// Media on a scripted desktop with two sounds, of 195 and 1000 ms, open as "short" and "long".
class MediaCommands : public testing::Test {
protected:
    MediaCommands() {
        folder.Write("short.wav", ToneWav(440, 0.5, 195));
        folder.Write("long.wav", ToneWav(440, 0.5, 1000));
        platform::Window description;
        description.className = L"STATIC";
        description.userData = &notices;
        description.procedure = [](HWND window, UINT message, WPARAM wParam, LPARAM) -> LRESULT {
            const bool isNotice = message == MM_MCINOTIFY && wParam == MCI_NOTIFY_SUCCESSFUL;
            if (isNotice) ++*static_cast<int*>(window->userData);
            return 0;
        };
        windowPtr = desktop.CreateWindow(description);
        Expect(platform::mediaDone, OpenCommand("short.wav", "short"));
        Expect(platform::mediaDone, OpenCommand("long.wav", "long"));
    }

    std::wstring OpenCommand(std::string_view name, std::string_view alias,
                             std::wstring_view type = L"waveaudio") const {
        return L"open \"" + folder.Path(name) + L"\" type " + std::wstring(type) + L" alias " +
               std::wstring(alias.begin(), alias.end());
    }

    void Expect(DWORD result, std::wstring_view command) {
        EXPECT_EQ(mediaPtr->Send(command, nullptr, windowPtr), result) << std::string(command.begin(), command.end());
    }

    void Done(std::wstring_view command) { Expect(platform::mediaDone, command); }

    std::wstring Length(std::wstring_view alias) {
        std::wstring reply;
        mediaPtr->Send(L"status " + std::wstring(alias) + L" length", &reply, nullptr);
        return reply;
    }

    /// Runs to the start of frame `frame` and lets notices in, as the desktop does.
    void RunTo(int frame) {
        while (desktop.Frame() < frame) {
            desktop.Present(windowPtr, {}, true);
            mediaPtr->Update();
        }
        platform::Message message;
        while (desktop.PeekMessage(message)) desktop.DispatchMessage(message);
    }

    /// The first frame from now on with a notice before it; -1 if none comes within two seconds.
    int FrameOfNotice() {
        const int before = notices;
        const int last = desktop.Frame() + 120;
        while (desktop.Frame() < last) {
            RunTo(desktop.Frame() + 1);
            if (notices > before) return desktop.Frame();
        }
        return -1;
    }

    TestFolder folder;
    ScriptedDesktop desktop;
    std::unique_ptr<platform::MediaInterface> mediaPtr = platform::MakeSilentMedia(desktop);
    HWND windowPtr = nullptr;
    int notices = 0;
};
} // namespace

TEST_F(MediaCommands, AnswerWhatTheyAre) {
    Done(L"set long time format milliseconds");
    Done(L"play long from 0 notify");
    Done(L"play long from 100 to 400");
    Done(L"pause long");
    Done(L"resume long");
    Done(L"setaudio long volume to 1000");
    Done(L"stop long");
    EXPECT_EQ(Length(L"short"), L"195");
    EXPECT_EQ(Length(L"long"), L"1000");
    Done(L"close long");
    Expect(platform::mediaUnknownAlias, L"play long from 0 notify");
    EXPECT_EQ(Length(L"long"), L"");
}

TEST_F(MediaCommands, RefuseTextsThatAreNoCommands) {
    for (std::wstring_view text : {L"",
                                   L" ",
                                   L"open",
                                   L"open \"",
                                   L"open \"a.wav",
                                   L"open a.wav type waveaudio alias x",
                                   L"open \"a.wav\"",
                                   L"open \"a.wav\" type waveaudio alias",
                                   L"open \"a.wav\" type tape alias x",
                                   L"open \"a\"b.wav\" type waveaudio alias x",
                                   L"open \"a.wav\"type waveaudio alias x",
                                   L"play",
                                   L"play  from 0 notify",
                                   L"play long",
                                   L"play long from",
                                   L"play long from -5 notify",
                                   L"play long from 1x",
                                   L"play long from 99999999999",
                                   L"play long from 0 to",
                                   L"play long from 0 notify now",
                                   L"pause",
                                   L"stop ",
                                   L"stop long short",
                                   L"setaudio long volume to",
                                   L"setaudio long volume to -1",
                                   L"setaudio  volume to 10",
                                   L"set long time format tracks",
                                   L"status long position",
                                   L"eject long",
                                   L"Stop long"}) {
        Expect(platform::mediaBadCommand, text);
    }
    Expect(platform::mediaUnknownAlias, L"stop from");
    Expect(platform::mediaOutOfRange, L"setaudio long volume to 1001");
    Expect(platform::mediaOutOfRange, L"play long from 1001");
    Expect(platform::mediaOutOfRange, L"play long from 500 to 400");
}

TEST_F(MediaCommands, OpenOnlyWhatCanBePlayed) {
    folder.Write("empty.mp3", "");
    folder.Write("empty.wav", "");
    folder.Write("text.wav", std::string(5000, 'a'));
    folder.Write("header.wav", ToneWav(440, 0.5, 200).substr(0, 44));
    Expect(platform::mediaAliasTaken, OpenCommand("long.wav", "short"));
    Expect(platform::mediaCannotOpen, OpenCommand("missing.wav", "a"));
    Expect(platform::mediaCannotOpen, OpenCommand("", "a")); // the folder
    Expect(platform::mediaCannotOpen, OpenCommand(std::string(100000, 'x') + ".wav", "a"));
    Expect(platform::mediaCannotOpen, L"open \"\xD800\xFFFF\" type waveaudio alias a");
    Expect(platform::mediaCannotOpen, OpenCommand("empty.mp3", "a", L"mpegvideo"));
    for (std::string_view name : {"empty.wav", "text.wav", "header.wav"}) {
        Expect(platform::mediaCannotOpen, OpenCommand(name, "a"));
    }
    Expect(platform::mediaCannotOpen, OpenCommand("long.wav", "a", L"sequencer"));

    folder.Write("cut.wav", ToneWav(440, 0.5, 400).substr(0, 44 + 100 * 4 * 441 / 10));
    Done(OpenCommand("cut.wav", "cut"));
    EXPECT_EQ(Length(L"cut"), L"100");
    folder.Write("mono.wav", ToneWav(440, 0.5, 1234, 1, 22050));
    Done(L"open \"" + folder.Path(".\\mono.wav") + L"\" type waveaudio alias mono"); // both kinds of slash
    EXPECT_EQ(Length(L"mono"), L"1234");
}

// A playback of N milliseconds that was started in frame t ends at t * dt + N / 1000, and its notice comes before the
// first frame whose time is not earlier: 195 ms are not quite 12 frames, 30 ms not quite two.
TEST_F(MediaCommands, TellTheEndBeforeTheFrameItFallsIn) {
    Done(L"play short from 0 notify");
    EXPECT_EQ(FrameOfNotice(), 12);
    Done(L"play short from 165 notify");
    EXPECT_EQ(FrameOfNotice(), 14);
    Done(L"play short from 0 to 30 notify");
    EXPECT_EQ(FrameOfNotice(), 16);
    Done(L"play short from 195 notify");
    EXPECT_EQ(FrameOfNotice(), 17);
    Done(L"play short from 0 to 5000 notify"); // beyond the end means to the end
    EXPECT_EQ(FrameOfNotice(), 29);
    EXPECT_EQ(FrameOfNotice(), -1);
}

TEST_F(MediaCommands, HoldTheClockOfAPausedOrSuspendedPlayback) {
    Done(L"play short from 0 notify");
    RunTo(5);
    Done(L"pause short");
    RunTo(50);
    Done(L"pause short");
    Done(L"resume short");
    RunTo(52);
    Done(L"resume short");
    mediaPtr->Suspend(true);
    RunTo(70);
    Done(L"pause short");
    mediaPtr->Suspend(false);
    RunTo(100);
    EXPECT_EQ(notices, 0);
    Done(L"resume short");
    EXPECT_EQ(FrameOfNotice(), 105);

    mediaPtr->Suspend(true);
    Done(L"play short from 0 notify"); // held from its first moment on
    RunTo(200);
    mediaPtr->Suspend(false);
    EXPECT_EQ(FrameOfNotice(), 212);
}

TEST_F(MediaCommands, TellNothingUnlessAPlaybackEndsByItself) {
    Done(L"play short from 0");
    EXPECT_EQ(FrameOfNotice(), -1);
    Done(L"play short from 0 notify");
    Done(L"stop short");
    Done(L"resume short");
    EXPECT_EQ(FrameOfNotice(), -1);
    Done(L"play short from 0 notify");
    Done(L"close short");
    EXPECT_EQ(FrameOfNotice(), -1);
    Done(L"pause long");
    Done(L"resume long");
    EXPECT_EQ(FrameOfNotice(), -1);
}

TEST_F(MediaCommands, StartAgainWhenPlayedWhilePlaying) {
    Done(L"play short from 0 notify");
    RunTo(6);
    Done(L"play short from 0 notify");
    EXPECT_EQ(FrameOfNotice(), 18);
    EXPECT_EQ(FrameOfNotice(), -1);
    const int frame = desktop.Frame();
    Done(L"play short from 0 notify");
    Done(L"pause short");
    RunTo(frame + 40);
    Done(L"play short from 0 notify"); // not paused any more
    EXPECT_EQ(FrameOfNotice(), frame + 52);
}

TEST_F(MediaCommands, SurviveThatTheNotifiedWindowIsGone) {
    Done(L"play short from 0 notify");
    desktop.DestroyWindow(windowPtr);
    RunTo(20);
    EXPECT_EQ(notices, 0);
}

TEST_F(MediaCommands, MeasureMidiFilesWithTheirTempoChanges) {
    // 96 ticks a beat; a beat of 0.5 s at first, of 1 s from tick 96 on; the second track ends on tick 192
    const std::string header("MThd\0\0\0\6\0\1\0\2\0\x60", 14);
    const std::string tempos("MTrk\0\0\0\x0B\x60\xFF\x51\3\x0F\x42\x40\0\xFF\x2F\0", 19);
    const std::string notes("MTrk\0\0\0\x0E\0\xC0\5\0\x90\x3C\x40\x81\x40\x3C\0\0\xFF\x2F\0", 22);
    folder.Write("two.mid", header + tempos + notes);
    folder.Write("cut.mid", header + tempos + notes.substr(0, 14));
    folder.Write("random.mid", "MThd" + std::string(300, '\xE7'));
    Done(OpenCommand("two.mid", "two", L"sequencer"));
    EXPECT_EQ(Length(L"two"), L"1500");
    Expect(platform::mediaCannotOpen, OpenCommand("random.mid", "random", L"sequencer"));
    Done(OpenCommand("cut.mid", "cut", L"sequencer"));
}
