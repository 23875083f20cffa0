#include "platform/core/shapes/PathGeometry.h"

#include "platform/core/shapes/Combine.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

double DistanceToLine(Vector point, Vector from, Vector to) {
    const Vector along = to - from;
    const double squaredLength = Dot(along, along);
    const double t = squaredLength > 0.0 ? std::clamp(Dot(point - from, along) / squaredLength, 0.0, 1.0) : 0.0;
    return Length(point - (from + t * along));
}

/// Whether the line from `point` to the right meets the line; its lower end does not count, so that no corner counts
/// twice.
bool IsLeftOfLine(Vector point, Vector from, Vector to) {
    if ((from.y > point.y) == (to.y > point.y)) return false;
    return point.x < from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x);
}

} // namespace

void PathSink::BeginFigure(D2D1_POINT_2F startPoint, D2D1_FIGURE_BEGIN begin) {
    EndFigure(D2D1_FIGURE_END_OPEN);
    outline.push_back({startPoint, begin == D2D1_FIGURE_BEGIN_FILLED, false, {}});
    currentPoint = startPoint;
    isFigureOpen = true;
}

void PathSink::AddLines(const D2D1_POINT_2F* points, UINT count) {
    for (UINT i = 0; i < count; ++i) AddLine(points[i]);
}

void PathSink::AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) {
    for (UINT i = 0; i < count; ++i) AddBezier(beziers[i]);
}

void PathSink::EndFigure(D2D1_FIGURE_END end) {
    if (isFigureOpen) outline.back().closed = end == D2D1_FIGURE_END_CLOSED;
    isFigureOpen = false;
}

HRESULT PathSink::Close() {
    EndFigure(D2D1_FIGURE_END_OPEN);
    if (isClosed || !IsFinite(outline)) return E_FAIL;
    isClosed = true;
    closedOutline = std::move(outline);
    outline.clear();
    return S_OK;
}

void PathSink::AddLine(D2D1_POINT_2F point) { Append(Line{point}); }

void PathSink::AddBezier(const D2D1_BEZIER_SEGMENT& bezier) {
    Append(Cubic{bezier.point1, bezier.point2, bezier.point3});
}

void PathSink::AddQuadraticBezier(const D2D1_QUADRATIC_BEZIER_SEGMENT& bezier) {
    Append(MakeQuadratic(currentPoint, bezier));
}

void PathSink::AddArc(const D2D1_ARC_SEGMENT& arc) {
    if (const std::optional<Segment> segment = MakeArc(currentPoint, arc)) Append(*segment);
}

void PathSink::Append(const Segment& segment) {
    if (!isFigureOpen) return;
    outline.back().segments.push_back(segment);
    currentPoint = EndOf(segment);
}

HRESULT PathGeometry::Open(ID2D1GeometrySink** sinkPtrPtr) {
    if (sinkPtr || outline) return E_FAIL;
    sinkPtr = std::make_unique<PathSink>(outline);
    *sinkPtrPtr = sinkPtr.get();
    return S_OK;
}

HRESULT PathGeometry::GetBounds(D2D1_RECT_F* boundsPtr) const {
    if (!outline) return E_FAIL;
    *boundsPtr = Bounds(*outline);
    return S_OK;
}

HRESULT PathGeometry::FillContainsPoint(D2D1_POINT_2F point, float tolerance, bool* containsPtr) const {
    if (!outline) return E_FAIL;
    bool isInside = false;
    bool isNear = false;
    const auto meet = [&](Vector from, Vector to) {
        isInside ^= IsLeftOfLine(point, from, to);
        isNear |= DistanceToLine(point, from, to) <= tolerance;
    };
    for (const Figure& figure : *outline) {
        if (!HasArea(figure)) continue;
        Vector from = figure.start;
        Flatten(figure, tolerance, [&](Vector to) {
            meet(from, to);
            from = to;
        });
        meet(from, figure.start);
    }
    *containsPtr = isInside || isNear;
    return S_OK;
}

HRESULT PathGeometry::CompareWithGeometry(const ID2D1Geometry& other, float tolerance,
                                          D2D1_GEOMETRY_RELATION* relationPtr) const {
    const std::optional<Outline>& otherOutline = OutlineOf(other);
    if (!outline || !otherOutline) return E_FAIL;
    return Compare(combine, *outline, *otherOutline, tolerance, *relationPtr);
}

HRESULT PathGeometry::CombineWithGeometry(const ID2D1Geometry& other, D2D1_COMBINE_MODE mode, float tolerance,
                                          ID2D1SimplifiedGeometrySink& target) const {
    const std::optional<Outline>& otherOutline = OutlineOf(other);
    if (!outline || !otherOutline) return E_FAIL;
    return Combine(combine, *outline, *otherOutline, mode, tolerance, target);
}

HRESULT PathGeometry::Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION option, float tolerance,
                               ID2D1SimplifiedGeometrySink& target) const {
    if (!outline) return E_FAIL;
    const bool linesOnly = option == D2D1_GEOMETRY_SIMPLIFICATION_OPTION_LINES;
    std::vector<D2D1_POINT_2F> lines; // a run of them goes over in one call
    const auto flushLines = [&] {
        if (!lines.empty()) target.AddLines(lines.data(), static_cast<UINT>(lines.size()));
        lines.clear();
    };

    target.SetFillMode(D2D1_FILL_MODE_ALTERNATE);
    for (const Figure& figure : *outline) {
        target.BeginFigure(figure.start.ToPoint2F(),
                           figure.filled ? D2D1_FIGURE_BEGIN_FILLED : D2D1_FIGURE_BEGIN_HOLLOW);
        Vector start = figure.start;
        for (const Segment& segment : figure.segments) {
            if (linesOnly || std::holds_alternative<Line>(segment)) {
                Flatten(start, segment, tolerance, [&](Vector end) { lines.push_back(end.ToPoint2F()); });
            } else {
                flushLines();
                const std::vector<D2D1_BEZIER_SEGMENT> beziers = ToBeziers(start, segment);
                target.AddBeziers(beziers.data(), static_cast<UINT>(beziers.size()));
            }
            start = EndOf(segment);
        }
        flushLines();
        target.EndFigure(figure.closed ? D2D1_FIGURE_END_CLOSED : D2D1_FIGURE_END_OPEN);
    }
    return S_OK;
}

const std::optional<Outline>& OutlineOf(const ID2D1Geometry& geometry) {
    return static_cast<const PathGeometry&>(geometry).GetOutline();
}

} // namespace platform
