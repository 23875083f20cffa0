#include "platform/core/controls/Control.h"

#include "platform/Desktop.h"
#include "platform/core/controls/ButtonControl.h"
#include "platform/core/controls/EditControl.h"
#include "platform/core/controls/Theme.h"

namespace platform {

namespace {
LRESULT ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return static_cast<Control*>(window)->Handle(message, wParam, lParam);
}
} // namespace

Control::Control(const Window& description) : Window(description) {
    if (procedure == nullptr) procedure = ControlProcedure;
}

LRESULT Control::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS || message == WM_CAPTURECHANGED) Invalidate();
    return Desktop::Current().DefaultWindowProcedure(this, message, wParam, lParam);
}

bool Control::HasFocus() const { return Desktop::Current().GetFocus() == this; }

bool Control::HasCapture() const { return Desktop::Current().GetCapture() == this; }

bool Control::IsHovered() const { return Desktop::Current().HoveredControl() == this; }

D2D1_RECT_F Control::Bounds() const {
    return {static_cast<float>(bounds.left), static_cast<float>(bounds.top), static_cast<float>(bounds.right),
            static_cast<float>(bounds.bottom)};
}

bool Control::Holds(POINT point) const {
    return point.x >= 0 && point.y >= 0 && point.x < bounds.right - bounds.left && point.y < bounds.bottom - bounds.top;
}

ControlLook Control::AskForLook(UINT message) {
    ControlLook look;
    look.textColor = theme::ink;
    look.backColor = theme::paper;
    ControlLook answer = look;
    const auto parameter = reinterpret_cast<WPARAM>(&answer);
    const LRESULT isAnswered =
        Desktop::Current().SendMessage(parentPtr, message, parameter, reinterpret_cast<LPARAM>(this));
    return isAnswered != 0 ? answer : look;
}

const TextLine& Control::LaidOutText(const ControlLook& look) {
    const bool isNew = !linePtr || laidOutText != text || laidOutFontPtr != look.fontPtr;
    if (!isNew) return *linePtr;
    laidOutText = text;
    laidOutFontPtr = look.fontPtr;
    linePtr = look.fontPtr ? MakeTextLine(text, *look.fontPtr) : MakeTextLine(text, *CreateControlFont({}));
    return *linePtr;
}

void Control::Invalidate() { Desktop::Current().InvalidateWindow(this); }

std::unique_ptr<Control> MakeControl(const Window& description) {
    if (description.className == L"BUTTON") return std::make_unique<ButtonControl>(description);
    if (description.className == L"EDIT") return std::make_unique<EditControl>(description);
    return nullptr;
}

} // namespace platform
