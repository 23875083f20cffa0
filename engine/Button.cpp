#include "engine/Button.h"

#include "platform/Messages.h"

#include <utility>

LRESULT Button::HandleEvent(UINT message, WPARAM wParam, LPARAM lParam) {
    bool isClicked = false;
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: isArmed = true; break;
    case WM_LBUTTONUP: isClicked = std::exchange(isArmed, false) && IsInside(platform::UnpackPoint(lParam)); break;
    case WM_CAPTURECHANGED: isArmed = false; break; // the mouse was taken away before it was released
    case WM_KEYDOWN: isClicked = wParam == VK_SPACE; break;
    default: break;
    }
    // The listeners come last: one of them may delete the button.
    const LRESULT result = Control::HandleEvent(message, wParam, lParam);
    if (isClicked) CallListeners();
    return result;
}
