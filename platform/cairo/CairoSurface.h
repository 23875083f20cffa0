#pragma once

#include "platform/core/canvas/ShapePainter.h"

#include <memory>

struct _cairo;
struct _cairo_surface;

namespace platform {

struct FrameMemory;

struct CairoDeleter {
    void operator()(_cairo* contextPtr) const;
    void operator()(_cairo_surface* surfacePtr) const;
};
using ContextPtr = std::unique_ptr<_cairo, CairoDeleter>;

/// A frame as the library of paths sees it.
class CairoSurface {
public:
    /// Borrows the frame.
    explicit CairoSurface(const FrameMemory& frame);

    bool IsReady() const;
    /// A fresh context for every shape: one that met an error would refuse everything after it.
    ContextPtr Begin(const Paint& paint) const;
    /// What follows is given in coordinates before `transform`.
    static void SetTransform(_cairo* contextPtr, const D2D1_MATRIX_3X2_F& transform);

private:
    std::unique_ptr<_cairo_surface, CairoDeleter> surfacePtr;
};

} // namespace platform
