#include "engine/Audio.h"

#include "engine/Callable.h"
#include "platform/Resources.h"
#include "tests/support/Stage.h"
#include "tests/support/TestSounds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
struct Listener : Callable {
    void CallAction(Caller* callerPtr) override {
        lastCallerPtr = callerPtr;
        ++calls;
        if (action) action();
    }
    int calls = 0;
    Caller* lastCallerPtr = nullptr;
    std::function<void()> action;
};

/// A sound of 95 ms (not quite six frames) on a recording desktop.
class AudioObject : public testing::Test {
protected:
    AudioObject() {
        folder.Write("tone.wav", ToneWav(440, 0.5, 95));
        audioPtr = std::make_unique<Audio>(TonePath());
        opening = desktop.TakeCommands();
        const std::wstring& status = opening.back(); // status ALIAS length
        alias = status.substr(7, status.rfind(L' ') - 7);
    }

    String TonePath() const { return folder.Path("tone.wav").c_str(); }

    /// Runs frames in which the object sends its commands.
    std::vector<std::wstring> RunFrames(int count) {
        for (int frame = 0; frame < count; ++frame) {
            audioPtr->Tick();
            desktop.EndFrame();
        }
        return desktop.TakeCommands();
    }

    TestFolder folder;
    Stage desktop;
    std::unique_ptr<Audio> audioPtr;
    std::vector<std::wstring> opening;
    std::wstring alias;
};
} // namespace

TEST_F(AudioObject, OpensItsFileUnderItsOwnAlias) {
    const std::wstring path = TonePath().C_str();
    EXPECT_THAT(opening, ElementsAre(L"open \"" + path + L"\" type waveaudio alias " + alias,
                                     L"set " + alias + L" time format milliseconds", L"status " + alias + L" length"));
    EXPECT_EQ(audioPtr->GetDuration(), 95);
    EXPECT_EQ(audioPtr->GetName(), TonePath());
    EXPECT_EQ(audioPtr->GetVolume(), 100);
    EXPECT_EQ(audioPtr->GetType(), 3);

    const int number = std::stoi(alias.substr(5));
    for (const char* name : {"tone", "tone.ogg", "tone.MP3", "mp3", "", ".wave"}) {
        const Audio closed(name); // takes no number
        EXPECT_THAT(desktop.TakeCommands(), Each(L"close "));
    }
    desktop.TakeCommands();
    const Audio missing("missing.mp3");
    const std::wstring next = L"audio" + std::to_wstring(number + 1);
    EXPECT_THAT(desktop.TakeCommands(), ElementsAre(L"open \"missing.mp3\" type mpegvideo alias " + next));
    const Audio midi(".mid");
    EXPECT_EQ(desktop.TakeCommands().front(),
              L"open \".mid\" type sequencer alias audio" + std::to_wstring(number + 2));
}

TEST_F(AudioObject, SendsOneCommandAFrameInTheOrderOfTheRequests) {
    audioPtr->Play(0, -1);
    audioPtr->SetVolume(150);
    audioPtr->Play(0, -1);
    audioPtr->Play(0, -1);
    EXPECT_TRUE(audioPtr->IsPlaying());
    EXPECT_THAT(desktop.TakeCommands(), IsEmpty());
    EXPECT_THAT(RunFrames(1), ElementsAre(L"play " + alias + L" from 0 notify"));
    EXPECT_THAT(RunFrames(1), ElementsAre(L"setaudio " + alias + L" volume to 1000"));
    EXPECT_THAT(RunFrames(1), IsEmpty());

    audioPtr->Pause();
    audioPtr->Pause();
    EXPECT_TRUE(audioPtr->IsPlaying() && audioPtr->IsPaused());
    audioPtr->Play(50, -1);
    audioPtr->Stop();
    audioPtr->Stop();
    audioPtr->Pause();
    audioPtr->SetVolume(-5);
    audioPtr->Play(10, 20);
    EXPECT_THAT(RunFrames(6),
                ElementsAre(L"pause " + alias, L"resume " + alias, L"stop " + alias,
                            L"setaudio " + alias + L" volume to 0", L"play " + alias + L" from 10 to 20 notify"));
    EXPECT_EQ(audioPtr->GetVolume(), 0);

    std::vector<std::wstring> requests; // more than there are frames: they wait
    for (int volume = 0; volume <= 100; ++volume) {
        audioPtr->SetVolume(volume);
        requests.push_back(L"setaudio " + alias + L" volume to " + std::to_wstring(10 * volume));
        if (volume % 3 == 0) audioPtr->Tick();
    }
    EXPECT_EQ(RunFrames(100), requests);
}

TEST_F(AudioObject, TellsItsListenersThatItHasEnded) {
    Listener listener;
    audioPtr->AddActionListener(&listener);
    audioPtr->Play(0, -1);
    RunFrames(5);
    EXPECT_TRUE(audioPtr->IsPlaying());
    RunFrames(1);
    EXPECT_FALSE(audioPtr->IsPlaying());
    EXPECT_EQ(listener.calls, 1);
    EXPECT_EQ(listener.lastCallerPtr, audioPtr.get());

    audioPtr->Play(0, -1);
    RunFrames(3);
    audioPtr->Pause();
    RunFrames(30);
    audioPtr->Play(0, -1);
    RunFrames(2);
    EXPECT_EQ(listener.calls, 1);
    RunFrames(3);
    EXPECT_EQ(listener.calls, 2);

    audioPtr->Play(0, -1);
    RunFrames(3);
    audioPtr->Stop(); // before its command is sent the sound comes to its end
    for (int frame = 0; frame < 6; ++frame) desktop.EndFrame();
    EXPECT_EQ(listener.calls, 2);
}

TEST_F(AudioObject, RequestedEveryFrameStartsAgainWhenItHasEnded) {
    std::vector<std::wstring> commands;
    for (int frame = 0; frame < 18; ++frame) {
        audioPtr->Play(0, -1);
        for (auto& command : RunFrames(1)) commands.push_back(command);
    }
    const std::wstring play = L"play " + alias + L" from 0 notify";
    EXPECT_THAT(commands, ElementsAre(play, play, play));
}

TEST_F(AudioObject, RepeatsWithoutTellingAnyone) {
    Listener listener;
    audioPtr->AddActionListener(&listener);
    audioPtr->SetRepeat(true);
    audioPtr->Play(50, -1); // 45 ms: three frames
    const std::wstring again = L"play " + alias + L" from 0 notify";
    EXPECT_THAT(RunFrames(10), ElementsAre(L"play " + alias + L" from 50 notify", again, again));
    EXPECT_TRUE(audioPtr->IsPlaying());
    EXPECT_EQ(listener.calls, 0);
}

TEST_F(AudioObject, ClosesItsFileAndMaySilentlyDoNothing) {
    audioPtr->Play(0, -1);
    RunFrames(1);
    audioPtr.reset();
    EXPECT_THAT(desktop.TakeCommands(), ElementsAre(L"close " + alias));
    for (int frame = 0; frame < 10; ++frame) desktop.EndFrame();

    folder.Write("random.mp3", std::string(3000, '\xA5'));
    for (const std::wstring& name : {folder.Path("random.mp3"), folder.Path("missing.mid"), std::wstring(L"no sound"),
                                     std::wstring(L"quo\"te.wav"), std::wstring(70000, L'x') + L".mp3"}) {
        audioPtr = std::make_unique<Audio>(name.c_str());
        EXPECT_EQ(audioPtr->GetDuration(), 0);
        audioPtr->Play(0, -1);
        audioPtr->SetVolume(50);
        RunFrames(20);
        EXPECT_TRUE(audioPtr->IsPlaying()); // nothing ends that never began
    }
    EXPECT_THAT(desktop->boxes, IsEmpty());
}

TEST_F(AudioObject, PlaysASoundThatIsStoredInTheProgram) {
    static const std::string bytes = ToneWav(440, 0.5, 321);
    static const platform::ResourceEntry resource(4711, "WAV",
                                                  {reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()});
    const std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path(""));
    {
        const Audio stored(4711, "WAV");
        const std::wstring name = stored.GetName().C_str();
        EXPECT_EQ(name.substr(0, 10), L"temp\\audio");
        EXPECT_EQ(desktop.TakeCommands().front(),
                  L"open \"" + name + L"\" type waveaudio alias " + name.substr(5, name.size() - 9));
        EXPECT_EQ(stored.GetDuration(), 321);
        EXPECT_EQ(Audio(4712, "WAV").GetDuration(), 0);
        EXPECT_EQ(Audio(4711, "wav").GetDuration(), 0);
    }
    std::filesystem::current_path(previous);
}

TEST(CallerListeners, AreCalledOncePerEventInOrder) {
    struct TestCaller : Caller {
        int GetType() const override { return callerTimer; }
    } caller;
    Listener first;
    Listener second;
    EXPECT_FALSE(caller.CallListeners());
    EXPECT_FALSE(caller.RemoveActionListener(&first));
    EXPECT_TRUE(caller.AddActionListener(&first));
    EXPECT_FALSE(caller.AddActionListener(&first));
    EXPECT_TRUE(caller.AddActionListener(&second));
    int callsBefore = -1;
    second.action = [&] { callsBefore = first.calls; };
    EXPECT_TRUE(caller.CallListeners());
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(callsBefore, 1);

    Listener third;
    first.action = [&] { // the list changes while it is gone through
        caller.RemoveActionListener(&first);
        caller.RemoveActionListener(&second);
        caller.AddActionListener(&third);
    };
    EXPECT_TRUE(caller.CallListeners());
    EXPECT_EQ(first.calls, 2);
    EXPECT_EQ(second.calls, 1);
    EXPECT_EQ(third.calls, 0);
    EXPECT_TRUE(caller.CallListeners());
    EXPECT_EQ(third.calls, 1);
}
