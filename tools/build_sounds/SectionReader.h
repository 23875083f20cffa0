#pragma once

#include "tools/build_sounds/PatchReader.h"
#include "tools/build_sounds/PhraseReader.h"
#include "tools/build_sounds/Rhythm.h"
#include "tools/build_sounds/Score.h"
#include "tools/build_sounds/ScoreFile.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace synth {

/// Reads sections and plays them. Every operation reads the current line of `file` and throws ScoreError if that line
/// is wrong.
class SectionReader {
public:
    /// Appends the notes to `score`. Borrows all four.
    SectionReader(const Rhythm& rhythm, const PatchReader& patchReader, const PhraseReader& phraseReader, Score& score);

    void BeginSection(const ScoreFile& file);
    /// What one track plays in the section.
    void ReadPart(const ScoreFile& file);
    /// Plays the sections of the line from the score's length on, which grows by theirs.
    void Play(const ScoreFile& file);

private:
    /// A phrase as a section uses it; a null phrase is a rest.
    struct Use {
        const Phrase* phrasePtr = nullptr;
        double beats = 0.0;
        double transpose = 0.0;
        double gain = 1.0;
    };

    struct Section {
        double tempo = 0.0;
        double beats = 0.0;
        std::map<int, std::vector<Use>> parts; // by track
    };

    double ReadUse(const ScoreFile& file, std::string_view word, std::vector<Use>& uses) const;
    void PlayUse(const Use& use, double beat, double beatSeconds, int track);

    const Rhythm& rhythm;
    const PatchReader& patchReader;
    const PhraseReader& phraseReader;
    Score& score;
    std::map<std::string, Section> sections;
    Section* sectionPtr = nullptr; // the one that is being read
    double sectionBars = 0.0;      // 0: as long as its longest part
};

} // namespace synth
