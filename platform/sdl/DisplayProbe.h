#pragma once

struct SDL_Window;

namespace platform {

/// Whether drawing in `window` reaches real graphics hardware. Only then is the accelerated path worth its start-up
/// time and memory; a software imitation of it costs more than copying the picture ourselves. Looks at a few files and
/// asks the display one question; loads nothing.
bool HasGraphicsHardware(SDL_Window* window);

/// How much larger than usual the user wants things on the screen; 1 is 100 %. Displays that enlarge windows by
/// themselves answer 1.
double DisplayScale(SDL_Window* window);

/// Whether somebody on the display answers a window's wish to fill the screen; without that it has to size itself.
bool HasWindowManager(SDL_Window* window);

} // namespace platform
