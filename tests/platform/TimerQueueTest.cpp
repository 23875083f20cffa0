#include "platform/core/TimerQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using platform::PeriodicTimer;
using platform::TimerQueue;
using Clock = std::chrono::steady_clock;

bool Await(const std::atomic<bool>& isDone) {
    const auto giveUp = Clock::now() + 10s;
    while (!isDone && Clock::now() < giveUp) std::this_thread::sleep_for(1ms);
    return isDone;
}

TEST(TimerQueue, DoesNotDriftAndNeverCallsTooEarly) {
    constexpr auto period = 10ms;
    constexpr int calls = 100;
    TimerQueue queue;
    std::vector<Clock::time_point> times;
    std::atomic<bool> isDone = false;
    const auto timerPtr = queue.MakeTimer([&] {
        if (times.size() == calls) return;
        times.push_back(Clock::now());
        if (times.size() % 10 == 0) std::this_thread::sleep_for(12ms); // slower than the period: made up for
        isDone = times.size() == calls;
    });
    const auto before = Clock::now();
    timerPtr->Start(10);
    const auto after = Clock::now();
    ASSERT_TRUE(Await(isDone));
    auto leastLate = Clock::duration::max();
    for (int call = 0; call < calls; ++call) {
        const auto time = times[static_cast<std::size_t>(call)];
        EXPECT_GE(time, before + (call + 1) * period) << call;
        if (call >= calls - 20) leastLate = std::min(leastLate, time - (after + (call + 1) * period));
    }
    EXPECT_LT(leastLate, period); // a busy machine makes some calls late, a drift all of them
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
    ASSERT_TRUE(Await(isDone));
    EXPECT_EQ(calls, 2);
}

TEST(TimerQueue, DestroyingATimerWaitsForTheCallThatRuns) {
    TimerQueue queue;
    std::atomic<bool> hasBegun = false;
    std::atomic<bool> hasEnded = false;
    auto timerPtr = queue.MakeTimer([&] {
        hasBegun = true;
        std::this_thread::sleep_for(30ms);
        hasEnded = true;
    });
    timerPtr->Start(1);
    ASSERT_TRUE(Await(hasBegun));
    timerPtr->Stop();
    EXPECT_FALSE(hasEnded); // stopping does not wait
    timerPtr.reset();
    EXPECT_TRUE(hasEnded);
}

TEST(TimerQueue, TimersSurviveTheirQueueInSilence) {
    auto queuePtr = std::make_unique<TimerQueue>();
    std::atomic<int> calls = 0;
    const auto timerPtr = queuePtr->MakeTimer([&] { ++calls; });
    timerPtr->Start(1);
    queuePtr.reset();
    const int callsBefore = calls;
    timerPtr->Start(1);
    std::this_thread::sleep_for(10ms);
    EXPECT_EQ(calls, callsBefore);
}

} // namespace
