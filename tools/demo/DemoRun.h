#pragma once

#include "platform/ScriptedDesktop.h"
#include "tools/demo/Demo.h"

#include <functional>

/// Plays `demo` with the real game from its start to its end, on a scripted desktop made for it, and returns the game's
/// exit code. `onFrame` is called after every frame, with that desktop and the picture. The game's message
/// boxes go to standard error, its lines on standard output and its debug lines are dropped.
int RunDemo(
    const Demo& demo,
    const std::function<void(platform::ScriptedDesktop& desktop, int frame, const platform::FrameView& view)>& onFrame);
