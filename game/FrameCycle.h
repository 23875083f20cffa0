#pragma once

#include "game/StateReport.h"

/// Runs through the pictures of an animation, counted in ticks.
struct FrameCycle {
    int ticks = 0; // since the last change
    int frame = 0;

    /// One tick; every `ticksPerFrame` of them show the next of `frameCount` frames, after the last the first.
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
