#pragma once

#include "platform/ScriptedDesktop.h"

#include <string>
#include <vector>

struct StartedSound {
    int frame = 0;
    std::string name; // of the file, without folder and extension
    int volume = -1;  // 0 to 1000, set after the start and before the next one; -1 if none was
};

/// The sounds that `commands` start or resume, in their order. The commands must reach back to the files' opening.
std::vector<StartedSound> StartedSounds(const std::vector<platform::ScriptedDesktop::MediaCommand>& commands);
