#pragma once

#include "platform/Canvas.h"

#include <cstdint>
#include <vector>

namespace platform {

/// The outline of a shape, kept in frame pixels, so that a shape of any size stays within what a path library can hold.
/// Keeps its memory from one shape to the next.
class Path {
public:
    struct Point {
        double x;
        double y;
    };

    /// Empties the path; what is added from now on goes through `transform`.
    void Begin(const D2D1_MATRIX_3X2_F& transform);
    void MoveTo(double x, double y);
    void LineTo(double x, double y);
    void CurveTo(double x1, double y1, double x2, double y2, double x3, double y3);
    void Close() { steps.push_back(Step::close); }
    void Add(D2D1_RECT_F rect);
    void Add(const D2D1_ROUNDED_RECT& rounded);
    void Add(const D2D1_ELLIPSE& ellipse);
    /// Adds the figures of a shape; filling leaves the hollow ones out.
    void Add(const ID2D1Geometry& geometry, bool withHollow);

    /// False once a point was NaN: such a shape must not be painted.
    bool IsGood() const { return isGood; }

    /// Calls `target`'s MoveTo(Point), LineTo(Point), CurveTo(Point, Point, Point) and Close(), in the order of adding.
    template <class Target>
    void Replay(const Target& target) const {
        const Point* nextPtr = points.data();
        for (const Step step : steps) {
            switch (step) {
            case Step::move: target.MoveTo(nextPtr[0]); break;
            case Step::line: target.LineTo(nextPtr[0]); break;
            case Step::curve: target.CurveTo(nextPtr[0], nextPtr[1], nextPtr[2]); break;
            case Step::close: target.Close(); break;
            }
            nextPtr += PointsOf(step);
        }
    }

private:
    enum class Step : std::uint8_t { move, line, curve, close };

    static int PointsOf(Step step) { return step == Step::close ? 0 : step == Step::curve ? 3 : 1; }
    void AddPoint(double x, double y);
    void AddRounded(double left, double top, double right, double bottom, double radiusX, double radiusY);

    D2D1_MATRIX_3X2_F mat;
    std::vector<Step> steps;
    std::vector<Point> points; // of the steps, one after the other
    bool isGood = true;
};

} // namespace platform
