#pragma once

class StateReport;

/// The hero's star power. It lasts 300 ticks, with its own music and changing colours.
class StarPower {
public:
    /// Starts it. If it is on already, its time starts again.
    void Activate();
    /// Counts down. When the time is over, the music of the level plays again.
    void Tick();
    /// The band of the sprite sheet for this paint: 0 without star power, otherwise 1 to 8 in turn. Writes both
    /// counters to the debugger.
    int NextBand();
    /// Still true in the tick in which the counter reaches 0.
    bool IsActive() const { return isActive; }
    void Report(StateReport& report) const;

private:
    bool isActive = false;
    int ticksLeft = 0; // keeps falling below 0
    int paintCount = 0;
    int band = 0;
};
