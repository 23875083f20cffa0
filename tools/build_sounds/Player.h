#pragma once

#include "tools/build_sounds/Score.h"

#include <cstdint>
#include <vector>

namespace synth {

constexpr int samplesPerSecond = 44100;

/// Two channels of equal length, full scale at 1.
struct Stereo {
    std::vector<float> left;
    std::vector<float> right;
};

/// One note of `patch`, from its attack to the end of its release, without pan. `seed` picks the noise.
std::vector<float> PlayNote(const Patch& patch, const Note& note, std::uint32_t seed);

/// All tracks with their echoes in one hall, before mastering. The same score always gives the same samples.
Stereo PlayScore(const Score& score);

} // namespace synth
