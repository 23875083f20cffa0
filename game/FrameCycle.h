#pragma once

#include "game/StateReport.h"

/// Counts ticks and says which picture of an animation is shown.
struct FrameCycle {
    int ticks = 0; // since the last change
    int frame = 0;

    /// One tick. Every `ticksPerFrame` ticks the next of `frameCount` frames is shown; the first follows the last.
    constexpr void Tick(int ticksPerFrame, int frameCount) {
        if (++ticks < ticksPerFrame) return;
        ticks = 0;
        frame = (frame + 1) % frameCount;
    }

    void Report(StateReport& report) const {
        report.Add("frame", frame);
        report.Add("frameTicks", ticks);
    }
};
