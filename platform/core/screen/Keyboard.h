#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace platform {

/// The virtual-key code of a key: letters, punctuation and the keys with a name by what they mean under the player's
/// layout, the number pad by position whatever Num Lock says. Where the layout has another character, and for digits
/// that need Shift, the usual place counts. 0 for keys without a code. `keycode` and `scancode` are the window
/// library's.
int VirtualKeyOf(std::int32_t keycode, int scancode);

/// Which keys are down. Changed by one thread, asked by any.
class Keyboard {
public:
    bool IsDown(int virtualKey) const;
    /// The key at `scancode` was pressed and means `virtualKey`. The left and the right Shift, Ctrl and Alt key also
    /// count for the code of either side.
    void Press(int scancode, int virtualKey);
    /// Returns what the key meant when it was pressed, 0 if it was not down. A virtual key that several keys stand for
    /// is up when the last of them is.
    int Release(int scancode);
    void ReleaseAll();

private:
    void Count(int virtualKey, int change);

    std::array<std::uint8_t, 512> meanings{};
    std::array<std::atomic<std::uint8_t>, 256> downCounts{};
};

} // namespace platform
