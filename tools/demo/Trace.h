#pragma once

#include <span>
#include <string>

#include "platform/ScriptedDesktop.h"

/// Appends the state of the running game to `line` as one JSON object: hero, camera, clock, blocks, enemies, entities,
/// and the media commands given. Numbers are written so that reading them back gives the same doubles.
void AppendTraceLine(std::string& line, int tick, std::span<const platform::ScriptedDesktop::MediaCommand> media);
