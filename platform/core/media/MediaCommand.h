#pragma once

#include <optional>
#include <string_view>

namespace platform {

/// One command of the media interface, taken apart. The views point into the text it was read from.
struct MediaCommand {
    enum class Verb { open, setTimeFormat, statusLength, play, pause, resume, stop, setVolume, close };
    enum class FileType { mpegVideo, waveAudio, sequencer };

    Verb verb = Verb::close;
    std::wstring_view alias;
    std::wstring_view fileName;              // open
    FileType fileType = FileType::mpegVideo; // open
    int from = 0;                            // play; milliseconds
    std::optional<int> to;                   // play; nothing: to the end
    bool notify = false;                     // play
    int volume = 0;                          // setVolume; any number that is not negative
};

/// Reads a command text; nothing if it is not exactly one of the commands. Words are separated by spaces.
std::optional<MediaCommand> ParseMediaCommand(std::wstring_view text);

} // namespace platform
