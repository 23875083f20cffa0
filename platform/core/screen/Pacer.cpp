#include "platform/core/screen/Pacer.h"

namespace platform {

namespace {
// The blank of a faster display is too early to set the pace; 59.94 and 60.02 are 60.
constexpr double fastestDisplay = 61.0;

// A driver may take two or three frames ahead before it begins to wait; one that never waits goes on.
constexpr int earlyFramesAllowed = 8;
} // namespace

void Pacer::SetBlankRate(double refreshRate) {
    followsDisplay = refreshRate >= slowestDisplay && refreshRate <= fastestDisplay;
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
