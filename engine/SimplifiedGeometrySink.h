#pragma once

#include "engine/DOUBLE2.h"
#include "platform/Geometry.h"

#include <vector>

/// Records a simplified shape for the ray cast: lines as pairs of points, curves as quadratic Bézier curves (start,
/// control, end). Passes everything on to another sink as well, if there is one, the curves in the same converted form.
/// Lives on the stack for one simplification.
class SimplifiedGeometrySink : public ID2D1SimplifiedGeometrySink {
public:
    /// `tolerance`: how far, in the middle, a quadratic curve may lie beside the cubic that it replaces.
    SimplifiedGeometrySink(ID2D1GeometrySink* innerSink, std::vector<DOUBLE2>* segmentPoints,
                           std::vector<DOUBLE2>* curvePoints, double tolerance)
        : innerSinkPtr(innerSink), segmentPointsPtr(segmentPoints), curvePointsPtr(curvePoints),
          flatteningTolerance(tolerance) {}

    HRESULT QueryInterface() override { return E_NOTIMPL; }
    UINT AddRef() override { return 0; }
    UINT Release() override { return 0; }
    void SetFillMode(D2D1_FILL_MODE fillMode) override;
    void SetSegmentFlags(D2D1_PATH_SEGMENT flags) override;
    void BeginFigure(D2D1_POINT_2F startPoint, D2D1_FIGURE_BEGIN begin) override;
    void AddLines(const D2D1_POINT_2F* points, UINT count) override;
    void AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) override;
    void EndFigure(D2D1_FIGURE_END end) override;
    HRESULT Close() override;
    virtual ~SimplifiedGeometrySink() = default;

private:
    struct Cubic {
        DOUBLE2 p0;
        DOUBLE2 p1;
        DOUBLE2 p2;
        DOUBLE2 p3;
    };
    /// Appends quadratic curves for the cubic: one if it comes close enough, otherwise those of its halves, at most
    /// `depth` times halved.
    void Approximate(const Cubic& cubic, int depth, bool mustSplit);
    void AppendCurve(DOUBLE2 start, DOUBLE2 control, DOUBLE2 end);

    ID2D1GeometrySink* innerSinkPtr;
    std::vector<DOUBLE2>* segmentPointsPtr;
    std::vector<DOUBLE2>* curvePointsPtr;
    double flatteningTolerance;
    DOUBLE2 currentPoint;
    DOUBLE2 figureStartPoint;
};
