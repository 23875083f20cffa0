#include "platform/core/screen/Keyboard.h"

#include "platform/Messages.h"

#include <SDL_keycode.h>

namespace platform {

int VirtualKeyOf(std::int32_t keycode, int scancode) {
    if (scancode >= SDL_SCANCODE_KP_1 && scancode <= SDL_SCANCODE_KP_9)
        return VK_NUMPAD0 + 1 + scancode - SDL_SCANCODE_KP_1;
    if (scancode == SDL_SCANCODE_KP_0) return VK_NUMPAD0;
    if (keycode >= SDLK_a && keycode <= SDLK_z) return 'A' + keycode - SDLK_a;
    if (keycode >= SDLK_0 && keycode <= SDLK_9) return '0' + keycode - SDLK_0;
    switch (keycode) {
    case SDLK_BACKSPACE: return VK_BACK;
    case SDLK_TAB: return VK_TAB;
    case SDLK_RETURN:
    case SDLK_KP_ENTER: return VK_RETURN;
    case SDLK_LSHIFT:
    case SDLK_RSHIFT: return VK_SHIFT;
    case SDLK_LCTRL:
    case SDLK_RCTRL: return VK_CONTROL;
    case SDLK_LALT:
    case SDLK_RALT: return VK_MENU;
    case SDLK_ESCAPE: return VK_ESCAPE;
    case SDLK_SPACE: return VK_SPACE;
    case SDLK_END: return VK_END;
    case SDLK_HOME: return VK_HOME;
    case SDLK_LEFT: return VK_LEFT;
    case SDLK_UP: return VK_UP;
    case SDLK_RIGHT: return VK_RIGHT;
    case SDLK_DOWN: return VK_DOWN;
    case SDLK_DELETE: return VK_DELETE;
    case SDLK_F10: return VK_F10;
    default: break;
    }
    if (scancode >= SDL_SCANCODE_1 && scancode <= SDL_SCANCODE_9) return '1' + scancode - SDL_SCANCODE_1;
    if (scancode == SDL_SCANCODE_0) return '0';
    const bool isLatin = keycode < 0x80;
    if (!isLatin && scancode >= SDL_SCANCODE_A && scancode <= SDL_SCANCODE_Z) return 'A' + scancode - SDL_SCANCODE_A;
    return 0;
}

bool Keyboard::IsDown(int virtualKey) const {
    return virtualKey >= 0 && virtualKey < static_cast<int>(downCounts.size()) &&
           downCounts[static_cast<std::size_t>(virtualKey)].load(std::memory_order_relaxed) != 0;
}

void Keyboard::Press(int scancode, int virtualKey) {
    if (scancode < 0 || scancode >= static_cast<int>(meanings.size()) || virtualKey <= 0 || virtualKey > 255) return;
    std::uint8_t& meaning = meanings[static_cast<std::size_t>(scancode)];
    if (meaning != 0) return;
    meaning = static_cast<std::uint8_t>(virtualKey);
    ++downCounts[meaning];
}

int Keyboard::Release(int scancode) {
    if (scancode < 0 || scancode >= static_cast<int>(meanings.size())) return 0;
    std::uint8_t& meaning = meanings[static_cast<std::size_t>(scancode)];
    const int virtualKey = meaning;
    if (virtualKey != 0) --downCounts[meaning];
    meaning = 0;
    return virtualKey;
}

void Keyboard::ReleaseAll() {
    meanings.fill(0);
    for (auto& count : downCounts) count = 0;
}

} // namespace platform
