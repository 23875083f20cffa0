#include "engine/SimplifiedGeometrySink.h"

void SimplifiedGeometrySink::SetFillMode(D2D1_FILL_MODE fillMode) {
    if (innerSinkPtr != nullptr) innerSinkPtr->SetFillMode(fillMode);
}

void SimplifiedGeometrySink::SetSegmentFlags(D2D1_PATH_SEGMENT flags) {
    if (innerSinkPtr != nullptr) innerSinkPtr->SetSegmentFlags(flags);
}

void SimplifiedGeometrySink::BeginFigure(D2D1_POINT_2F startPoint, D2D1_FIGURE_BEGIN begin) {
    currentPoint = figureStartPoint = startPoint;
    if (innerSinkPtr != nullptr) innerSinkPtr->BeginFigure(startPoint, begin);
}

void SimplifiedGeometrySink::AddLines(const D2D1_POINT_2F* points, UINT count) {
    for (UINT i = 0; i < count; ++i) {
        segmentPointsPtr->push_back(currentPoint);
        segmentPointsPtr->push_back(points[i]);
        currentPoint = points[i];
    }
    if (innerSinkPtr != nullptr) innerSinkPtr->AddLines(points, count);
}

void SimplifiedGeometrySink::AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) {
    constexpr int mostHalvings = 3;
    for (UINT i = 0; i < count; ++i) {
        const Cubic cubic{currentPoint, beziers[i].point1, beziers[i].point2, beziers[i].point3};
        currentPoint = cubic.p3;
        Approximate(cubic, mostHalvings, true);
    }
}

void SimplifiedGeometrySink::EndFigure(D2D1_FIGURE_END end) {
    if (end == D2D1_FIGURE_END_CLOSED) {
        segmentPointsPtr->push_back(currentPoint);
        segmentPointsPtr->push_back(figureStartPoint);
    }
    if (innerSinkPtr != nullptr) innerSinkPtr->EndFigure(end);
}

HRESULT SimplifiedGeometrySink::Close() { return innerSinkPtr != nullptr ? innerSinkPtr->Close() : S_OK; }

void SimplifiedGeometrySink::Approximate(const Cubic& cubic, int depth, bool mustSplit) {
    const auto& [p0, p1, p2, p3] = cubic;
    double lambda1 = 0.0;
    double lambda2 = 0.0;
    if (!mustSplit && IntersectLines(p0, p1, p2, p3, lambda1, lambda2, 1e-6)) {
        // A quadratic that shares the tangents at both ends; the curves part most in the middle.
        const DOUBLE2 control = p0 + (p1 - p0) * lambda1;
        const DOUBLE2 error = (p0 - 3.0 * p1 - 3.0 * p2 + p3 + 4.0 * control) / 8.0;
        if (error.DotProduct(error) <= flatteningTolerance * flatteningTolerance) {
            AppendCurve(p0, control, p3);
            return;
        }
    }
    const DOUBLE2 middle = Lerp(p1, p2, 0.5);
    if (depth == 0) {
        AppendCurve(p0, middle, p3);
        return;
    }
    const DOUBLE2 first = Lerp(p0, p1, 0.5);
    const DOUBLE2 last = Lerp(p2, p3, 0.5);
    const DOUBLE2 beforeHalf = Lerp(first, middle, 0.5);
    const DOUBLE2 afterHalf = Lerp(middle, last, 0.5);
    const DOUBLE2 half = Lerp(beforeHalf, afterHalf, 0.5);
    Approximate({p0, first, beforeHalf, half}, depth - 1, false);
    Approximate({half, afterHalf, last, p3}, depth - 1, false);
}

void SimplifiedGeometrySink::AppendCurve(DOUBLE2 start, DOUBLE2 control, DOUBLE2 end) {
    curvePointsPtr->insert(curvePointsPtr->end(), {start, control, end});
    if (innerSinkPtr != nullptr) innerSinkPtr->AddQuadraticBezier({control.ToPoint2F(), end.ToPoint2F()});
}
