#include "engine/SimplifiedGeometrySink.h"

#include "tests/support/Stage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr D2D1_POINT_2F origin{0, 0};

std::vector<DOUBLE2> Curves(const D2D1_BEZIER_SEGMENT& cubic, double tolerance) {
    std::vector<DOUBLE2> segments;
    std::vector<DOUBLE2> curves;
    SimplifiedGeometrySink sink(nullptr, &segments, &curves, tolerance);
    sink.BeginFigure(origin, D2D1_FIGURE_BEGIN_FILLED);
    sink.AddBeziers(&cubic, 1);
    sink.EndFigure(D2D1_FIGURE_END_OPEN);
    EXPECT_THAT(segments, IsEmpty());
    return curves;
}

DOUBLE2 QuadraticAt(const DOUBLE2* p, double t) { return Lerp(Lerp(p[0], p[1], t), Lerp(p[1], p[2], t), t); }

DOUBLE2 CubicAt(const D2D1_BEZIER_SEGMENT& cubic, double t) {
    const DOUBLE2 first[] = {origin, cubic.point1, cubic.point2};
    const DOUBLE2 last[] = {cubic.point1, cubic.point2, cubic.point3};
    return Lerp(QuadraticAt(first, t), QuadraticAt(last, t), t);
}

/// How far the farthest point of the quadratic curves lies from the cubic.
double LargestError(const D2D1_BEZIER_SEGMENT& cubic, const std::vector<DOUBLE2>& curves) {
    double largest = 0.0;
    for (std::size_t i = 0; i < curves.size(); i += 3) {
        for (double t = 0.0; t <= 1.0; t += 0.125) {
            double nearest = std::numeric_limits<double>::infinity();
            for (double u = 0.0; u <= 1.0; u += 1.0 / 1024.0)
                nearest = std::min(nearest, (QuadraticAt(&curves[i], t) - CubicAt(cubic, u)).Length());
            largest = std::max(largest, nearest);
        }
    }
    return largest;
}

TEST(SimplifiedGeometrySinkTest, LinesArePairsAndAClosedFigureGetsItsClosingLine) {
    std::vector<DOUBLE2> segments;
    std::vector<DOUBLE2> curves;
    SimplifiedGeometrySink sink(nullptr, &segments, &curves, 1.0);
    const D2D1_POINT_2F corners[] = {{10, 0}, {10, 10}};
    for (const D2D1_FIGURE_END end : {D2D1_FIGURE_END_CLOSED, D2D1_FIGURE_END_OPEN}) {
        sink.BeginFigure(origin, D2D1_FIGURE_BEGIN_FILLED);
        sink.AddLines(corners, 2);
        sink.EndFigure(end);
    }
    const DOUBLE2 a(0, 0);
    const DOUBLE2 b(10, 0);
    const DOUBLE2 c(10, 10);
    EXPECT_THAT(segments, ElementsAre(a, b, b, c, c, a, a, b, b, c));
    EXPECT_THAT(curves, IsEmpty());
}

TEST(SimplifiedGeometrySinkTest, CubicsBecomeTwoToEightQuadraticsWithinTheTolerance) {
    struct Case {
        const char* name;
        D2D1_BEZIER_SEGMENT cubic;
        double tolerance;
        std::size_t count;
    };
    const Case cases[] = {
        {"a quadratic in disguise: its halves, exactly", {{20, 40}, {40, 40}, {60, 0}}, 1e-6, 2},
        {"an arch, coarsely", {{0, 100}, {100, 100}, {100, 0}}, 5.0, 2},
        {"an arch, finely", {{0, 100}, {100, 100}, {100, 0}}, 0.5, 6},
        {"a wave", {{100, 0}, {0, 100}, {100, 100}}, 0.5, 8},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        const std::vector<DOUBLE2> curves = Curves(row.cubic, row.tolerance);
        EXPECT_EQ(curves.size(), 3 * row.count);
        EXPECT_EQ(curves.front(), DOUBLE2(origin));
        EXPECT_EQ(curves.back(), DOUBLE2(row.cubic.point3));
        for (std::size_t i = 3; i < curves.size(); i += 3) EXPECT_EQ(curves[i], curves[i - 1]) << "no gaps";
        EXPECT_LE(LargestError(row.cubic, curves), 2.0 * row.tolerance + 0.05); // 0.05: half a step along the cubic
    }
}

TEST(SimplifiedGeometrySinkTest, CurvesWithoutTangentPointsEndAfterThreeHalvings) {
    const D2D1_BEZIER_SEGMENT straight{{10, 0}, {-10, 0}, {20, 0}}; // there and back on one line
    EXPECT_EQ(Curves(straight, 1.0).size(), 3U * 8U);
    const D2D1_BEZIER_SEGMENT point{{0, 0}, {0, 0}, {0, 0}};
    EXPECT_EQ(Curves(point, 1.0).size(), 3U * 8U);
}

TEST(SimplifiedGeometrySinkTest, PassesTheConvertedShapeOn) {
    const Stage stage;
    const auto factoryPtr = platform::CreateGeometryFactory();
    const auto pathPtr = factoryPtr->CreatePathGeometry();
    ID2D1GeometrySink* innerPtr = nullptr;
    pathPtr->Open(&innerPtr);
    std::vector<DOUBLE2> segments;
    std::vector<DOUBLE2> curves;
    SimplifiedGeometrySink sink(innerPtr, &segments, &curves, 5.0);
    factoryPtr->CreateEllipseGeometry({{50, 50}, 50, 50})
        ->Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES, 5.0F, sink);
    EXPECT_EQ(sink.Close(), S_OK);
    EXPECT_EQ(curves.size(), 3U * 4U * 2U) << "four quarters in two halves each";
    D2D1_RECT_F bounds;
    ASSERT_EQ(pathPtr->GetBounds(&bounds), S_OK);
    EXPECT_NEAR(bounds.right, 100, 0.5);
    EXPECT_NEAR(bounds.top, 0, 0.5);
}

} // namespace
