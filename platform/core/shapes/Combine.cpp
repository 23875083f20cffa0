#include "platform/core/shapes/Combine.h"

#include <polyclipping/clipper.hpp>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

/// The whole numbers that two areas are measured in.
class Grid {
public:
    /// One unit is the power of two that brings the largest coordinate just within the range in which the library needs
    /// no wide numbers. Its 29 bits are more than single precision has, whatever the size of the shapes.
    Grid(const Outline& first, const Outline& second) {
        double largest = 0.0;
        for (const Outline* outlinePtr : {&first, &second}) {
            const D2D1_RECT_F bounds = Bounds(*outlinePtr);
            if (bounds.left > bounds.right) continue;
            for (const float side : {bounds.left, bounds.top, bounds.right, bounds.bottom})
                largest = std::max(largest, std::abs(static_cast<double>(side)));
        }
        if (largest > 0.0) scale = std::ldexp(1.0, 28 - std::ilogb(largest));
    }

    Paths ToPaths(const Outline& outline, double tolerance) const {
        Paths paths;
        for (const Figure& figure : outline) {
            if (!HasArea(figure)) continue;
            Path& path = paths.emplace_back();
            Flatten(figure, tolerance, [&](Vector point) {
                path.emplace_back(std::llround(point.x * scale), std::llround(point.y * scale));
            });
        }
        return paths;
    }

    Vector ToPoint(IntPoint point) const {
        return {static_cast<double>(point.X) / scale, static_cast<double>(point.Y) / scale};
    }

    /// Whether any of the areas is wider than `width`, which is in the outline's own units.
    bool IsAnyWider(const Paths& paths, double width) const {
        return std::any_of(paths.begin(), paths.end(), [&](const Path& path) {
            double perimeter = 0.0;
            for (std::size_t i = 0; i < path.size(); ++i)
                perimeter += Length(ToPoint(path[i]) - ToPoint(path[(i + 1) % path.size()]));
            return 2.0 * std::abs(ClipperLib::Area(path)) / scale / scale > width * perimeter;
        });
    }

private:
    double scale = 1.0;
};

bool Execute(const Paths& subject, const Paths& clip, ClipperLib::ClipType type, Paths& result) try {
    ClipperLib::Clipper clipper;
    clipper.AddPaths(subject, ClipperLib::ptSubject, true);
    clipper.AddPaths(clip, ClipperLib::ptClip, true);
    return clipper.Execute(type, result, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
} catch (const ClipperLib::clipperException&) { return false; }

ClipperLib::ClipType ClipTypeOf(D2D1_COMBINE_MODE mode) {
    switch (mode) {
    case D2D1_COMBINE_MODE_UNION: return ClipperLib::ctUnion;
    case D2D1_COMBINE_MODE_INTERSECT: return ClipperLib::ctIntersection;
    case D2D1_COMBINE_MODE_XOR: return ClipperLib::ctXor;
    case D2D1_COMBINE_MODE_EXCLUDE: break;
    }
    return ClipperLib::ctDifference;
}

} // namespace

HRESULT Combine(const Outline& first, const Outline& second, D2D1_COMBINE_MODE mode, double tolerance,
                ID2D1SimplifiedGeometrySink& sink) {
    const Grid grid(first, second);
    Paths result;
    if (!Execute(grid.ToPaths(first, tolerance), grid.ToPaths(second, tolerance), ClipTypeOf(mode), result))
        return E_FAIL;

    sink.SetFillMode(D2D1_FILL_MODE_ALTERNATE);
    std::vector<D2D1_POINT_2F> points;
    for (const Path& path : result) {
        points.clear();
        for (const IntPoint point : path) points.push_back(grid.ToPoint(point).ToPoint2F());
        sink.BeginFigure(points.front(), D2D1_FIGURE_BEGIN_FILLED);
        sink.AddLines(points.data() + 1, static_cast<UINT>(points.size() - 1));
        sink.EndFigure(D2D1_FIGURE_END_CLOSED);
    }
    return S_OK;
}

HRESULT Compare(const Outline& first, const Outline& second, double tolerance, D2D1_GEOMETRY_RELATION& relation) {
    const Grid grid(first, second);
    const Paths firstPaths = grid.ToPaths(first, tolerance);
    const Paths secondPaths = grid.ToPaths(second, tolerance);
    Paths common;
    Paths onlyFirst;
    Paths onlySecond;
    relation = D2D1_GEOMETRY_RELATION_UNKNOWN;
    if (!Execute(firstPaths, secondPaths, ClipperLib::ctIntersection, common) ||
        !Execute(firstPaths, secondPaths, ClipperLib::ctDifference, onlyFirst) ||
        !Execute(secondPaths, firstPaths, ClipperLib::ctDifference, onlySecond))
        return E_FAIL;

    const double rounding = tolerance / 64.0;
    if (!grid.IsAnyWider(common, rounding))
        relation = D2D1_GEOMETRY_RELATION_DISJOINT;
    else if (!grid.IsAnyWider(onlyFirst, rounding))
        relation = D2D1_GEOMETRY_RELATION_IS_CONTAINED;
    else if (!grid.IsAnyWider(onlySecond, rounding))
        relation = D2D1_GEOMETRY_RELATION_CONTAINS;
    else
        relation = D2D1_GEOMETRY_RELATION_OVERLAP;
    return S_OK;
}

} // namespace platform
