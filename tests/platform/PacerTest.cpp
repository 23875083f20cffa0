#include "platform/core/screen/Pacer.h"

#include <gtest/gtest.h>

#include <algorithm>

using platform::Pacer;
using namespace std::chrono_literals;

namespace {
/// A clock, a driver and a frame loop: what happens between two frames is given, the rest is waiting.
struct Loop {
    Pacer pacer;
    Pacer::Time now = 5s;
    Pacer::Time blank = 0ns; // the period of a driver that really waits

    /// One frame that takes `work`; returns when the next one begins.
    Pacer::Time Frame(Pacer::Time work) {
        now += work;
        if (blank > 0ns) now += blank - now % blank;
        now = std::max(now, pacer.NextFrame(now));
        return now;
    }
};
} // namespace

TEST(Pacer, TimerDoesNotDriftWhenSleepsEndLate) {
    Loop loop;
    const Pacer::Time start = loop.Frame(0ms);
    for (int frame = 1; frame <= 10'000; ++frame) {
        ASSERT_EQ(loop.Frame(3ms), start + Pacer::Frames(frame));
        loop.now += std::chrono::microseconds(frame * 37 % 400); // the system wakes us when it pleases
    }
}

TEST(Pacer, SlightlyLateFramesKeepTheGridAndStallsMoveIt) {
    Loop loop;
    const Pacer::Time start = loop.Frame(0ms);
    EXPECT_EQ(loop.Frame(20ms), start + 20ms) << "a late frame is not held up further";
    EXPECT_EQ(loop.Frame(2ms), start + Pacer::Frames(2)) << "the next one is on time again";

    const Pacer::Time resumed = loop.Frame(3s);
    for (int frame = 1; frame <= 20; ++frame) {
        ASSERT_EQ(loop.Frame(2ms), resumed + Pacer::Frames(frame)) << "nothing is caught up";
    }
}

TEST(Pacer, FollowsADriverThatWaitsForA60HzDisplay) {
    for (const double rate : {59.94, 60.0}) {
        Loop loop;
        loop.pacer.SetBlankRate(rate);
        loop.blank = Pacer::Time(static_cast<std::int64_t>(1e9 / rate));
        for (int frame = 0; frame < 1000; ++frame) {
            const Pacer::Time begin = loop.Frame(frame % 100 == 50 ? 40ms : 4ms);
            ASSERT_EQ(begin % loop.blank, 0ns) << "no wait on top of the display's";
        }
        EXPECT_TRUE(loop.pacer.FollowsDisplay());
    }
}

TEST(Pacer, TakesOverFromADriverThatDoesNotWait) {
    Loop loop;
    loop.pacer.SetBlankRate(60.0);
    const Pacer::Time start = loop.Frame(2ms);
    for (int frame = 1; frame <= 600; ++frame) {
        ASSERT_GE(loop.Frame(2ms) - start, Pacer::Frames(1) * frame);
        ASSERT_TRUE(frame < 20 || !loop.pacer.FollowsDisplay()) << "a third of a second is proof enough";
    }
    EXPECT_LE(loop.now - start, Pacer::Frames(601));
}

TEST(Pacer, OtherDisplaysStillGiveSixtyFrames) {
    for (const int rate : {30, 50, 75, 120, 144, 240}) {
        Loop loop;
        loop.pacer.SetBlankRate(rate);
        EXPECT_FALSE(loop.pacer.FollowsDisplay());
        // A slower display is not waited for; that is its owner's job. A faster one may be.
        loop.blank = rate > 60 ? Pacer::Time(1'000'000'000 / rate) : 0ns;
        const Pacer::Time start = loop.Frame(2ms);
        for (int frame = 1; frame <= 600; ++frame) loop.Frame(2ms);
        EXPECT_NEAR(std::chrono::duration<double>(loop.now - start).count(), 10.0, 0.02) << rate;
    }
}
