#include "engine/Timer.h"

#include "engine/Callable.h"
#include "tests/support/Stage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using platform::Desktop;
using platform::ScriptedDesktop;
using testing::ElementsAre;

class Listener : public Callable {
public:
    explicit Listener(std::function<void()> newAction) : action(std::move(newAction)) {}
    void CallAction(Caller*) override { action(); }

private:
    std::function<void()> action;
};

/// Timers on a clock of frames of 40 ms.
class ScriptedTimer : public testing::Test {
protected:
    void SetUp() override {
        auto newDesktopPtr = std::make_unique<ScriptedDesktop>(0.04);
        desktop = newDesktopPtr.get();
        Desktop::Use(std::move(newDesktopPtr));
    }
    void TearDown() override { Desktop::Use(nullptr); }

    void RunFrame() {
        platform::Message message;
        while (desktop->PeekMessage(message)) {}
        calls.emplace_back("frame");
        desktop->Present(nullptr, {}, true);
    }
    std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }
    Listener Noting(const char* name) {
        return Listener([this, name] { calls.emplace_back(name); });
    }

    ScriptedDesktop* desktop = nullptr;
    std::vector<std::string> calls;
};

TEST_F(ScriptedTimer, CallsInTheOrderOfDueTimesBetweenFrames) {
    Listener first = Noting("a");
    Listener second = Noting("b");
    Timer slow(25, &first);
    Timer quick(20, &second);
    slow.Start();
    slow.Start(); // again changes nothing
    quick.Start();
    for (int i = 0; i < 4; ++i) RunFrame();
    // due: b 20, a 25, b 40 | b 60, a 50, a 75, b 80 | ...
    EXPECT_THAT(TakeCalls(),
                ElementsAre("frame", "b", "a", "b", "frame", "a", "b", "a", "b", "frame", "a", "b", "b", "frame"));
    slow.Stop();
    quick.Stop();
    RunFrame();
    EXPECT_THAT(TakeCalls(), ElementsAre("frame"));
}

TEST_F(ScriptedTimer, TakesSmallDelaysForOneAndBeginsAnewWithANewDelay) {
    Listener listener = Noting("call");
    Timer timer(-7, &listener);
    EXPECT_EQ(timer.GetDelay(), 1);
    timer.SetDelay(0);
    EXPECT_EQ(timer.GetDelay(), 1);
    EXPECT_FALSE(timer.IsRunning());
    timer.SetDelay(30);
    timer.Start();
    RunFrame();
    timer.SetDelay(50);
    EXPECT_TRUE(timer.IsRunning());
    RunFrame(); // 40 ms later
    RunFrame(); // 80
    EXPECT_THAT(TakeCalls(), ElementsAre("frame", "frame", "call", "frame"));
}

TEST_F(ScriptedTimer, AListenerMayStopRestartAndDeleteItsTimer) {
    auto timerPtr = std::make_unique<Timer>(10, nullptr);
    Listener stopping([&] {
        calls.emplace_back("stop");
        timerPtr->Stop();
        if (calls.size() == 2) timerPtr->Start(); // counted from the moment of this call
    });
    timerPtr->AddActionListener(&stopping);
    timerPtr->Start();
    RunFrame();
    RunFrame();
    EXPECT_THAT(TakeCalls(), ElementsAre("frame", "stop", "stop", "frame"));

    Listener deleting([&] { timerPtr.reset(); });
    Listener late = Noting("late");
    timerPtr->AddActionListener(&deleting);
    timerPtr->AddActionListener(&late);
    timerPtr->Start();
    RunFrame();
    EXPECT_EQ(timerPtr, nullptr);
    EXPECT_THAT(TakeCalls(), ElementsAre("stop", "frame"));
}

/// The real timer thread against the main one; the thread sanitizer looks on.
TEST(ThreadedTimer, MayBeUsedAndDeletedWhileItCalls) {
    struct RealTime : Stage::Desktop {
        std::unique_ptr<platform::PeriodicTimer> MakeTimer(std::function<void()> callback) override {
            return platform::Desktop::MakeTimer(std::move(callback));
        }
    };
    auto desktopPtr = std::make_unique<RealTime>();
    desktopPtr->hasThreads = true;
    Desktop::Use(std::move(desktopPtr));
    std::atomic<int> calls = 0;
    for (int round = 0; round < 20; ++round) {
        auto countedPtr = std::make_unique<int>(0); // must not be touched once the timer is gone
        Listener counting([&] {
            ++*countedPtr;
            ++calls;
        });
        Listener other([] {});
        auto timerPtr = std::make_unique<Timer>(1, &counting);
        timerPtr->Start();
        for (int i = 0; i < 20; ++i) {
            timerPtr->AddActionListener(&other);
            timerPtr->SetDelay(i % 3);
            std::this_thread::sleep_for(std::chrono::microseconds(200));
            timerPtr->RemoveActionListener(&other);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        timerPtr.reset();
        countedPtr.reset();
    }
    EXPECT_GT(calls, 0);
    Desktop::Use(nullptr);
}

} // namespace
