#pragma once

#include "platform/ScriptedDesktop.h"

#include <span>
#include <string>
#include <vector>

/// A field of a trace and its value as JSON.
struct TraceField {
    const char* name;
    std::string value;
    explicit TraceField(const char* fieldName) : name(fieldName) {}
};

/// The state of the game in one tick. Its fields, in this order:
///
/// - "hero": "x", "y", "form", "alive", "invulnerable", "star" (whether it is active), "right" (where he faces), ...
/// - "camera": "x", "y", ...
/// - "hud": "time", "score", "coins", ...
/// - "flagDown"
/// - "blocks": [type, x, y] of each
/// - "enemies", "entities": null for an empty slot, or "type", "x", "y", "box" ([left, top, right, bottom]), ...
/// - "media": the texts of the media commands given
/// - "level", "blockStates" and "fireballs" (null for an empty place): ...
///
/// "..." stands for what the class names in its Report, in the order of the names; points are [x, y]. Numbers are
/// written so that reading them back gives the same doubles, in any locale; what is not finite is null.
using Trace = std::vector<TraceField>;

/// The trace of the running game, with the media commands that it is told.
Trace TraceOfGame(std::span<const platform::ScriptedDesktop::MediaCommand> media);

/// The trace as one JSON object that begins with the field "tick", and a line end.
std::string TraceLine(int tick, const Trace& trace);
