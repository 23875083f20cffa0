#include "platform/Pacer.h"

#include <algorithm>

namespace platform {

namespace {
// 59.94 is a 60 Hz display. A faster one is paced by the timer, and so is a slower one, which must not be waited for.
constexpr double lowestRate = 59.0;
constexpr double highestRate = 61.0;

// A driver may take two or three frames ahead before it begins to wait; one that never waits goes on.
constexpr int earlyFramesAllowed = 8;
} // namespace

void Pacer::SetBlankRate(double refreshRate) {
    followsDisplay = refreshRate >= lowestRate && refreshRate <= highestRate;
    earlyFrames = 0;
    started = false;
}

Pacer::Time Pacer::NextFrame(Time now) {
    if (followsDisplay) return AfterBlank(now);
    ++count;
    if (!started || now >= anchor + Frames(count + 1)) {
        started = true;
        anchor = now;
        count = 0;
    }
    return anchor + Frames(count);
}

Pacer::Time Pacer::AfterBlank(Time now) {
    // Here the anchor is the time at which the last frame was allowed to begin.
    const bool early = started && now < anchor + Frames(3) / 4;
    earlyFrames = early ? earlyFrames + 1 : 0;
    anchor = early ? anchor + Frames(1) : now;
    started = true;
    count = 0;
    if (earlyFrames > earlyFramesAllowed) followsDisplay = false; // the timer's grid goes on from the anchor
    return anchor;
}

} // namespace platform
