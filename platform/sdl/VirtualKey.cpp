#include "platform/sdl/VirtualKey.h"

#include "platform/Messages.h"

#include <SDL_keycode.h>

namespace platform {

namespace {
struct Key {
    SDL_Scancode place;
    char character; // that it gives on an American keyboard, 0 if none
    int virtualKey;
};

constexpr Key keys[] = {
    {SDL_SCANCODE_RETURN, '\r', VK_RETURN},
    {SDL_SCANCODE_ESCAPE, '\x1B', VK_ESCAPE},
    {SDL_SCANCODE_BACKSPACE, '\b', VK_BACK},
    {SDL_SCANCODE_TAB, '\t', VK_TAB},
    {SDL_SCANCODE_SPACE, ' ', VK_SPACE},
    {SDL_SCANCODE_DELETE, '\x7F', VK_DELETE},
    {SDL_SCANCODE_MINUS, '-', VK_OEM_MINUS},
    {SDL_SCANCODE_EQUALS, '=', VK_OEM_PLUS},
    {SDL_SCANCODE_LEFTBRACKET, '[', VK_OEM_4},
    {SDL_SCANCODE_RIGHTBRACKET, ']', VK_OEM_6},
    {SDL_SCANCODE_BACKSLASH, '\\', VK_OEM_5},
    {SDL_SCANCODE_SEMICOLON, ';', VK_OEM_1},
    {SDL_SCANCODE_APOSTROPHE, '\'', VK_OEM_7},
    {SDL_SCANCODE_GRAVE, '`', VK_OEM_3},
    {SDL_SCANCODE_COMMA, ',', VK_OEM_COMMA},
    {SDL_SCANCODE_PERIOD, '.', VK_OEM_PERIOD},
    {SDL_SCANCODE_SLASH, '/', VK_OEM_2},
    {SDL_SCANCODE_NONUSHASH, 0, VK_OEM_5},
    {SDL_SCANCODE_NONUSBACKSLASH, 0, VK_OEM_102},
    {SDL_SCANCODE_INTERNATIONAL1, 0, VK_OEM_102},
    {SDL_SCANCODE_INTERNATIONAL2, 0, VK_KANA},
    {SDL_SCANCODE_INTERNATIONAL3, 0, VK_OEM_5},
    {SDL_SCANCODE_INTERNATIONAL4, 0, VK_CONVERT},
    {SDL_SCANCODE_INTERNATIONAL5, 0, VK_NONCONVERT},
    {SDL_SCANCODE_LANG1, 0, VK_KANA},
    {SDL_SCANCODE_LANG2, 0, VK_KANJI},
    {SDL_SCANCODE_MODE, 0, VK_MODECHANGE},
    {SDL_SCANCODE_CAPSLOCK, 0, VK_CAPITAL},
    {SDL_SCANCODE_PRINTSCREEN, 0, VK_SNAPSHOT},
    {SDL_SCANCODE_SYSREQ, 0, VK_SNAPSHOT},
    {SDL_SCANCODE_SCROLLLOCK, 0, VK_SCROLL},
    {SDL_SCANCODE_PAUSE, 0, VK_PAUSE},
    {SDL_SCANCODE_INSERT, 0, VK_INSERT},
    {SDL_SCANCODE_HOME, 0, VK_HOME},
    {SDL_SCANCODE_PAGEUP, 0, VK_PRIOR},
    {SDL_SCANCODE_END, 0, VK_END},
    {SDL_SCANCODE_PAGEDOWN, 0, VK_NEXT},
    {SDL_SCANCODE_RIGHT, 0, VK_RIGHT},
    {SDL_SCANCODE_LEFT, 0, VK_LEFT},
    {SDL_SCANCODE_DOWN, 0, VK_DOWN},
    {SDL_SCANCODE_UP, 0, VK_UP},
    {SDL_SCANCODE_NUMLOCKCLEAR, 0, VK_NUMLOCK},
    {SDL_SCANCODE_KP_DIVIDE, 0, VK_DIVIDE},
    {SDL_SCANCODE_KP_MULTIPLY, 0, VK_MULTIPLY},
    {SDL_SCANCODE_KP_MINUS, 0, VK_SUBTRACT},
    {SDL_SCANCODE_KP_PLUS, 0, VK_ADD},
    {SDL_SCANCODE_KP_ENTER, 0, VK_RETURN},
    {SDL_SCANCODE_KP_0, 0, VK_NUMPAD0},
    {SDL_SCANCODE_KP_PERIOD, 0, VK_DECIMAL},
    {SDL_SCANCODE_KP_COMMA, 0, VK_SEPARATOR},
    {SDL_SCANCODE_KP_EQUALS, 0, VK_OEM_PLUS},
    {SDL_SCANCODE_APPLICATION, 0, VK_APPS},
    {SDL_SCANCODE_MENU, 0, VK_APPS},
    {SDL_SCANCODE_EXECUTE, 0, VK_EXECUTE},
    {SDL_SCANCODE_HELP, 0, VK_HELP},
    {SDL_SCANCODE_SELECT, 0, VK_SELECT},
    {SDL_SCANCODE_CANCEL, 0, VK_CANCEL},
    {SDL_SCANCODE_CLEAR, 0, VK_CLEAR},
    {SDL_SCANCODE_SLEEP, 0, VK_SLEEP},
    {SDL_SCANCODE_LSHIFT, 0, VK_LSHIFT},
    {SDL_SCANCODE_RSHIFT, 0, VK_RSHIFT},
    {SDL_SCANCODE_LCTRL, 0, VK_LCONTROL},
    {SDL_SCANCODE_RCTRL, 0, VK_RCONTROL},
    {SDL_SCANCODE_LALT, 0, VK_LMENU},
    {SDL_SCANCODE_RALT, 0, VK_RMENU},
    {SDL_SCANCODE_LGUI, 0, VK_LWIN},
    {SDL_SCANCODE_RGUI, 0, VK_RWIN},
    {SDL_SCANCODE_MUTE, 0, VK_VOLUME_MUTE},
    {SDL_SCANCODE_AUDIOMUTE, 0, VK_VOLUME_MUTE},
    {SDL_SCANCODE_VOLUMEDOWN, 0, VK_VOLUME_DOWN},
    {SDL_SCANCODE_VOLUMEUP, 0, VK_VOLUME_UP},
    {SDL_SCANCODE_AUDIONEXT, 0, VK_MEDIA_NEXT_TRACK},
    {SDL_SCANCODE_AUDIOPREV, 0, VK_MEDIA_PREV_TRACK},
    {SDL_SCANCODE_AUDIOSTOP, 0, VK_MEDIA_STOP},
    {SDL_SCANCODE_AUDIOPLAY, 0, VK_MEDIA_PLAY_PAUSE},
    {SDL_SCANCODE_MEDIASELECT, 0, VK_LAUNCH_MEDIA_SELECT},
    {SDL_SCANCODE_MAIL, 0, VK_LAUNCH_MAIL},
    {SDL_SCANCODE_COMPUTER, 0, VK_LAUNCH_APP1},
    {SDL_SCANCODE_APP1, 0, VK_LAUNCH_APP1},
    {SDL_SCANCODE_CALCULATOR, 0, VK_LAUNCH_APP2},
    {SDL_SCANCODE_APP2, 0, VK_LAUNCH_APP2},
    {SDL_SCANCODE_WWW, 0, VK_BROWSER_HOME},
    {SDL_SCANCODE_AC_HOME, 0, VK_BROWSER_HOME},
    {SDL_SCANCODE_AC_SEARCH, 0, VK_BROWSER_SEARCH},
    {SDL_SCANCODE_AC_BACK, 0, VK_BROWSER_BACK},
    {SDL_SCANCODE_AC_FORWARD, 0, VK_BROWSER_FORWARD},
    {SDL_SCANCODE_AC_STOP, 0, VK_BROWSER_STOP},
    {SDL_SCANCODE_AC_REFRESH, 0, VK_BROWSER_REFRESH},
    {SDL_SCANCODE_AC_BOOKMARKS, 0, VK_BROWSER_FAVORITES},
};

constexpr bool IsBetween(int value, int first, int last) { return value >= first && value <= last; }

int KeyOfCharacter(std::int32_t character) {
    if (IsBetween(character, SDLK_a, SDLK_z)) return 'A' + character - SDLK_a;
    if (IsBetween(character, SDLK_0, SDLK_9)) return '0' + character - SDLK_0;
    if (character == '+') character = '='; // one key on an American keyboard
    for (const Key& key : keys) {
        if (key.character != 0 && key.character == character) return key.virtualKey;
    }
    return 0;
}

/// What an American keyboard has at `place`.
int KeyAt(int place) {
    if (IsBetween(place, SDL_SCANCODE_A, SDL_SCANCODE_Z)) return 'A' + place - SDL_SCANCODE_A;
    if (IsBetween(place, SDL_SCANCODE_1, SDL_SCANCODE_9)) return '1' + place - SDL_SCANCODE_1;
    if (place == SDL_SCANCODE_0) return '0';
    if (IsBetween(place, SDL_SCANCODE_F1, SDL_SCANCODE_F12)) return VK_F1 + place - SDL_SCANCODE_F1;
    if (IsBetween(place, SDL_SCANCODE_F13, SDL_SCANCODE_F24)) return VK_F1 + 12 + place - SDL_SCANCODE_F13;
    if (IsBetween(place, SDL_SCANCODE_KP_1, SDL_SCANCODE_KP_9)) return VK_NUMPAD0 + 1 + place - SDL_SCANCODE_KP_1;
    for (const Key& key : keys) {
        if (key.place == place) return key.virtualKey;
    }
    return 0;
}
} // namespace

int VirtualKeyOf(std::int32_t keycode, int scancode) {
    const bool isOnPad = IsBetween(scancode, SDL_SCANCODE_KP_DIVIDE, SDL_SCANCODE_KP_PERIOD);
    if (isOnPad || scancode == SDL_SCANCODE_KP_COMMA || scancode == SDL_SCANCODE_KP_EQUALS) return KeyAt(scancode);
    if ((keycode & SDLK_SCANCODE_MASK) != 0) return KeyAt(keycode & ~SDLK_SCANCODE_MASK);
    const int virtualKey = KeyOfCharacter(keycode);
    const bool isPunctuation = virtualKey >= VK_OEM_1;
    if (virtualKey != 0 && !isPunctuation) return virtualKey;
    if (IsBetween(scancode, SDL_SCANCODE_1, SDL_SCANCODE_0)) return KeyAt(scancode);
    if (isPunctuation) return virtualKey;
    const bool isLatin = keycode < 0x80;
    return isLatin && IsBetween(scancode, SDL_SCANCODE_A, SDL_SCANCODE_Z) ? 0 : KeyAt(scancode);
}

} // namespace platform
