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

/// Virtual-key codes beyond letters and digits, which are their upper-case characters.
enum VirtualKey : int {
    VK_BACK = 8,
    VK_TAB = 9,
    VK_RETURN = 13,
    VK_SHIFT = 16,
    VK_CONTROL = 17,
    VK_MENU = 18,
    VK_ESCAPE = 27,
    VK_SPACE = 32,
    VK_END = 35,
    VK_HOME = 36,
    VK_LEFT = 37,
    VK_UP = 38,
    VK_RIGHT = 39,
    VK_DOWN = 40,
    VK_DELETE = 46,
    VK_NUMPAD0 = 96, ///< to VK_NUMPAD0 + 9
    VK_F10 = 121,
};
