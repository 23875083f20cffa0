#pragma once

#include "tools/build_sounds/Player.h"

#include <cstdint>
#include <vector>

namespace synth {

/// Integrated loudness in LUFS after ITU-R BS.1770, both gates applied; -70 for silence.
double MeasureLoudness(const Stereo& sound);

/// Brings the sound to the loudness and peak of the score, fades its tail and returns interleaved samples.
std::vector<std::int16_t> Master(Stereo sound, const Score& score);

} // namespace synth
