#pragma once

#include "platform/Types.h"
#include "platform/core/canvas/Path.h"

#include <cstdint>

namespace platform {

/// How a shape or a text is painted over what is in the frame.
struct Paint {
    std::uint32_t color = 0xFF000000U; ///< 0xAARRGGBB, not premultiplied
    bool isSmooth = false;             ///< else every pixel is covered wholly or not at all
};

/// Paints paths over the frame that it was made for. A library of paths stands behind it.
class ShapePainter {
public:
    virtual ~ShapePainter() = default;
    /// By the even-odd rule; open figures are closed.
    virtual void Fill(const Path& path, const Paint& paint) = 0;
    /// A line of `width` before `pen` transforms it; the path itself is in frame pixels already. `width` is positive
    /// and finite, and `pen` can be inverted.
    virtual void Stroke(const Path& path, const Paint& paint, float width, const D2D1_MATRIX_3X2_F& pen) = 0;
};

} // namespace platform
