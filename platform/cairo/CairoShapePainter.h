#pragma once

#include "platform/cairo/CairoSurface.h"
#include "platform/core/canvas/ShapePainter.h"

#include <memory>

namespace platform {

class CairoShapePainter final : public ShapePainter {
public:
    /// Null if the library cannot paint into the frame, which it borrows.
    static std::unique_ptr<ShapePainter> Make(const FrameMemory& frame);

    explicit CairoShapePainter(const FrameMemory& frame) : surface(frame) {}
    void Fill(const Path& path, const Paint& paint) override;
    void Stroke(const Path& path, const Paint& paint, float width, const D2D1_MATRIX_3X2_F& pen) override;

private:
    CairoSurface surface;
};

} // namespace platform
