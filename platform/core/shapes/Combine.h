#pragma once

// Boolean operations on the areas of two outlines.

#include "platform/core/shapes/Outline.h"
#include "platform/core/shapes/Polygon.h"

namespace platform {

/// Writes the combination of both areas to `sink` as closed figures of lines: solids clockwise on screen, holes the
/// other way. Points lie on a grid finer than single precision; whole numbers stay exact. Fails if `combine` gives up.
HRESULT Combine(PolygonCombiner& combine, const Outline& first, const Outline& second, D2D1_COMBINE_MODE mode,
                double tolerance, ID2D1SimplifiedGeometrySink& sink);

/// How `first` relates to `second`. Areas that only touch are disjoint; equal ones count as contained. Overlaps much
/// thinner than `tolerance` are taken for rounding.
HRESULT Compare(PolygonCombiner& combine, const Outline& first, const Outline& second, double tolerance,
                D2D1_GEOMETRY_RELATION& relation);

} // namespace platform
