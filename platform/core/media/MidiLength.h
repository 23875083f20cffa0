#pragma once

#include <string>

namespace platform {

/// The length of a MIDI file in milliseconds, tempo changes included; needs no synthesiser. Negative if the file is
/// missing or damaged.
int MidiLength(const std::string& path);

} // namespace platform
