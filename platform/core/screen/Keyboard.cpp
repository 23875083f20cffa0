#include "platform/core/screen/Keyboard.h"

#include "platform/Messages.h"

namespace platform {

bool Keyboard::IsDown(int virtualKey) const {
    return virtualKey >= 0 && virtualKey < static_cast<int>(downCounts.size()) &&
           downCounts[static_cast<std::size_t>(virtualKey)].load(std::memory_order_relaxed) != 0;
}

void Keyboard::Press(int scancode, int virtualKey) {
    if (scancode < 0 || scancode >= static_cast<int>(meanings.size()) || virtualKey <= 0 || virtualKey > 255) return;
    std::uint8_t& meaning = meanings[static_cast<std::size_t>(scancode)];
    if (meaning != 0) return;
    meaning = static_cast<std::uint8_t>(virtualKey);
    Count(virtualKey, 1);
}

int Keyboard::Release(int scancode) {
    if (scancode < 0 || scancode >= static_cast<int>(meanings.size())) return 0;
    std::uint8_t& meaning = meanings[static_cast<std::size_t>(scancode)];
    const int virtualKey = meaning;
    if (virtualKey != 0) Count(virtualKey, -1);
    meaning = 0;
    return virtualKey;
}

void Keyboard::ReleaseAll() {
    meanings.fill(0);
    for (auto& count : downCounts) count = 0;
}

void Keyboard::Count(int virtualKey, int change) {
    const auto add = [&](int key) {
        auto& count = downCounts[static_cast<std::size_t>(key)];
        count = static_cast<std::uint8_t>(count + change);
    };
    add(virtualKey);
    if (const int eitherSide = MessageKey(virtualKey); eitherSide != virtualKey) add(eitherSide);
}

} // namespace platform
