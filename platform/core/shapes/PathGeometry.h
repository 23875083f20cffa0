#pragma once

// The one kind of shape there is: rectangles, ellipses and transformed shapes are paths that were closed when made.

#include "platform/core/shapes/Outline.h"
#include "platform/core/shapes/Polygon.h"

#include <memory>
#include <optional>
#include <utility>

namespace platform {

/// Collects the figures of a path. A number that is not finite spoils the whole path; segments outside a figure are
/// ignored.
class PathSink final : public ID2D1GeometrySink {
public:
    /// Close writes the path to `target`.
    explicit PathSink(std::optional<Outline>& target) : closedOutline(target) {}

    HRESULT QueryInterface() override { return E_NOTIMPL; }
    UINT AddRef() override { return 0; }
    UINT Release() override { return 0; }
    void SetFillMode(D2D1_FILL_MODE) override {} // every shape is filled by the even-odd rule
    void SetSegmentFlags(D2D1_PATH_SEGMENT) override {}
    /// Ends a figure that is still open, as it is.
    void BeginFigure(D2D1_POINT_2F startPoint, D2D1_FIGURE_BEGIN begin) override;
    void AddLines(const D2D1_POINT_2F* points, UINT count) override;
    void AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) override;
    void EndFigure(D2D1_FIGURE_END end) override;
    /// Once; fails when the path is spoilt.
    HRESULT Close() override;
    void AddLine(D2D1_POINT_2F point) override;
    void AddBezier(const D2D1_BEZIER_SEGMENT& bezier) override;
    void AddQuadraticBezier(const D2D1_QUADRATIC_BEZIER_SEGMENT& bezier) override;
    void AddArc(const D2D1_ARC_SEGMENT& arc) override;

private:
    void Append(const Segment& segment);

    std::optional<Outline>& closedOutline;
    Outline outline;
    Vector currentPoint;
    bool isFigureOpen = false;
    bool isClosed = false;
};

class PathGeometry final : public ID2D1PathGeometry {
public:
    explicit PathGeometry(PolygonCombiner& polygonCombiner) : combine(polygonCombiner) {}
    /// A path that is already closed.
    PathGeometry(PolygonCombiner& polygonCombiner, Outline closedOutline)
        : combine(polygonCombiner), outline(std::move(closedOutline)) {}

    HRESULT Open(ID2D1GeometrySink** sinkPtrPtr) override;
    HRESULT GetBounds(D2D1_RECT_F* boundsPtr) const override;
    HRESULT FillContainsPoint(D2D1_POINT_2F point, float tolerance, bool* containsPtr) const override;
    HRESULT CompareWithGeometry(const ID2D1Geometry& other, float tolerance,
                                D2D1_GEOMETRY_RELATION* relationPtr) const override;
    HRESULT CombineWithGeometry(const ID2D1Geometry& other, D2D1_COMBINE_MODE mode, float tolerance,
                                ID2D1SimplifiedGeometrySink& target) const override;
    HRESULT Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION option, float tolerance,
                     ID2D1SimplifiedGeometrySink& target) const override;

    /// Nothing until the path is closed, and for ever if it is spoilt.
    const std::optional<Outline>& GetOutline() const { return outline; }

private:
    PolygonCombiner& combine;
    std::optional<Outline> outline;
    std::unique_ptr<PathSink> sinkPtr;
};

/// The outline of any shape: all of them are made here.
const std::optional<Outline>& OutlineOf(const ID2D1Geometry& geometry);

} // namespace platform
