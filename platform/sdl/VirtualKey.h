#pragma once

#include <cstdint>

namespace platform {

/// The virtual-key code of a key: letters, punctuation and the keys with a name by what they mean under the player's
/// layout, the number pad by position whatever Num Lock says. Where the layout has another character, and for digits
/// that need Shift, the usual place counts. 0 for keys without a code. `keycode` and `scancode` are the window
/// library's.
int VirtualKeyOf(std::int32_t keycode, int scancode);

} // namespace platform
