#pragma once

#include "platform/Canvas.h"
#include "platform/ControlLook.h"
#include "platform/Messages.h"
#include "platform/Window.h"

#include <memory>
#include <string>

namespace platform {

/// A child window that the desktop paints and operates itself. Its procedure, which the program may replace, hands
/// every message to Handle.
class Control : public Window {
public:
    explicit Control(const Window& description);

    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    /// Draws the control at its place in the parent; the canvas has the identity as its transform, and smooth edges.
    virtual void Paint(ID2D1HwndRenderTarget& canvas) = 0;
    bool CanTakeInput() const { return visible && enabled; }

protected:
    bool HasFocus() const;
    bool HasCapture() const;
    bool IsHovered() const;
    /// The place in the parent.
    D2D1_RECT_F Bounds() const;
    bool Holds(POINT point) const;
    /// The desktop's own look, as far as the parent's answer to `message` leaves it.
    ControlLook AskForLook(UINT message);
    /// The control's text laid out in the look's font. Made anew only when one of them has changed.
    const TextLine& LaidOutText(const ControlLook& look);
    void Invalidate();

private:
    std::wstring laidOutText;
    std::shared_ptr<const IDWriteTextFormat> laidOutFontPtr;
    std::unique_ptr<TextLine> linePtr;
};

/// A control of the description's class; null if that is not a control's.
std::unique_ptr<Control> MakeControl(const Window& description);

} // namespace platform
