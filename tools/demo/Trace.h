#pragma once

#include <span>
#include <string>

#include "platform/ScriptedDesktop.h"

/// Appends the state of the running game to `line` as one JSON object, with a line end. Its fields, in this order:
///
/// - "tick"
/// - "hero": "x", "y", "form", "alive", "invulnerable", "star" (whether it is active), "right" (where he faces), ...
/// - "camera": "x", "y", ...
/// - "hud": "time", "score", "coins", ...
/// - "flagDown"
/// - "blocks": [type, x, y] of each
/// - "enemies", "entities": null for an empty slot, or "type", "x", "y", "box" (left, top, right, bottom), ...
/// - "media": the texts of the media commands given
/// - "level", "blockStates", "fireballs" (null for an empty place): ...
///
/// "..." stands for what the class names in its Report, in the order of the names; points are [x, y]. Numbers are
/// written so that reading them back gives the same doubles, in any locale; what is not finite is null.
void AppendTraceLine(std::string& line, int tick, std::span<const platform::ScriptedDesktop::MediaCommand> media);
