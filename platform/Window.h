#pragma once

#include "platform/Types.h"

#include <string>

/// Answers the messages of a window.
using WNDPROC = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

namespace platform {

/// One window of a desktop: the program's main window, one of its child controls, or a hidden one that only receives
/// messages. Plain state; the desktop that made it owns it and keeps it true.
class Window {
public:
    virtual ~Window() = default;

    WNDPROC procedure = nullptr;
    void* userData = nullptr; ///< whatever the window's maker wants to find again
    std::wstring className;   ///< "BUTTON" and "EDIT" are the desktop's own controls, "STATIC" is a hidden window
    std::wstring text;        ///< the title of a main window, the text of a control
    DWORD style = 0;
    Window* parentPtr = nullptr; ///< null: not a child
    RECT bounds;                 ///< outer rectangle; screen pixels, of a child the parent's client pixels
    WORD iconId = 0;             ///< program resource of type "ICON"
    WORD smallIconId = 0;
    bool visible = false;
    bool enabled = true;
    bool needsPaint = false;
};

} // namespace platform
