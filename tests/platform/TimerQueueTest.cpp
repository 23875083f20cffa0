#include "platform/core/TimerQueue.h"

#include "platform/core/TimerSchedule.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

using namespace std::chrono_literals;
using platform::TimerSchedule;

namespace {
/// Timers on a clock that the test moves; each call is noted as its timer's name.
class TimerScheduleTest : public testing::Test {
protected:
    auto Timer(const std::string& name) {
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

TEST_F(TimerScheduleTest, CallsInTheOrderOfDueTimesAndNeverEarly) {
    EXPECT_EQ(schedule.NextCall(), std::nullopt);
    schedule.Start(Timer("a"), 15, 100ms);
    schedule.Start(Timer("b"), 10, 100ms);
    EXPECT_EQ(schedule.NextCall(), 110ms);
    EXPECT_EQ(CallsAt(110ms - 1ns), "");
    EXPECT_EQ(CallsAt(110ms), "b");
    EXPECT_EQ(CallsAt(130ms), "abab") << "both are due at 130: the first started calls first";
}

TEST_F(TimerScheduleTest, MakesUpForLateCallsUnlessAWholeSecondWasMissed) {
    schedule.Start(Timer("a"), 100, 0s);
    EXPECT_EQ(CallsAt(199ms), "a");
    EXPECT_EQ(schedule.NextCall(), 200ms) << "no drift";
    EXPECT_EQ(CallsAt(1'300ms), "aaaaaaaaaaaa") << "200 to 1,300";
    EXPECT_EQ(CallsAt(2'500ms + 1ns), "a") << "the call after the one due at 1,400 is more than a second late";
    EXPECT_EQ(schedule.NextCall(), 2'600ms + 1ns) << "counted from now";
}

TEST_F(TimerScheduleTest, ATimerStopsAndBeginsAgainWithAnotherPeriod) {
    const auto timerPtr = Timer("a");
    schedule.Start(timerPtr, 30, 0s);
    schedule.Start(timerPtr, 20, 15ms);
    EXPECT_EQ(CallsAt(34ms), "");
    EXPECT_EQ(CallsAt(55ms), "aa");
    schedule.Stop(timerPtr);
    EXPECT_EQ(CallsAt(500ms), "");
    schedule.Start(timerPtr, -3, 500ms);
    EXPECT_EQ(schedule.NextCall(), 501ms) << "at least a millisecond";
}

TEST(TimerQueue, ACallMayStopOrDestroyItsOwnTimerAndStartOthers) {
    platform::TimerQueue queue;
    std::string calls; // made on one thread
    std::atomic<bool> isDone = false;
    std::unique_ptr<platform::PeriodicTimer> timers[3];
    timers[0] = queue.MakeTimer([&] {
        calls += "stopped ";
        timers[0]->Stop();
    });
    timers[1] = queue.MakeTimer([&] {
        calls += "destroyed ";
        timers[2]->Start(20);
        timers[1].reset();
    });
    timers[2] = queue.MakeTimer([&] {
        timers[2]->Stop();
        isDone = true;
    });
    timers[0]->Start(1);
    timers[1]->Start(2);
    Await(isDone);
    EXPECT_EQ(calls, "stopped destroyed ");
}

TEST(TimerQueue, DestroyingATimerWaitsForTheCallThatRuns) {
    platform::TimerQueue queue;
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
    auto queuePtr = std::make_unique<platform::TimerQueue>();
    std::atomic<bool> isCalled = false;
    const auto timerPtr = queuePtr->MakeTimer([&] { isCalled = true; });
    timerPtr->Start(1);
    Await(isCalled);
    queuePtr.reset();
    timerPtr->Start(1); // a thread that this started would outlive its queue and end the program
}
