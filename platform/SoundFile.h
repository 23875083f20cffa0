#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace platform {

/// Writes interleaved 16-bit samples as an MP3 file of constant quality. `quality` runs from 0 (best) to 1 (smallest).
/// False if the file cannot be written.
bool SaveMp3(const std::string& path, std::span<const std::int16_t> samples, int channels, int samplesPerSecond,
             double quality);

/// Writes interleaved 16-bit samples as a WAV file. False if the file cannot be written.
bool SaveWav(const std::string& path, std::span<const std::int16_t> samples, int channels, int samplesPerSecond);

} // namespace platform
