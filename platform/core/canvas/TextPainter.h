#pragma once

#include "platform/Types.h"
#include "platform/core/canvas/ShapePainter.h"

#include <string_view>

namespace platform {

class TextLine;
struct FontChoice;

/// Paints text over the frame that it was made for. Boxes, places and clips are in coordinates before `transform`,
/// which can be inverted, and all numbers are finite. Making one costs nothing: fonts are first looked for at the first
/// text.
class TextPainter {
public:
    virtual ~TextPainter() = default;
    /// Lays the text out in `box`, wrapped at word boundaries and clipped to it.
    virtual void DrawBox(std::wstring_view text, const FontChoice& font, D2D1_RECT_F box, const Paint& paint,
                         const D2D1_MATRIX_3X2_F& transform) = 0;
    /// Draws the part of the line that is inside `clip`, the line's top left corner at `origin`. The line was laid out
    /// by the same back end.
    virtual void DrawLine(const TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip, const Paint& paint,
                          const D2D1_MATRIX_3X2_F& transform) = 0;
};

} // namespace platform
