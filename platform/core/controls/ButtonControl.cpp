#include "platform/core/controls/ButtonControl.h"

#include "platform/Desktop.h"
#include "platform/core/controls/Theme.h"

#include <algorithm>
#include <cmath>

namespace platform {

LRESULT ButtonControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    Desktop& desktop = Desktop::Current();
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        desktop.SetFocus(this);
        desktop.SetCapture(this);
        break;
    case WM_LBUTTONUP:
        if (HasCapture()) desktop.ReleaseCapture();
        break;
    case WM_KEYDOWN:
        if (wParam == VK_SPACE) spaceIsDown = true;
        break;
    case WM_KEYUP:
        if (wParam == VK_SPACE) spaceIsDown = false;
        break;
    case WM_KILLFOCUS: spaceIsDown = false; break;
    default: return Control::Handle(message, wParam, lParam);
    }
    Invalidate();
    return 0;
}

bool ButtonControl::IsPressed() const { return spaceIsDown || (HasCapture() && IsHovered()); }

void ButtonControl::Paint(ID2D1HwndRenderTarget& canvas) {
    ControlLook look = AskForLook(WM_CTLCOLORBTN);
    const D2D1_RECT_F outer = Bounds();
    D2D1_COLOR_F face = theme::face;
    D2D1_COLOR_F border = theme::border;
    if (!enabled) {
        face = theme::faceDisabled;
        border = theme::borderDisabled;
        look.textColor = theme::inkDisabled;
    } else if (IsPressed()) {
        face = theme::facePressed;
        border = theme::borderPressed;
    } else if (IsHovered() && Desktop::Current().GetCapture() == nullptr) {
        face = theme::faceHovered;
        border = theme::borderHovered;
    }

    if (HasFocus()) {
        const D2D1_RECT_F ring = theme::Grown(outer, theme::ringWidth + 1.0F);
        theme::Outline(canvas, ring, theme::accent, theme::ringWidth, theme::radius + theme::ringWidth + 1.0F);
    } else if (enabled && !IsPressed()) {
        theme::Fill(canvas, {outer.left, outer.top + 1.0F, outer.right, outer.bottom + 1.0F}, theme::shadow);
    }
    theme::Fill(canvas, outer, face);
    theme::Outline(canvas, outer, border);

    const TextLine& line = LaidOutText(look);
    const D2D1_RECT_F inside = theme::Grown(outer, -2.0F);
    // whole pixels: letters at fractions of one look blurred; a label that does not fit begins at the left edge
    const float left = std::max(inside.left + 2.0F, std::round((outer.left + outer.right - line.Width()) / 2.0F));
    const float top = std::round((outer.top + outer.bottom - line.Height()) / 2.0F);
    ID2D1SolidColorBrush brush;
    brush.SetColor(look.textColor);
    canvas.DrawTextLine(line, {left, top}, inside, brush);
}

} // namespace platform
