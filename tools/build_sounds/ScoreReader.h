#pragma once

#include "tools/build_sounds/Score.h"

#include <filesystem>

namespace synth {

/// Reads the score in `path` and the patch files it names (relative to its own folder). art/sound/README.md describes
/// the format. Throws ScoreError, which names the file and the line.
Score ReadScore(const std::filesystem::path& path);

} // namespace synth
