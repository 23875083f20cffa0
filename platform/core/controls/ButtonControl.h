#pragma once

#include "platform/core/controls/Control.h"

namespace platform {

/// A push button. Pressing it takes the focus and holds the mouse until the release; Space presses it too. What a click
/// does is up to the program's procedure.
class ButtonControl final : public Control {
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Paint(ID2D1HwndRenderTarget& canvas) override;

private:
    bool IsPressed() const;

    bool spaceIsDown = false;
};

} // namespace platform
