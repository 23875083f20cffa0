#pragma once

#include <string>

struct SDL_Window;

namespace platform {

/// Shows a box with one button and returns when it is dismissed. `ownerPtr` may be null. False if none can be shown.
bool ShowModalBox(SDL_Window* ownerPtr, const std::string& title, const std::string& text);

} // namespace platform
