#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace platform {

/// The virtual-key code of a key: letters, and the keys with a name, by what they mean under the player's layout, the
/// number pad by position whatever NumLock says. Under a layout without Latin letters the letters' usual places count,
/// and likewise for digits where they need Shift. 0 for keys without a code. `keycode` and `scancode` are the window
/// library's.
int VirtualKeyOf(std::int32_t keycode, int scancode);

/// Which keys are down. Changed by one thread, asked by any.
class Keyboard {
public:
    bool IsDown(int virtualKey) const;
    /// The key at `scancode` was pressed and means `virtualKey`.
    void Press(int scancode, int virtualKey);
    /// Returns what the key meant when it was pressed, 0 if it was not down. A virtual key that several keys stand for
    /// (the two Shift keys) is up when the last of them is.
    int Release(int scancode);
    void ReleaseAll();

private:
    std::array<std::uint8_t, 512> meanings{};
    std::array<std::atomic<std::uint8_t>, 256> downCounts{};
};

} // namespace platform
