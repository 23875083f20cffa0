#include "platform/core/canvas/Path.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr double farAway = 1 << 20; // pixels: a path library's fixed-point numbers hold it with room for strokes
constexpr float flattening = 0.25F; // pixels: how exactly curves of a geometry are followed
constexpr double quarterCircle = 0.5522847498307936; // control point distance of a cubic that follows a quarter circle

/// Receives a geometry's figures as a path.
class FigureSink final : public ID2D1SimplifiedGeometrySink {
public:
    FigureSink(Path& targetPath, bool takesHollow) : path(targetPath), takesHollowFigures(takesHollow) {}

    HRESULT QueryInterface() override { return E_NOTIMPL; }
    UINT AddRef() override { return 1; }
    UINT Release() override { return 1; }
    void SetFillMode(D2D1_FILL_MODE) override {}
    void SetSegmentFlags(D2D1_PATH_SEGMENT) override {}
    void BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) override {
        isTaken = takesHollowFigures || begin == D2D1_FIGURE_BEGIN_FILLED;
        if (isTaken) path.MoveTo(start.x, start.y);
    }
    void AddLines(const D2D1_POINT_2F* points, UINT count) override {
        for (UINT index = 0; isTaken && index < count; ++index) path.LineTo(points[index].x, points[index].y);
    }
    void AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) override {
        for (UINT index = 0; isTaken && index < count; ++index) {
            const D2D1_BEZIER_SEGMENT& bezier = beziers[index];
            path.CurveTo(bezier.point1.x, bezier.point1.y, bezier.point2.x, bezier.point2.y, bezier.point3.x,
                         bezier.point3.y);
        }
    }
    void EndFigure(D2D1_FIGURE_END end) override {
        if (isTaken && end == D2D1_FIGURE_END_CLOSED) path.Close();
    }
    HRESULT Close() override { return S_OK; }

private:
    Path& path;
    bool takesHollowFigures;
    bool isTaken = true;
};

} // namespace

void Path::Begin(const D2D1_MATRIX_3X2_F& transform) {
    mat = transform;
    steps.clear();
    points.clear();
    isGood = true;
}

void Path::MoveTo(double x, double y) {
    steps.push_back(Step::move);
    AddPoint(x, y);
}

void Path::LineTo(double x, double y) {
    steps.push_back(Step::line);
    AddPoint(x, y);
}

void Path::CurveTo(double x1, double y1, double x2, double y2, double x3, double y3) {
    steps.push_back(Step::curve);
    AddPoint(x1, y1);
    AddPoint(x2, y2);
    AddPoint(x3, y3);
}

void Path::Add(D2D1_RECT_F rect) {
    MoveTo(rect.left, rect.top);
    LineTo(rect.right, rect.top);
    LineTo(rect.right, rect.bottom);
    LineTo(rect.left, rect.bottom);
    Close();
}

void Path::Add(const D2D1_ROUNDED_RECT& rounded) {
    const auto [left, right] = std::minmax({rounded.rect.left, rounded.rect.right});
    const auto [top, bottom] = std::minmax({rounded.rect.top, rounded.rect.bottom});
    AddRounded(left, top, right, bottom, rounded.radiusX, rounded.radiusY);
}

/// An ellipse is a rounded rectangle without straight sides.
void Path::Add(const D2D1_ELLIPSE& ellipse) {
    const double radiusX = std::abs(ellipse.radiusX);
    const double radiusY = std::abs(ellipse.radiusY);
    AddRounded(ellipse.point.x - radiusX, ellipse.point.y - radiusY, ellipse.point.x + radiusX,
               ellipse.point.y + radiusY, radiusX, radiusY);
}

void Path::Add(const ID2D1Geometry& geometry, bool withHollow) {
    FigureSink sink(*this, withHollow);
    geometry.Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES, flattening, sink);
}

void Path::AddPoint(double x, double y) {
    const double frameX = x * mat.m11 + y * mat.m21 + mat.dx;
    const double frameY = x * mat.m12 + y * mat.m22 + mat.dy;
    isGood = isGood && !std::isnan(frameX) && !std::isnan(frameY);
    points.push_back({std::clamp(frameX, -farAway, farAway), std::clamp(frameY, -farAway, farAway)});
}

void Path::AddRounded(double left, double top, double right, double bottom, double radiusX, double radiusY) {
    const double x = std::clamp(radiusX, 0.0, (right - left) / 2.0);
    const double y = std::clamp(radiusY, 0.0, (bottom - top) / 2.0);
    const double flatX = x * (1.0 - quarterCircle);
    const double flatY = y * (1.0 - quarterCircle);
    MoveTo(left + x, top);
    LineTo(right - x, top);
    CurveTo(right - flatX, top, right, top + flatY, right, top + y);
    LineTo(right, bottom - y);
    CurveTo(right, bottom - flatY, right - flatX, bottom, right - x, bottom);
    LineTo(left + x, bottom);
    CurveTo(left + flatX, bottom, left, bottom - flatY, left, bottom - y);
    LineTo(left, top + y);
    CurveTo(left, top + flatY, left + flatX, top, left + x, top);
    Close();
}

} // namespace platform
