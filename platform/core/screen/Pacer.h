#pragma once

#include <chrono>
#include <cstdint>

namespace platform {

/// Keeps 60 frames per second on every display: games here count in frames. On a display of that rate the wait of its
/// driver is enough; everywhere else a timer on an exact grid takes over. All times are of one clock that never goes
/// back.
class Pacer {
public:
    using Time = std::chrono::nanoseconds;

    /// Refreshes per second below which a display's blank must not be waited for: it would slow the game down.
    static constexpr double slowestDisplay = 59.0;

    /// The time of `frames` frames.
    static constexpr Time Frames(std::int64_t frames) { return Time(frames * 1'000'000'000 / 60); }

    /// From now on presenting waits for the blank of a display that refreshes `refreshRate` times per second; 0 if it
    /// does not wait. Also to be called when the display may have changed: it forgets what was learnt about the driver.
    void SetBlankRate(double refreshRate);

    /// A frame has been presented, and that took until `now`. Returns when the next frame may begin; it may begin at
    /// once if that is not later than `now`. Whoever is late by a frame or more is not hurried: the grid moves.
    Time NextFrame(Time now);

    /// Whether the display's own blank sets the pace.
    bool FollowsDisplay() const { return followsDisplay; }

private:
    Time AfterBlank(Time now);

    bool followsDisplay = false;
    int earlyFrames = 0; // in a row, on the display's blank
    bool started = false;
    Time anchor{0};         // where the grid begins
    std::int64_t count = 0; // frames since then
};

} // namespace platform
