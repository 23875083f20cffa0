#include "platform/Media.h"
#include "tests/support/MediaStage.h"

namespace {
struct MediaCommands : MediaStage<platform::MediaInterface> {
    MediaCommands() : MediaStage(platform::MakeSilentMedia) {}
};
} // namespace

TEST_F(MediaCommands, AreExactlyTheseTexts) {
    const auto sendEach = [this](const wchar_t* list, DWORD result) {
        std::wistringstream texts(list);
        for (std::wstring text; std::getline(texts, text, L'|');) Send(text, result);
    };
    sendEach(L"set long time format milliseconds|play long from 0 notify|play long from 100 to 400|pause long|"
             L"resume long|setaudio long volume to 1000|stop long|close long",
             platform::mediaDone);
    sendEach(L"| |open|open \"|open \"a.wav|open a.wav type waveaudio alias x|open \"a.wav\"|"
             L"open \"a.wav\" type waveaudio alias|open \"a.wav\" type tape alias x|"
             L"open \"a\"b.wav\" type waveaudio alias x|open \"a.wav\"type waveaudio alias x|play|play  from 0 notify|"
             L"play short|play short from|play short from -5 notify|play short from 1x|play short from 99999999999|"
             L"play short from 0 to|play short from 0 notify now|pause|stop |stop short long|"
             L"setaudio short volume to|setaudio short volume to -1|setaudio  volume to 10|"
             L"set short time format tracks|status short position|eject short|Stop short",
             platform::mediaBadCommand);
    sendEach(L"stop from|play long from 0 notify", platform::mediaUnknownAlias);
    sendEach(L"setaudio short volume to 1001|play short from 501|play short from 500 to 400",
             platform::mediaOutOfRange);
}

TEST_F(MediaCommands, OpenOnlyWhatCanBePlayed) {
    folder.Write("empty.mp3", "");
    folder.Write("text.wav", std::string(5000, 'a'));
    folder.Write("header.wav", ToneWav(440, 0.5, 200).substr(0, 44));
    Open("long.wav", L"short", platform::mediaAliasTaken);
    for (const std::string& name : {std::string(), std::string(100000, 'x'), std::string("missing.wav"),
                                    std::string("empty.mp3"), std::string("text.wav"), std::string("header.wav")}) {
        for (const wchar_t* type : {L"waveaudio", L"mpegvideo"}) Open(name, L"a", platform::mediaCannotOpen, type);
    }
    Send(L"open \"\xD800\xFFFF\" type waveaudio alias a", platform::mediaCannotOpen);
    Open("long.wav", L"a", platform::mediaCannotOpen, L"sequencer");

    folder.Write("cut.wav", ToneWav(440, 0.5, 400).substr(0, 44 + 100 * 4 * 441 / 10));
    Open("cut.wav", L"cut");
    EXPECT_EQ(Length(L"cut"), L"100");
    folder.Write("mono.wav", ToneWav(440, 0.5, 1234, 1, 22050));
    Open(".\\mono.wav", L"mono"); // both kinds of slash
    EXPECT_EQ(Length(L"mono"), L"1234");
}

// A playback of N milliseconds that was started in frame t ends at t * dt + N / 1000, and its notice comes before the
// first frame whose time is not earlier: 195 ms are not quite 12 frames, 30 ms not quite two.
TEST_F(MediaCommands, TellTheEndBeforeTheFrameItFallsIn) {
    const std::pair<const wchar_t*, int> cases[] = {
        {L"play short from 305 notify", 12},         {L"play short from 470 notify", 14},
        {L"play short from 0 to 30 notify", 16},     {L"play short from 500 notify", 17},
        {L"play short from 305 to 5000 notify", 29}, // no further than to the end
    };
    for (const auto& [command, frame] : cases) {
        Send(command);
        EXPECT_EQ(FrameOfNotice(), frame);
    }
    EXPECT_EQ(FrameOfNotice(), -1);
}

TEST_F(MediaCommands, HoldTheClockOfAPausedOrSuspendedPlayback) {
    Do({L"play short from 305 notify", 5, L"pause short", 50, L"pause short", L"resume short", 52, L"resume short"});
    mediaPtr->Suspend(true);
    Do({70, L"pause short"});
    mediaPtr->Suspend(false);
    Do({100, L"resume short"});
    EXPECT_EQ(FrameOfNotice(), 105);

    mediaPtr->Suspend(true);
    Do({L"play short from 305 notify", 200}); // held from its first moment on
    mediaPtr->Suspend(false);
    EXPECT_EQ(FrameOfNotice(), 212);
}

TEST_F(MediaCommands, TellNothingUnlessAPlaybackEndsByItself) {
    Do({L"play short from 0", L"pause long", L"resume long"});
    EXPECT_EQ(FrameOfNotice(), -1);
    Do({L"play short from 0 notify", L"stop short", L"resume short"});
    EXPECT_EQ(FrameOfNotice(), -1);
    Do({L"play short from 0 notify", L"close short", L"play long from 5900 notify"});
    for (int frame = 0; frame < 10; ++frame) stage->Present(nullptr, {}, true);
    Send(L"stop long"); // when it had ended, but nobody had looked
    EXPECT_EQ(FrameOfNotice(), -1);
}

TEST_F(MediaCommands, StartAgainWhenPlayedWhilePlayingOrPaused) {
    Do({L"play short from 305 notify", 6, L"play short from 305 notify"});
    EXPECT_EQ(FrameOfNotice(), 18);
    EXPECT_EQ(FrameOfNotice(), -1);
    Do({200, L"play short from 305 notify", L"pause short", 240, L"play short from 305 notify"});
    EXPECT_EQ(FrameOfNotice(), 252);
    Send(L"play short from 0 notify");
    stage->DestroyWindow(windowPtr);
    EXPECT_EQ(FrameOfNotice(), -1);
}
