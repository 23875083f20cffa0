#pragma once

#include "platform/core/media/SoundDecoder.h"

#include <memory>
#include <string>

namespace platform {

/// Opens a recording: MP3, WAV and what else is common. Reads no more than the headers. Null if `path` (UTF-8) is
/// missing or damaged.
std::unique_ptr<SoundDecoder> OpenRecording(const std::string& path);

} // namespace platform
