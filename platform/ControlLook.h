#pragma once

#include "platform/Text.h"
#include "platform/Types.h"

#include <memory>

namespace platform {

/// What a control asks its parent before it paints: wParam of WM_CTLCOLOREDIT and WM_CTLCOLORBTN points at one, filled
/// with the desktop's own look. Whoever answers with anything but 0 may have changed it.
struct ControlLook {
    std::shared_ptr<const IDWriteTextFormat> fontPtr; ///< shared: text stays laid out in it
    D2D1_COLOR_F textColor;
    D2D1_COLOR_F backColor; ///< of text controls
};

} // namespace platform
