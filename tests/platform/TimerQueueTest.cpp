#include "platform/core/TimerQueue.h"

#include "platform/core/TimerSchedule.h"

#include <gmock/gmock.h>

#include <atomic>
#include <string>
#include <thread>

using namespace std::chrono_literals;
using platform::PeriodicTimer;
using platform::TimerQueue;
using platform::TimerSchedule;
using testing::ElementsAre;

namespace {
/// Two timers on a clock that the test moves; each call is noted as the timer's name.
struct Schedule {
    std::shared_ptr<TimerSchedule::Entry> Timer(const std::string& name) {
        return std::make_shared<TimerSchedule::Entry>(TimerSchedule::Entry{[this, name] { calls += name; }});
    }
    /// The calls that are due at `now`.
    std::string CallsAt(TimerSchedule::Time now) {
        while (const auto timerPtr = schedule.TakeCall(now)) timerPtr->callback();
        return std::exchange(calls, {});
    }

    TimerSchedule schedule;
    std::string calls;
};

/// Waits for what another thread does at once; a minute is no limit that a busy machine reaches.
void Await(const std::atomic<bool>& isDone) {
    const auto giveUp = std::chrono::steady_clock::now() + 60s;
    while (!isDone && std::chrono::steady_clock::now() < giveUp) std::this_thread::sleep_for(1ms);
    EXPECT_TRUE(isDone);
}
} // namespace

TEST(TimerSchedule, CallsInTheOrderOfDueTimesAndNeverEarly) {
    Schedule timers;
    const auto slow = timers.Timer("a");
    const auto quick = timers.Timer("b");
    EXPECT_EQ(timers.schedule.NextCall(), std::nullopt);
    timers.schedule.Start(slow, 15, 100ms);
    timers.schedule.Start(quick, 10, 100ms);
    EXPECT_EQ(timers.schedule.NextCall(), 110ms);
    EXPECT_EQ(timers.CallsAt(110ms - 1ns), "");
    EXPECT_EQ(timers.CallsAt(110ms), "b");
    EXPECT_EQ(timers.CallsAt(130ms), "abab") << "both are due at 130: the first started calls first";
}

TEST(TimerSchedule, MakesUpForLateCallsUnlessAWholeSecondWasMissed) {
    Schedule timers;
    const auto timer = timers.Timer("a");
    timers.schedule.Start(timer, 100, 0s);
    EXPECT_EQ(timers.CallsAt(199ms), "a");
    EXPECT_EQ(timers.schedule.NextCall(), 200ms) << "no drift";
    EXPECT_EQ(timers.CallsAt(1'300ms), "aaaaaaaaaaaa") << "200 to 1,300";
    EXPECT_EQ(timers.CallsAt(2'500ms + 1ns), "a") << "the call after the one due at 1,400 is more than a second late";
    EXPECT_EQ(timers.schedule.NextCall(), 2'600ms + 1ns) << "counted from now";
}

TEST(TimerSchedule, ATimerStopsAndBeginsAgainWithAnotherPeriod) {
    Schedule timers;
    const auto timer = timers.Timer("a");
    timers.schedule.Start(timer, 30, 0s);
    timers.schedule.Start(timer, 20, 15ms);
    EXPECT_EQ(timers.CallsAt(34ms), "");
    EXPECT_EQ(timers.CallsAt(55ms), "aa");
    timers.schedule.Stop(timer);
    EXPECT_EQ(timers.CallsAt(500ms), "");
    timers.schedule.Start(timer, -3, 500ms);
    EXPECT_EQ(timers.schedule.NextCall(), 501ms) << "at least a millisecond";
}

TEST(TimerQueue, ACallMayStopOrDestroyItsOwnTimerAndStartOthers) {
    TimerQueue queue;
    std::atomic<int> calls = 0;
    std::atomic<bool> isDone = false;
    std::unique_ptr<PeriodicTimer> stoppedPtr;
    std::unique_ptr<PeriodicTimer> destroyedPtr;
    std::unique_ptr<PeriodicTimer> startedPtr = queue.MakeTimer([&] {
        startedPtr->Stop();
        isDone = true;
    });
    stoppedPtr = queue.MakeTimer([&] {
        ++calls;
        stoppedPtr->Stop();
    });
    destroyedPtr = queue.MakeTimer([&] {
        ++calls;
        startedPtr->Start(20);
        destroyedPtr.reset();
    });
    stoppedPtr->Start(1);
    destroyedPtr->Start(2);
    Await(isDone);
    EXPECT_EQ(calls, 2);
}

TEST(TimerQueue, DestroyingATimerWaitsForTheCallThatRuns) {
    TimerQueue queue;
    std::atomic<bool> hasBegun = false;
    std::atomic<bool> mayEnd = false;
    std::atomic<bool> hasEnded = false;
    auto timerPtr = queue.MakeTimer([&] {
        hasBegun = true;
        Await(mayEnd);
        hasEnded = true;
    });
    timerPtr->Start(1);
    Await(hasBegun);
    timerPtr->Stop(); // does not wait, or this would never end
    std::thread ending([&] { mayEnd = true; });
    timerPtr.reset();
    EXPECT_TRUE(hasEnded);
    ending.join();
}

TEST(TimerQueue, TimersSurviveTheirQueueInSilence) {
    auto queuePtr = std::make_unique<TimerQueue>();
    std::atomic<bool> isCalled = false;
    const auto timerPtr = queuePtr->MakeTimer([&] { isCalled = true; });
    timerPtr->Start(1);
    Await(isCalled);
    queuePtr.reset();
    timerPtr->Start(1); // a thread that this started would outlive its queue and end the program
}
