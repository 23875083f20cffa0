#pragma once

#include "tools/build_sounds/Rhythm.h"
#include "tools/build_sounds/ScoreFile.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace synth {

/// A few bars of one track.
struct Phrase {
    /// A note; places and lengths in beats from the phrase's start.
    struct Event {
        double start = 0.0;
        double length = 0.0;
        double pitch = 60.0;
        double glideFrom = 60.0;
        double gain = 1.0;
    };
    std::vector<Event> events;
    double beats = 0.0;
    double barBeats = 0.0; // where the last bar line stood
    bool hasBars = false;
    std::size_t chordStart = 0; // the events that a tie makes longer
    double lastLength = 1.0;
};

/// Reads phrases, written as notes or as a grid of beats. Every operation reads the current line of `file` and throws
/// ScoreError if that line is wrong.
class PhraseReader {
public:
    /// Borrows `rhythm`.
    explicit PhraseReader(const Rhythm& rhythm);

    void BeginPhrase(const ScoreFile& file);
    void ReadNotes(const ScoreFile& file);
    void ReadGrid(const ScoreFile& file);

    /// The phrase `name`; stays where it is while more are read.
    const Phrase& FindPhrase(const ScoreFile& file, std::string_view name) const;

private:
    void EndBar(const ScoreFile& file);
    void ReadNote(const ScoreFile& file, std::string_view word);
    double ReadLength(const ScoreFile& file, std::string_view text) const;

    const Rhythm& rhythm;
    std::map<std::string, Phrase> phrases; // a map: sections keep pointers into it
    Phrase* phrasePtr = nullptr;           // the one that is being read
};

} // namespace synth
