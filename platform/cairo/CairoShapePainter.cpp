#include "platform/cairo/CairoShapePainter.h"

#include <cairo.h>

namespace platform {

namespace {
/// Takes the steps of a path over into a context.
struct PathCopier {
    cairo_t* contextPtr;
    void MoveTo(Path::Point to) const { cairo_move_to(contextPtr, to.x, to.y); }
    void LineTo(Path::Point to) const { cairo_line_to(contextPtr, to.x, to.y); }
    void CurveTo(Path::Point first, Path::Point second, Path::Point to) const {
        cairo_curve_to(contextPtr, first.x, first.y, second.x, second.y, to.x, to.y);
    }
    void Close() const { cairo_close_path(contextPtr); }
};
} // namespace

std::unique_ptr<ShapePainter> CairoShapePainter::Make(const FrameMemory& frame) {
    auto painterPtr = std::make_unique<CairoShapePainter>(frame);
    return painterPtr->surface.IsReady() ? std::move(painterPtr) : nullptr;
}

void CairoShapePainter::Fill(const Path& path, const Paint& paint) {
    const ContextPtr contextPtr = surface.Begin(paint);
    path.Replay(PathCopier{contextPtr.get()});
    cairo_set_fill_rule(contextPtr.get(), CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(contextPtr.get());
}

void CairoShapePainter::Stroke(const Path& path, const Paint& paint, float width, const D2D1_MATRIX_3X2_F& pen) {
    const ContextPtr contextPtr = surface.Begin(paint);
    path.Replay(PathCopier{contextPtr.get()});
    CairoSurface::SetTransform(contextPtr.get(), pen); // the path stands already; what is left is the pen
    cairo_set_line_width(contextPtr.get(), width);
    cairo_stroke(contextPtr.get());
}

} // namespace platform
