#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace platform {

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
