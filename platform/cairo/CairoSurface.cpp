#include "platform/cairo/CairoSurface.h"

#include "platform/core/canvas/FrameMemory.h"

#include <cairo.h>

namespace platform {

void CairoDeleter::operator()(_cairo* contextPtr) const { cairo_destroy(contextPtr); }
void CairoDeleter::operator()(_cairo_surface* surfacePtr) const { cairo_surface_destroy(surfacePtr); }

CairoSurface::CairoSurface(const FrameMemory& frame)
    : surfacePtr(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(frame.pixels.get()),
                                                     CAIRO_FORMAT_ARGB32, frame.width, frame.height,
                                                     frame.stride * static_cast<int>(sizeof(std::uint32_t)))) {}

bool CairoSurface::IsReady() const { return cairo_surface_status(surfacePtr.get()) == CAIRO_STATUS_SUCCESS; }

ContextPtr CairoSurface::Begin(const Paint& paint) const {
    cairo_surface_mark_dirty(surfacePtr.get()); // others have painted into the frame
    ContextPtr contextPtr(cairo_create(surfacePtr.get()));
    cairo_set_antialias(contextPtr.get(), paint.isSmooth ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    const auto channel = [&paint](int shift) { return (paint.color >> shift & 255) / 255.0; };
    cairo_set_source_rgba(contextPtr.get(), channel(16), channel(8), channel(0), channel(24));
    return contextPtr;
}

void CairoSurface::SetTransform(_cairo* contextPtr, const D2D1_MATRIX_3X2_F& transform) {
    const cairo_matrix_t matrix = {transform.m11, transform.m12, transform.m21,
                                   transform.m22, transform.dx,  transform.dy};
    cairo_set_matrix(contextPtr, &matrix);
}

} // namespace platform
