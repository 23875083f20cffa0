#pragma once

// Shapes: what the engine's hit regions and its outline loader ask of a geometry library.
//
// A shape keeps lines, cubic and quadratic Bézier curves and elliptic arcs under an affine transform, is filled by the
// even-odd rule, and knows the exact bounds of its curves. Boolean operations and comparisons work on outlines
// flattened to a given distance. All shapes are independent of the canvas, and owned by whoever asked for them.

#include "platform/Types.h"

#include <memory>
#include <span>

enum D2D1_FIGURE_BEGIN { D2D1_FIGURE_BEGIN_FILLED = 0, D2D1_FIGURE_BEGIN_HOLLOW = 1 };
enum D2D1_FIGURE_END { D2D1_FIGURE_END_OPEN = 0, D2D1_FIGURE_END_CLOSED = 1 };
enum D2D1_FILL_MODE { D2D1_FILL_MODE_ALTERNATE = 0, D2D1_FILL_MODE_WINDING = 1 };
enum D2D1_PATH_SEGMENT { D2D1_PATH_SEGMENT_NONE = 0 };
enum D2D1_SWEEP_DIRECTION { D2D1_SWEEP_DIRECTION_COUNTER_CLOCKWISE = 0, D2D1_SWEEP_DIRECTION_CLOCKWISE = 1 };
enum D2D1_ARC_SIZE { D2D1_ARC_SIZE_SMALL = 0, D2D1_ARC_SIZE_LARGE = 1 };
enum D2D1_COMBINE_MODE {
    D2D1_COMBINE_MODE_UNION = 0,
    D2D1_COMBINE_MODE_INTERSECT = 1,
    D2D1_COMBINE_MODE_XOR = 2,
    D2D1_COMBINE_MODE_EXCLUDE = 3
};
enum D2D1_GEOMETRY_RELATION {
    D2D1_GEOMETRY_RELATION_UNKNOWN = 0,
    D2D1_GEOMETRY_RELATION_DISJOINT = 1,
    D2D1_GEOMETRY_RELATION_IS_CONTAINED = 2,
    D2D1_GEOMETRY_RELATION_CONTAINS = 3,
    D2D1_GEOMETRY_RELATION_OVERLAP = 4
};
enum D2D1_GEOMETRY_SIMPLIFICATION_OPTION {
    D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES = 0,
    D2D1_GEOMETRY_SIMPLIFICATION_OPTION_LINES = 1
};

/// A cubic Bézier from the current point: two control points and the end point.
struct D2D1_BEZIER_SEGMENT {
    D2D1_POINT_2F point1;
    D2D1_POINT_2F point2;
    D2D1_POINT_2F point3;
};

/// A quadratic Bézier from the current point: control point and end point.
struct D2D1_QUADRATIC_BEZIER_SEGMENT {
    D2D1_POINT_2F point1;
    D2D1_POINT_2F point2;
};

/// An elliptic arc from the current point to `point`; `rotationAngle` in degrees, clockwise on screen.
struct D2D1_ARC_SEGMENT {
    D2D1_POINT_2F point;
    D2D1_SIZE_F size;
    float rotationAngle = 0.0F;
    D2D1_SWEEP_DIRECTION sweepDirection = D2D1_SWEEP_DIRECTION_COUNTER_CLOCKWISE;
    D2D1_ARC_SIZE arcSize = D2D1_ARC_SIZE_SMALL;
};

struct D2D1_ELLIPSE {
    D2D1_POINT_2F point;
    float radiusX = 0.0F;
    float radiusY = 0.0F;
};

/// The head that every receiver carries. Receivers live on the stack or in a unique_ptr here; nobody counts.
class IUnknown {
public:
    virtual HRESULT QueryInterface() = 0;
    virtual UINT AddRef() = 0;
    virtual UINT Release() = 0;

protected:
    ~IUnknown() = default;
};

/// Receives a shape as figures of lines and cubic curves, in path order.
class ID2D1SimplifiedGeometrySink : public IUnknown {
public:
    virtual void SetFillMode(D2D1_FILL_MODE fillMode) = 0;
    virtual void SetSegmentFlags(D2D1_PATH_SEGMENT flags) = 0;
    virtual void BeginFigure(D2D1_POINT_2F startPoint, D2D1_FIGURE_BEGIN begin) = 0;
    virtual void AddLines(const D2D1_POINT_2F* points, UINT count) = 0;
    virtual void AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) = 0;
    virtual void EndFigure(D2D1_FIGURE_END end) = 0;
    virtual HRESULT Close() = 0;

protected:
    ~ID2D1SimplifiedGeometrySink() = default;
};

/// Receives the figures of a path geometry that is being built; belongs to that geometry.
class ID2D1GeometrySink : public ID2D1SimplifiedGeometrySink {
public:
    virtual void AddLine(D2D1_POINT_2F point) = 0;
    virtual void AddBezier(const D2D1_BEZIER_SEGMENT& bezier) = 0;
    virtual void AddQuadraticBezier(const D2D1_QUADRATIC_BEZIER_SEGMENT& bezier) = 0;
    virtual void AddArc(const D2D1_ARC_SEGMENT& arc) = 0;

protected:
    ~ID2D1GeometrySink() = default;
};

/// A shape. Never changes once it is closed. `tolerance` is the greatest distance between a curve and the straight
/// pieces that stand for it. Operations on a path that was never opened and closed fail with a negative result.
class ID2D1Geometry {
public:
    virtual ~ID2D1Geometry() = default;
    /// The smallest rectangle around the filled shape; left > right when it is empty.
    virtual HRESULT GetBounds(D2D1_RECT_F* boundsPtr) const = 0;
    /// Whether the point lies inside by the even-odd rule, or within `tolerance` of the outline.
    virtual HRESULT FillContainsPoint(D2D1_POINT_2F point, float tolerance, bool* containsPtr) const = 0;
    virtual HRESULT CompareWithGeometry(const ID2D1Geometry& other, float tolerance,
                                        D2D1_GEOMETRY_RELATION* relationPtr) const = 0;
    /// Writes the combined outline, as closed figures of lines, to `sink`; does not close it.
    virtual HRESULT CombineWithGeometry(const ID2D1Geometry& other, D2D1_COMBINE_MODE mode, float tolerance,
                                        ID2D1SimplifiedGeometrySink& sink) const = 0;
    /// Writes the outline to `sink` in path order, quadratic curves and arcs as cubics, or everything as lines; does
    /// not close the sink.
    virtual HRESULT Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION option, float tolerance,
                             ID2D1SimplifiedGeometrySink& sink) const = 0;
};

/// A shape built figure by figure.
class ID2D1PathGeometry : public ID2D1Geometry {
public:
    /// The sink to build with, once; the geometry keeps it. Close the sink before any other use.
    virtual HRESULT Open(ID2D1GeometrySink** sinkPtrPtr) = 0;
};

/// Makes shapes; null when one cannot be made (a number that is not finite).
class ID2D1Factory {
public:
    virtual ~ID2D1Factory() = default;
    virtual std::unique_ptr<ID2D1Geometry> CreateRectangleGeometry(D2D1_RECT_F rect) = 0;
    virtual std::unique_ptr<ID2D1Geometry> CreateEllipseGeometry(D2D1_ELLIPSE ellipse) = 0;
    virtual std::unique_ptr<ID2D1PathGeometry> CreatePathGeometry() = 0;
    /// `source` seen through `transform`; keeps a copy, so `source` may go.
    virtual std::unique_ptr<ID2D1Geometry> CreateTransformedGeometry(const ID2D1Geometry& source,
                                                                     const D2D1_MATRIX_3X2_F& transform) = 0;
};

namespace platform {
/// The one kind of factory there is, on the back end of the current desktop; null if it cannot be made.
std::unique_ptr<ID2D1Factory> CreateGeometryFactory();
} // namespace platform
