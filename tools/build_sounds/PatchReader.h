#pragma once

#include "tools/build_sounds/Rhythm.h"
#include "tools/build_sounds/Score.h"
#include "tools/build_sounds/ScoreFile.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace synth {

/// Reads patches, and the tracks that play on them. Every operation reads the current line of `file` and throws
/// ScoreError if that line is wrong.
class PatchReader {
public:
    /// Appends the tracks to `tracks`. Borrows both.
    PatchReader(const Rhythm& rhythm, std::vector<Track>& tracks);

    void BeginPatch(const ScoreFile& file);
    void ReadPatchLine(const ScoreFile& file);
    void BeginTrack(const ScoreFile& file);
    void ReadTrackLine(const ScoreFile& file);

    /// The index of the track `name`.
    int FindTrack(const ScoreFile& file, std::string_view name) const;

private:
    const Rhythm& rhythm;
    std::vector<Track>& tracks;
    std::map<std::string, Patch> patches;
    std::map<std::string, int> trackIndices;
    Patch* patchPtr = nullptr; // the one that is being read
};

} // namespace synth
