#include "engine/Control.h"

#include "engine/GameEngine.h"
#include "engine/String.h"
#include "platform/ControlLook.h"
#include "platform/Desktop.h"

#include <algorithm>

using platform::Desktop;

namespace {
constexpr int farthest = 32767; // pixels; the mouse's coordinates end there
constexpr std::size_t longestFontName = 31;
} // namespace

Control::Control(wchar_t const* className, String const& text) {
    platform::Window description;
    description.className = className;
    description.text = text.C_str();
    description.style = WS_CHILD | WS_CLIPSIBLINGS | WS_BORDER | WS_TABSTOP;
    description.parentPtr = GameEngine::GetSingleton()->GetWindow();
    windowHandle = Desktop::Current().CreateWindow(description);
    windowHandle->userData = this;
    oldWindowProc = windowHandle->procedure;
    windowHandle->procedure = WindowProc;
}

Control::~Control() {
    if (windowHandle == nullptr) return;
    windowHandle->procedure = oldWindowProc;
    Desktop::Current().DestroyWindow(windowHandle);
}

void Control::SetBounds(int x, int y, int width, int height) {
    const auto position = [](int value) { return std::clamp(value, -farthest, farthest); };
    const auto size = [](int value) { return std::clamp(value, 0, farthest); };
    const int left = position(x);
    const int top = position(y);
    Desktop::Current().SetControlBounds(windowHandle, {left, top, left + size(width), top + size(height)});
}

void Control::SetText(String const& text) { Desktop::Current().SetControlText(windowHandle, text.C_str()); }

String Control::GetText() const { return windowHandle == nullptr ? L"" : windowHandle->text.c_str(); }

void Control::SetFont(String const& fontName, bool bold, bool italic, bool underline, int size) {
    const std::wstring_view family = std::wstring_view(fontName.C_str()).substr(0, longestFontName);
    fontPtr = platform::CreateControlFont({family, size, bold, italic, underline});
    Repaint();
}

void Control::SetEnabled(bool enable) { Desktop::Current().EnableControl(windowHandle, enable); }

void Control::Show() { Desktop::Current().ShowWindow(windowHandle, true); }

RECT Control::GetClientRect() const {
    if (windowHandle == nullptr) return {};
    RECT const& bounds = windowHandle->bounds;
    return {0, 0, bounds.right - bounds.left, bounds.bottom - bounds.top};
}

LRESULT Control::HandleEvent(UINT message, WPARAM wParam, LPARAM lParam) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    const auto isKey = [wParam](int virtualKey) { return wParam == static_cast<WPARAM>(virtualKey); };
    switch (message) {
    case WM_KEYDOWN:
        if (isKey(VK_TAB)) {
            const bool backwards = (lParam & MK_SHIFT) != 0;
            backwards ? enginePtr->TabPrevious(windowHandle) : enginePtr->TabNext(windowHandle);
            return 0;
        }
        if (isKey(VK_ESCAPE)) {
            Desktop::Current().SetFocus(enginePtr->GetWindow());
            return 0;
        }
        break;
    case WM_CHAR:
        if (isKey(VK_TAB) || isKey(VK_RETURN)) return 0;
        break;
    case WM_CTLCOLOREDIT: {
        auto& look = *reinterpret_cast<platform::ControlLook*>(wParam);
        look.fontPtr = fontPtr;
        AnswerLook(look);
        return 1;
    }
    case WM_DESTROY: windowHandle = nullptr; return 0;
    default: break;
    }
    return oldWindowProc(windowHandle, message, wParam, lParam);
}

bool Control::IsInside(POINT point) const {
    const RECT area = GetClientRect();
    return point.x >= 0 && point.y >= 0 && point.x < area.right && point.y < area.bottom;
}

void Control::Repaint() { Desktop::Current().InvalidateWindow(windowHandle); }

LRESULT Control::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return static_cast<Control*>(window->userData)->HandleEvent(message, wParam, lParam);
}
