#pragma once

#include "platform/core/media/SoundDecoder.h"

#include <memory>
#include <string>

namespace platform {

/// Opens a MIDI file, played with the sound font of the system. Null if the file is missing or damaged or the system
/// has no synthesiser or no sound font. Loads both at the first call, which can take a good part of a second.
std::unique_ptr<SoundDecoder> OpenMidi(const std::string& path);

} // namespace platform
