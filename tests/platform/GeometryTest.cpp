#include "platform/Geometry.h"
#include "tests/support/Stage.h"
#include "tests/support/TextSink.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr auto lines = D2D1_GEOMETRY_SIMPLIFICATION_OPTION_LINES;
constexpr auto curves = D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES;

class Geometry : public testing::Test {
protected:
    using Shape = std::unique_ptr<ID2D1Geometry>;
    using Draw = std::function<void(ID2D1GeometrySink&)>;

    Shape Rectangle(float left, float top, float right, float bottom) {
        return factoryPtr->CreateRectangleGeometry({left, top, right, bottom});
    }
    Shape Ellipse(float x, float y, float radiusX, float radiusY) {
        return factoryPtr->CreateEllipseGeometry({{x, y}, radiusX, radiusY});
    }
    Shape Moved(const Shape& shape, const D2D1_MATRIX_3X2_F& mat) {
        return factoryPtr->CreateTransformedGeometry(*shape, mat);
    }
    Shape Build(const Draw& draw) {
        auto pathPtr = factoryPtr->CreatePathGeometry();
        ID2D1GeometrySink* sinkPtr = nullptr;
        EXPECT_EQ(pathPtr->Open(&sinkPtr), S_OK);
        draw(*sinkPtr);
        closeResult = sinkPtr->Close();
        return pathPtr;
    }
    /// A path of one figure from (0, 0) that `draw` adds to.
    Shape Path(const Draw& draw, D2D1_FIGURE_BEGIN begin = D2D1_FIGURE_BEGIN_FILLED,
               D2D1_FIGURE_END end = D2D1_FIGURE_END_CLOSED) {
        return Build([&](ID2D1GeometrySink& sink) {
            sink.BeginFigure({0, 0}, begin);
            draw(sink);
            sink.EndFigure(end);
        });
    }
    static Draw Lines(std::vector<D2D1_POINT_2F> points) {
        return [=](ID2D1GeometrySink& sink) { sink.AddLines(points.data(), static_cast<UINT>(points.size())); };
    }
    Shape ArcPath(const D2D1_ARC_SEGMENT& arc) {
        return Path([&](ID2D1GeometrySink& sink) { sink.AddArc(arc); });
    }
    Shape Combined(const Shape& a, const Shape& b, D2D1_COMBINE_MODE mode, float tolerance = 0.25F) {
        return Build(
            [&](ID2D1GeometrySink& sink) { EXPECT_EQ(a->CombineWithGeometry(*b, mode, tolerance, sink), S_OK); });
    }
    static TextSink Simplified(const Shape& shape, D2D1_GEOMETRY_SIMPLIFICATION_OPTION option,
                               float tolerance = 0.25F) {
        TextSink sink;
        EXPECT_EQ(shape->Simplify(option, tolerance, sink), S_OK);
        return sink;
    }
    static D2D1_GEOMETRY_RELATION Relation(const Shape& a, const Shape& b) {
        D2D1_GEOMETRY_RELATION relation = D2D1_GEOMETRY_RELATION_UNKNOWN;
        EXPECT_EQ(a->CompareWithGeometry(*b, 0.25F, &relation), S_OK);
        return relation;
    }
    static bool Contains(const Shape& shape, float x, float y, float tolerance = 0.25F) {
        bool contains = false;
        EXPECT_EQ(shape->FillContainsPoint({x, y}, tolerance, &contains), S_OK);
        return contains;
    }
    static void ExpectBounds(const Shape& shape, D2D1_RECT_F expected, float tolerance) {
        D2D1_RECT_F bounds;
        ASSERT_EQ(shape->GetBounds(&bounds), S_OK);
        EXPECT_NEAR(bounds.left, expected.left, tolerance);
        EXPECT_NEAR(bounds.top, expected.top, tolerance);
        EXPECT_NEAR(bounds.right, expected.right, tolerance);
        EXPECT_NEAR(bounds.bottom, expected.bottom, tolerance);
    }

    Stage stage;
    std::unique_ptr<ID2D1Factory> factoryPtr = platform::CreateGeometryFactory();
    HRESULT closeResult = S_OK;
};

TEST_F(Geometry, ShapesAreTracedClockwiseAndPathsInTheirOrder) {
    EXPECT_EQ(Simplified(Rectangle(1, 2, 30, 40), curves).Text(), "M 1 2 L 30 2 L 30 40 L 1 40 Z");
    // four quarters, each with its controls 0.5523 of the radius along the tangents
    EXPECT_EQ(
        Simplified(Ellipse(0, 0, 10000, 1000), curves).Text(),
        "M 10000 0 C 10000 552.285 5522.85 1000 6.12323e-13 1000 C -5522.85 1000 -10000 552.285 -10000 1.22465e-13 "
        "C -10000 -552.285 -5522.85 -1000 -1.83697e-12 -1000 C 5522.85 -1000 10000 -552.285 10000 0 Z");
    const Shape path = Build([](ID2D1GeometrySink& sink) {
        sink.AddLine({99, 99}); // outside a figure: ignored
        sink.BeginFigure({0, 0}, D2D1_FIGURE_BEGIN_FILLED);
        sink.AddLine({10, 0});
        sink.AddBezier({{11, 1}, {12, 2}, {13, 3}});
        sink.AddQuadraticBezier({{16, 6}, {19, 3}});
        sink.AddLine({5, 5});
        sink.EndFigure(D2D1_FIGURE_END_OPEN);
        sink.BeginFigure({20, 20}, D2D1_FIGURE_BEGIN_FILLED);
        sink.AddLine({30, 20});
        sink.EndFigure(D2D1_FIGURE_END_CLOSED);
    });
    EXPECT_EQ(Simplified(path, curves).Text(),
              "M 0 0 L 10 0 C 11 1 12 2 13 3 C 15 5 17 5 19 3 L 5 5 O M 20 20 L 30 20 Z");
}

TEST_F(Geometry, BoundsOfCurvesAreExact) {
    const Shape cubic = Path([](ID2D1GeometrySink& sink) { sink.AddBezier({{0, 100}, {100, 100}, {100, 0}}); });
    const Shape quadratic = Path([](ID2D1GeometrySink& sink) { sink.AddQuadraticBezier({{50, 100}, {100, 0}}); });
    ExpectBounds(cubic, {0, 0, 100, 75}, 1e-5F);
    ExpectBounds(Moved(cubic, {-1, 0, 0, -2, 0, 0}), {-100, -150, 0, 0}, 1e-5F);
    ExpectBounds(quadratic, {0, 0, 100, 50}, 1e-5F);
    ExpectBounds(Ellipse(10, 20, 3, 4), {7, 16, 13, 24}, 0);
    ExpectBounds(Ellipse(10, 20, 0, 4), {10, 16, 10, 24}, 0);
    // A circle stays within its bounds however it is turned, and a skewed one is as wide as its matrix column is long.
    const Shape circle = Ellipse(0, 0, 10, 10);
    const float half = std::sqrt(0.5F);
    ExpectBounds(Moved(circle, {half, half, -half, half, 5, 0}), {-5, -10, 15, 10}, 1e-5F);
    ExpectBounds(Moved(circle, {3, 0, 4, 1, 0, 0}), {-50, -10, 50, 10}, 1e-5F);
}

TEST_F(Geometry, ArcsTakeTheAskedSideAndSize) {
    constexpr auto clockwise = D2D1_SWEEP_DIRECTION_CLOCKWISE;
    constexpr auto counter = D2D1_SWEEP_DIRECTION_COUNTER_CLOCKWISE;
    constexpr auto small = D2D1_ARC_SIZE_SMALL;
    constexpr auto large = D2D1_ARC_SIZE_LARGE;
    const float rise = 50 - std::sqrt(1875.0F); // of a chord of 50 in a circle of radius 50
    const struct {
        D2D1_ARC_SEGMENT arc;
        D2D1_RECT_F bounds;
    } cases[] = {
        {{{50, 0}, {50, 50}, 0, clockwise, small}, {0, -rise, 50, 0}},
        {{{50, 0}, {50, 50}, 0, counter, small}, {0, 0, 50, rise}},
        {{{50, 0}, {50, 50}, 0, clockwise, large}, {-25, -100 + rise, 75, 0}},
        {{{50, 0}, {50, 50}, 0, counter, large}, {-25, 0, 75, 100 - rise}},
        {{{100, 0}, {50, 20}, 0, clockwise, small}, {0, -20, 100, 0}},  // exactly half an ellipse
        {{{100, 0}, {20, 50}, 90, clockwise, large}, {0, -20, 100, 0}}, // the same one, turned
        {{{100, 0}, {5, 2}, 0, clockwise, small}, {0, -20, 100, 0}},    // too small: scaled up
        {{{100, 0}, {-50, -20}, 720, clockwise, small}, {0, -20, 100, 0}},
        {{{100, 10}, {0, 20}, 0, clockwise, small}, {0, 0, 100, 10}}, // no radius: a line
        {{{100, 10}, {1e38F, 1e38F}, 0, clockwise, small}, {0, 0, 100, 10}},
    };
    for (const auto& [arc, bounds] : cases) {
        SCOPED_TRACE(testing::Message() << arc.point.x << ' ' << arc.size.width << ' ' << arc.sweepDirection
                                        << arc.arcSize);
        ExpectBounds(ArcPath(arc), bounds, 1e-4F);
    }
    EXPECT_EQ(Simplified(ArcPath({{0, 0}, {5, 5}, 0, clockwise, large}), lines).Text(), "M 0 0 Z")
        << "an arc that goes nowhere is nothing";
}

TEST_F(Geometry, StraightPiecesKeepWithinTheTolerance) {
    std::size_t before = 0;
    for (const float tolerance : {5.0F, 0.25F, 0.01F}) {
        const TextSink sink = Simplified(Ellipse(0, 0, 100, 100), lines, tolerance);
        const auto& points = sink.Points();
        for (std::size_t i = 1; i < points.size(); ++i) {
            EXPECT_NEAR(std::hypot(points[i].x, points[i].y), 100, 1e-4);
            const double middle = std::hypot(points[i].x + points[i - 1].x, points[i].y + points[i - 1].y) / 2;
            EXPECT_GE(middle, 100 - tolerance);
        }
        EXPECT_GT(points.size(), before);
        EXPECT_LT(points.size(), 600U);
        before = points.size();
    }
}

TEST_F(Geometry, ContainsAPointByTheEvenOddRuleOrNearTheOutline) {
    const Shape star = Path(Lines({{30, 90}, {-50, 35}, {50, 35}, {-30, 90}}));
    EXPECT_TRUE(Contains(star, 0, 20));
    EXPECT_FALSE(Contains(star, 0, 50)) << "the middle is covered twice";

    const auto boxLines = Lines({{10, 0}, {10, 10}, {0, 10}});
    const Shape boxes[] = {Rectangle(0, 0, 10, 10), Moved(Rectangle(0, 0, 5, 10), {0, 2, -1, 0, 10, 0}),
                           Path(boxLines, D2D1_FIGURE_BEGIN_FILLED, D2D1_FIGURE_END_OPEN)};
    for (const Shape& box : boxes) {
        EXPECT_TRUE(Contains(box, 5, 5));
        EXPECT_TRUE(Contains(box, 0, 0) && Contains(box, 10, 10) && Contains(box, -0.25F, 5));
        EXPECT_FALSE(Contains(box, -0.26F, 5) || Contains(box, 10.2F, 10.2F) || Contains(box, 20, 10));
        EXPECT_FALSE(Contains(box, notANumber, 5) || Contains(box, infinity, 5));
    }
    EXPECT_FALSE(Contains(Path(boxLines, D2D1_FIGURE_BEGIN_HOLLOW), 5, 5));
    EXPECT_TRUE(Contains(Ellipse(0, 0, 100, 50), 70, 35, 0.01F));
    EXPECT_FALSE(Contains(Ellipse(0, 0, 100, 50), 72, 36, 0.01F));
}

TEST_F(Geometry, ComparesAreas) {
    const Shape box = Rectangle(0, 0, 10, 10);
    EXPECT_EQ(Relation(box, Rectangle(2, 2, 8, 8)), D2D1_GEOMETRY_RELATION_CONTAINS);
    EXPECT_EQ(Relation(Rectangle(0, 0, 10, 5), box), D2D1_GEOMETRY_RELATION_IS_CONTAINED);
    EXPECT_EQ(Relation(box, box), D2D1_GEOMETRY_RELATION_IS_CONTAINED);
    EXPECT_EQ(Relation(box, Rectangle(5, 5, 15, 15)), D2D1_GEOMETRY_RELATION_OVERLAP);
    EXPECT_EQ(Relation(box, Rectangle(10, 0, 20, 10)), D2D1_GEOMETRY_RELATION_DISJOINT) << "they only touch";
    EXPECT_EQ(Relation(box, Rectangle(9.5F, 0, 20, 10)), D2D1_GEOMETRY_RELATION_OVERLAP);
    EXPECT_EQ(Relation(Ellipse(0, 0, 10, 10), Rectangle(8, 8, 10, 10)), D2D1_GEOMETRY_RELATION_DISJOINT)
        << "only the boxes overlap";
    EXPECT_EQ(Relation(box, Build([](ID2D1GeometrySink&) {})), D2D1_GEOMETRY_RELATION_DISJOINT);
}

TEST_F(Geometry, CombinesExactlyOnWholeNumbers) {
    const Shape box = Rectangle(0, 0, 10, 10);
    const D2D1_RECT_F apart = {5, 5, 25, 15};
    constexpr float wide = 16777216;
    const struct {
        D2D1_COMBINE_MODE mode;
        D2D1_RECT_F other;
        D2D1_RECT_F bounds;
        double area;
    } cases[] = {
        {D2D1_COMBINE_MODE_UNION, apart, {0, 0, 25, 15}, 275},
        {D2D1_COMBINE_MODE_INTERSECT, apart, {5, 5, 10, 10}, 25},
        {D2D1_COMBINE_MODE_EXCLUDE, apart, {0, 0, 10, 10}, 75},
        {D2D1_COMBINE_MODE_XOR, apart, {0, 0, 25, 15}, 250},
        {D2D1_COMBINE_MODE_UNION, {10, 0, 20, 10}, {0, 0, 20, 10}, 200}, // joined along an edge
        {D2D1_COMBINE_MODE_EXCLUDE, {2, 2, 8, 8}, {0, 0, 10, 10}, 64},   // a hole, traced the other way
        {D2D1_COMBINE_MODE_XOR, {-wide, 0, wide, 1}, {-wide, 0, wide, 10}, 2.0 * wide + 80},
    };
    for (const auto& [mode, other, bounds, area] : cases) {
        const Shape combined = Combined(box, factoryPtr->CreateRectangleGeometry(other), mode);
        const TextSink sink = Simplified(combined, lines);
        SCOPED_TRACE(sink.Text());
        ExpectBounds(combined, bounds, 0);
        EXPECT_EQ(sink.Area(), area);
    }
    EXPECT_EQ(Simplified(Combined(box, Rectangle(20, 0, 30, 10), D2D1_COMBINE_MODE_INTERSECT), lines).Text(), "");
}

TEST_F(Geometry, RefusesNumbersThatAreNotFinite) {
    const Shape box = Rectangle(0, 0, 1e30F, 1);
    for (const float bad : {infinity, -infinity, notANumber}) {
        EXPECT_EQ(Rectangle(0, bad, 10, 10), nullptr);
        EXPECT_EQ(Ellipse(0, 0, bad, 10), nullptr);
        EXPECT_EQ(Moved(box, {1, 0, 0, 1, bad, 0}), nullptr);
        for (const D2D1_ARC_SEGMENT& arc : {D2D1_ARC_SEGMENT{{bad, 0}, {5, 5}}, {{9, 0}, {5, 5}, bad}}) {
            const Shape path = ArcPath(arc);
            EXPECT_LT(closeResult, 0);
            EXPECT_EQ(Moved(path, {}), nullptr);
        }
    }
    EXPECT_EQ(Moved(box, {1e30F, 0, 0, 1, 0, 0}), nullptr);
}

TEST_F(Geometry, AnUnfinishedPathFailsEveryQuestion) {
    const Shape box = Rectangle(0, 0, 10, 10);
    const auto pathPtr = factoryPtr->CreatePathGeometry();
    D2D1_RECT_F bounds;
    bool contains = false;
    D2D1_GEOMETRY_RELATION relation;
    TextSink sink;
    ID2D1GeometrySink* sinkPtr = nullptr;
    ID2D1GeometrySink* secondPtr = nullptr;
    for (const bool isOpen : {false, true}) {
        EXPECT_EQ(isOpen ? pathPtr->Open(&sinkPtr) : S_OK, S_OK);
        const HRESULT answers[] = {pathPtr->GetBounds(&bounds), pathPtr->FillContainsPoint({0, 0}, 0.25F, &contains),
                                   box->CompareWithGeometry(*pathPtr, 0.25F, &relation),
                                   pathPtr->CombineWithGeometry(*box, D2D1_COMBINE_MODE_UNION, 0.25F, sink),
                                   pathPtr->Simplify(lines, 0.25F, sink)};
        EXPECT_THAT(answers, testing::Each(testing::Lt(0)));
        EXPECT_EQ(factoryPtr->CreateTransformedGeometry(*pathPtr, {}), nullptr);
    }
    EXPECT_LT(pathPtr->Open(&secondPtr), 0);
    EXPECT_EQ(sinkPtr->Close(), S_OK);
    EXPECT_LT(sinkPtr->Close(), 0);
    EXPECT_EQ(pathPtr->GetBounds(&bounds), S_OK);
    EXPECT_GT(bounds.left, bounds.right) << "a path without figures is empty";
}

TEST_F(Geometry, HugeAndTinyShapesStayWithinReason) {
    for (const float size : {1e-30F, 1e-3F, 1e9F, 1e37F}) {
        SCOPED_TRACE(size);
        const Shape circle = Ellipse(0, 0, size, size);
        EXPECT_TRUE(Contains(circle, 0.5F * size, 0.5F * size));
        for (const float bad : {0.0F, notANumber}) EXPECT_LT(Simplified(circle, lines, bad).Text().size(), 40000U);
        const Shape box = Rectangle(0, 0, 2 * size, 2 * size);
        const Shape quarter = Combined(circle, box, D2D1_COMBINE_MODE_INTERSECT, size / 1000);
        if (size >= 1.0F) ExpectBounds(quarter, {0, 0, size, size}, size / 900);
    }
}

} // namespace
