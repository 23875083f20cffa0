#pragma once

#include "platform/Text.h"
#include "platform/Types.h"

#include <memory>
#include <string_view>

struct _cairo; // a drawing context, made by whoever paints

namespace platform {

/// Lays text out and paints it. The text library and the system's fonts are not touched before the first Draw. The last
/// few texts are kept laid out, since most texts are drawn again in the next frame.
class TextPainter {
public:
    TextPainter();
    ~TextPainter();

    /// Draws with the context's current colour. The box is in the context's coordinates.
    void Draw(_cairo* contextPtr, std::wstring_view text, const IDWriteTextFormat& format, D2D1_RECT_F box);
    /// Draws the part of the line that is inside `clip`; its top left corner is at `origin`.
    void Draw(_cairo* contextPtr, const TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip);

private:
    class Layouts;
    std::unique_ptr<Layouts> layoutsPtr;
};

} // namespace platform
