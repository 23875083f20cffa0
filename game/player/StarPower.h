#pragma once

class StateReport;

/// The hero's star power: 300 ticks, with music of its own and changing colours.
class StarPower {
public:
    /// Starts it, or starts its time again.
    void Activate();
    /// Counts down; when the time is over, the music of the level goes on.
    void Tick();
    /// The colours for this paint: 0 his own, 1 to 8 those of the star, which take turns. Writes the counters to the
    /// debugger.
    int NextBand();
    /// Also in the tick in which the time runs out.
    bool IsActive() const { return isActive; }
    void Report(StateReport& report) const;

private:
    bool isActive = false;
    int ticksLeft = 0; // goes on falling below 0
    int paintCount = 0;
    int band = 0;
};
