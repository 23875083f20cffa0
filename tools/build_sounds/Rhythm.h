#pragma once

namespace synth {

/// What the lines of a score that follow count in. A beat is a quarter.
struct Rhythm {
    double tempo = 120.0;    // beats a minute
    double meter = 4.0;      // beats in a bar
    double swingUnit = 0.25; // beats in each note of a swung pair
    double swingShare = 0.5; // of the pair's length that its first note takes; 0.5 is straight

    /// Where a beat falls in time when the first of each pair of short notes is held longer.
    double Swung(double beat) const;
};

} // namespace synth
