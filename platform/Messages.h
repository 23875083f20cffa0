#pragma once

// The window messages that programs on this layer send, receive and answer, with their parameters.

#include "platform/Types.h"

constexpr UINT WM_NULL = 0x0000;      ///< nothing happened; wakes a waiting message loop
constexpr UINT WM_CREATE = 0x0001;    ///< sent while the window is being made
constexpr UINT WM_DESTROY = 0x0002;   ///< the window goes away
constexpr UINT WM_SIZE = 0x0005;      ///< wParam: one of the SIZE_ codes
constexpr UINT WM_ACTIVATE = 0x0006;  ///< wParam: WA_INACTIVE, WA_ACTIVE or WA_CLICKACTIVE
constexpr UINT WM_SETFOCUS = 0x0007;  ///< a child window receives the keyboard
constexpr UINT WM_KILLFOCUS = 0x0008; ///< a child window loses the keyboard
constexpr UINT WM_SETTEXT = 0x000C;   ///< the program has given the control another text
constexpr UINT WM_PAINT = 0x000F;     ///< part of the window wants to be painted
constexpr UINT WM_CLOSE = 0x0010;     ///< the user asks to close the window
constexpr UINT WM_QUIT = 0x0012;      ///< ends the message loop; wParam: exit code
constexpr UINT WM_KEYDOWN = 0x0100; ///< wParam: virtual-key code; lParam: the MK_ flags of Shift and Ctrl at that time
constexpr UINT WM_KEYUP = 0x0101;   ///< wParam: virtual-key code
constexpr UINT WM_CHAR = 0x0102;    ///< wParam: a Unicode code point that was typed
constexpr UINT WM_SYSCOMMAND = 0x0112; ///< wParam: SC_KEYMENU or SC_CLOSE
constexpr UINT WM_CTLCOLOREDIT =
    0x0133; ///< a text control asks for its look; wParam: a ControlLook; lParam: the control
constexpr UINT WM_CTLCOLORBTN = 0x0135; ///< a button asks for its look; parameters as WM_CTLCOLOREDIT
constexpr UINT WM_MOUSEMOVE = 0x0200;   ///< lParam: x in the low 16 bits, y in the next; wParam: MK_ flags
constexpr UINT WM_LBUTTONDOWN = 0x0201; ///< parameters as WM_MOUSEMOVE, as the four below
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_CAPTURECHANGED = 0x0215; ///< the mouse does not go to this control any more wherever it is
constexpr UINT WM_ENTERSIZEMOVE = 0x0231;  ///< the user begins to move or size the window
constexpr UINT WM_EXITSIZEMOVE = 0x0232;   ///< and has finished
constexpr UINT MM_MCINOTIFY = 0x03B9;      ///< a playback ended; wParam: one of the MCI_NOTIFY_ codes

constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MINIMIZED = 1;
constexpr WPARAM SIZE_MAXIMIZED = 2;

constexpr WPARAM WA_INACTIVE = 0;
constexpr WPARAM WA_ACTIVE = 1;
constexpr WPARAM WA_CLICKACTIVE = 2;

constexpr WPARAM SC_CLOSE = 0xF060;
constexpr WPARAM SC_KEYMENU = 0xF100;

constexpr WPARAM MK_LBUTTON = 0x0001;
constexpr WPARAM MK_RBUTTON = 0x0002;
constexpr WPARAM MK_SHIFT = 0x0004;
constexpr WPARAM MK_CONTROL = 0x0008;

constexpr WPARAM MCI_NOTIFY_SUCCESSFUL = 1;
constexpr WPARAM MCI_NOTIFY_SUPERSEDED = 2;
constexpr WPARAM MCI_NOTIFY_ABORTED = 4;
constexpr WPARAM MCI_NOTIFY_FAILURE = 8;

constexpr DWORD WS_POPUP = 0x80000000U;
constexpr DWORD WS_CHILD = 0x40000000U;
constexpr DWORD WS_VISIBLE = 0x10000000U;
constexpr DWORD WS_CLIPSIBLINGS = 0x04000000U;
constexpr DWORD WS_CLIPCHILDREN = 0x02000000U;
constexpr DWORD WS_CAPTION = 0x00C00000U;
constexpr DWORD WS_BORDER = 0x00800000U;
constexpr DWORD WS_SYSMENU = 0x00080000U;
constexpr DWORD WS_TABSTOP = 0x00010000U;

namespace platform {
/// Two signed numbers of 16 bits in one parameter, as the mouse and size messages carry them.
constexpr LPARAM PackPoint(POINT point) {
    return static_cast<LPARAM>((static_cast<std::uint32_t>(point.y) & 0xFFFF) << 16 |
                               (static_cast<std::uint32_t>(point.x) & 0xFFFF));
}
constexpr POINT UnpackPoint(LPARAM parameter) {
    return {static_cast<std::int16_t>(parameter & 0xFFFF), static_cast<std::int16_t>(parameter >> 16 & 0xFFFF)};
}
} // namespace platform

/// Virtual-key codes beyond letters and digits, which are their upper-case characters. Those named OEM are punctuation:
/// plus, comma, minus and period are the keys of these characters on every layout; of the others the comment says what
/// an American keyboard has there.
enum VirtualKey : int {
    VK_CANCEL = 3,
    VK_BACK = 8,
    VK_TAB = 9,
    VK_CLEAR = 12,
    VK_RETURN = 13,
    VK_SHIFT = 16,   ///< either Shift key; messages know only this code
    VK_CONTROL = 17, ///< likewise
    VK_MENU = 18,    ///< either Alt key, likewise
    VK_PAUSE = 19,
    VK_CAPITAL = 20, ///< Caps Lock
    VK_KANA = 21,    ///< on a Korean keyboard Hangul
    VK_KANJI = 25,   ///< on a Korean keyboard Hanja
    VK_ESCAPE = 27,
    VK_CONVERT = 28,
    VK_NONCONVERT = 29,
    VK_MODECHANGE = 31,
    VK_SPACE = 32,
    VK_PRIOR = 33, ///< Page Up
    VK_NEXT = 34,  ///< Page Down
    VK_END = 35,
    VK_HOME = 36,
    VK_LEFT = 37,
    VK_UP = 38,
    VK_RIGHT = 39,
    VK_DOWN = 40,
    VK_SELECT = 41,
    VK_EXECUTE = 43,
    VK_SNAPSHOT = 44, ///< Print Screen
    VK_INSERT = 45,
    VK_DELETE = 46,
    VK_HELP = 47,
    VK_LWIN = 91,
    VK_RWIN = 92,
    VK_APPS = 93, ///< the key that opens a context menu
    VK_SLEEP = 95,
    VK_NUMPAD0 = 96, ///< to VK_NUMPAD0 + 9
    VK_MULTIPLY = 106,
    VK_ADD = 107,
    VK_SEPARATOR = 108,
    VK_SUBTRACT = 109,
    VK_DECIMAL = 110,
    VK_DIVIDE = 111,
    VK_F1 = 112, ///< to VK_F1 + 23
    VK_F10 = 121,
    VK_NUMLOCK = 144,
    VK_SCROLL = 145, ///< Scroll Lock
    VK_LSHIFT = 160, ///< the keys of one side are asked for, never sent
    VK_RSHIFT = 161,
    VK_LCONTROL = 162,
    VK_RCONTROL = 163,
    VK_LMENU = 164,
    VK_RMENU = 165,
    VK_BROWSER_BACK = 166,
    VK_BROWSER_FORWARD = 167,
    VK_BROWSER_REFRESH = 168,
    VK_BROWSER_STOP = 169,
    VK_BROWSER_SEARCH = 170,
    VK_BROWSER_FAVORITES = 171,
    VK_BROWSER_HOME = 172,
    VK_VOLUME_MUTE = 173,
    VK_VOLUME_DOWN = 174,
    VK_VOLUME_UP = 175,
    VK_MEDIA_NEXT_TRACK = 176,
    VK_MEDIA_PREV_TRACK = 177,
    VK_MEDIA_STOP = 178,
    VK_MEDIA_PLAY_PAUSE = 179,
    VK_LAUNCH_MAIL = 180,
    VK_LAUNCH_MEDIA_SELECT = 181,
    VK_LAUNCH_APP1 = 182,
    VK_LAUNCH_APP2 = 183,
    VK_OEM_1 = 186, ///< ;
    VK_OEM_PLUS = 187,
    VK_OEM_COMMA = 188,
    VK_OEM_MINUS = 189,
    VK_OEM_PERIOD = 190,
    VK_OEM_2 = 191,   ///< /
    VK_OEM_3 = 192,   ///< `
    VK_OEM_4 = 219,   ///< [
    VK_OEM_5 = 220,   ///< backslash
    VK_OEM_6 = 221,   ///< ]
    VK_OEM_7 = 222,   ///< '
    VK_OEM_102 = 226, ///< beside the left Shift, on keyboards that have a key there
};

namespace platform {
/// The code that messages have for a key: that of either side for VK_LSHIFT to VK_RMENU, `virtualKey` for the others.
constexpr int MessageKey(int virtualKey) {
    const bool hasSide = virtualKey >= VK_LSHIFT && virtualKey <= VK_RMENU;
    return hasSide ? VK_SHIFT + (virtualKey - VK_LSHIFT) / 2 : virtualKey;
}
} // namespace platform
