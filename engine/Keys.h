#pragma once

// The keys of the keyboard, for GameEngine::IsKeyDown and SetKeyList: VirtualKey names them (VK_LEFT, VK_SPACE, ...). A
// letter or digit is its upper-case character, a digit of the keypad VK_NUMPAD0 plus that digit.

#include "platform/Messages.h" // IWYU pragma: export
