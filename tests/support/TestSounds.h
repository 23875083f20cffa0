#pragma once

#include "tests/support/TestFolder.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

/// The bytes of a WAV file with a sine tone in 16 bits, the same on all channels.
inline std::string ToneWav(double hertz, double amplitude, int milliseconds, int channels = 2,
                           int samplesPerSecond = 44100) {
    const auto number = [](std::string& bytes, std::uint32_t value, int size) {
        for (int index = 0; index < size; ++index) bytes += static_cast<char>(value >> (8 * index));
    };
    std::string samples;
    const auto frames = static_cast<int>(static_cast<std::int64_t>(milliseconds) * samplesPerSecond / 1000);
    for (int frame = 0; frame < frames; ++frame) {
        const double value = amplitude * std::sin(2.0 * std::numbers::pi * hertz * frame / samplesPerSecond);
        const auto sample = static_cast<std::uint32_t>(std::lround(value * 32767.0));
        for (int channel = 0; channel < channels; ++channel) number(samples, sample, 2);
    }
    std::string bytes = "RIFF";
    number(bytes, static_cast<std::uint32_t>(36 + samples.size()), 4);
    bytes += "WAVEfmt ";
    number(bytes, 16, 4);
    number(bytes, 1, 2);
    number(bytes, static_cast<std::uint32_t>(channels), 2);
    number(bytes, static_cast<std::uint32_t>(samplesPerSecond), 4);
    number(bytes, static_cast<std::uint32_t>(samplesPerSecond * channels * 2), 4);
    number(bytes, static_cast<std::uint32_t>(channels * 2), 2);
    number(bytes, 16, 2);
    bytes += "data";
    number(bytes, static_cast<std::uint32_t>(samples.size()), 4);
    return bytes + samples;
}
