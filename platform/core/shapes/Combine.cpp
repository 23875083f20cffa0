#include "platform/core/shapes/Combine.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

/// Twice the area that the corners run around.
double TwiceArea(const Polygon& polygon) {
    double sum = 0.0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const GridPoint from = polygon[(i + polygon.size() - 1) % polygon.size()];
        const GridPoint to = polygon[i];
        sum += (static_cast<double>(from.x) + static_cast<double>(to.x)) *
               (static_cast<double>(from.y) - static_cast<double>(to.y));
    }
    return std::abs(sum);
}

/// The whole numbers that two areas are measured in.
class Grid {
public:
    /// One unit is the power of two that brings the largest coordinate just within the range in which no product of
    /// two needs wide numbers. Its 29 bits are more than single precision has, whatever the size of the shapes.
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

    Polygons ToPolygons(const Outline& outline, double tolerance) const {
        Polygons polygons;
        for (const Figure& figure : outline) {
            if (!HasArea(figure)) continue;
            Polygon& polygon = polygons.emplace_back();
            Flatten(figure, tolerance, [&](Vector point) {
                polygon.push_back({std::llround(point.x * scale), std::llround(point.y * scale)});
            });
        }
        return polygons;
    }

    Vector ToPoint(GridPoint point) const {
        return {static_cast<double>(point.x) / scale, static_cast<double>(point.y) / scale};
    }

    /// Whether any of the areas is wider than `width`, which is in the outline's own units.
    bool IsAnyWider(const Polygons& polygons, double width) const {
        return std::any_of(polygons.begin(), polygons.end(), [&](const Polygon& polygon) {
            double perimeter = 0.0;
            for (std::size_t i = 0; i < polygon.size(); ++i)
                perimeter += Length(ToPoint(polygon[i]) - ToPoint(polygon[(i + 1) % polygon.size()]));
            return TwiceArea(polygon) / scale / scale > width * perimeter;
        });
    }

private:
    double scale = 1.0;
};

} // namespace

HRESULT Combine(PolygonCombiner& combine, const Outline& first, const Outline& second, D2D1_COMBINE_MODE mode,
                double tolerance, ID2D1SimplifiedGeometrySink& sink) {
    const Grid grid(first, second);
    Polygons result;
    if (!combine(grid.ToPolygons(first, tolerance), grid.ToPolygons(second, tolerance), mode, result)) return E_FAIL;

    sink.SetFillMode(D2D1_FILL_MODE_ALTERNATE);
    std::vector<D2D1_POINT_2F> points;
    for (const Polygon& polygon : result) {
        points.clear();
        for (const GridPoint point : polygon) points.push_back(grid.ToPoint(point).ToPoint2F());
        sink.BeginFigure(points.front(), D2D1_FIGURE_BEGIN_FILLED);
        sink.AddLines(points.data() + 1, static_cast<UINT>(points.size() - 1));
        sink.EndFigure(D2D1_FIGURE_END_CLOSED);
    }
    return S_OK;
}

HRESULT Compare(PolygonCombiner& combine, const Outline& first, const Outline& second, double tolerance,
                D2D1_GEOMETRY_RELATION& relation) {
    const Grid grid(first, second);
    const Polygons firstPolygons = grid.ToPolygons(first, tolerance);
    const Polygons secondPolygons = grid.ToPolygons(second, tolerance);
    Polygons common;
    Polygons onlyFirst;
    Polygons onlySecond;
    relation = D2D1_GEOMETRY_RELATION_UNKNOWN;
    if (!combine(firstPolygons, secondPolygons, D2D1_COMBINE_MODE_INTERSECT, common) ||
        !combine(firstPolygons, secondPolygons, D2D1_COMBINE_MODE_EXCLUDE, onlyFirst) ||
        !combine(secondPolygons, firstPolygons, D2D1_COMBINE_MODE_EXCLUDE, onlySecond))
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
