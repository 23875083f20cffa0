#include "engine/HitRegion.h"
#include "tests/support/EngineStage.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr const wchar_t* noShape = L"HitRegion object is being used but no Create() function has been called!";
constexpr const wchar_t* notSimplified = L"You must call Simplify before Raycast";

void ExpectBox(RECT2 box, RECT2 expected, double tolerance = 1e-4) {
    EXPECT_NEAR(box.left, expected.left, tolerance);
    EXPECT_NEAR(box.top, expected.top, tolerance);
    EXPECT_NEAR(box.right, expected.right, tolerance);
    EXPECT_NEAR(box.bottom, expected.bottom, tolerance);
}

int CountHits(const HitRegion& region, DOUBLE2 start, DOUBLE2 vector, int side = 0) {
    HIT hits[HitOutline::maxHits];
    return region.Raycast(start, vector, hits, HitOutline::maxHits, side);
}

class HitRegions : public EngineStage {
protected:
    void TearDown() override { EXPECT_THAT(TakeMessages(), IsEmpty()); }

    static std::unique_ptr<HitRegion> Box(double left, double top, double right, double bottom) {
        auto regionPtr = std::make_unique<HitRegion>();
        EXPECT_TRUE(regionPtr->CreateRect(left, top, right, bottom));
        return regionPtr;
    }
};

TEST_F(HitRegions, PointsInsideAndJustBesideTheShapeAreHits) {
    HitRegion region;
    ASSERT_TRUE(region.CreateEllipse({100, 50}, 40, 20));
    ExpectBox(region.GetBounds(), {60, 30, 140, 70}, 0.1);
    EXPECT_TRUE(region.HitTest({100, 50}));
    EXPECT_TRUE(region.HitTest({139.8, 50}));
    EXPECT_FALSE(region.HitTest({61, 31})) << "in the box, not in the ellipse";

    DOUBLE2 corners[] = {{0, 0}, {100, 0}, {0, 100}};
    ASSERT_TRUE(region.CreatePolygon(corners, 3, false)) << "a second shape replaces the first";
    EXPECT_TRUE(region.HitTest({40, 40}));
    EXPECT_FALSE(region.HitTest({60, 60}));
    EXPECT_EQ(CountHits(region, {-10, 40}, {200, 0}), 1) << "an open polygon has no closing line";
    ASSERT_TRUE(region.CreatePolygon(corners, 3, true));
    EXPECT_EQ(CountHits(region, {-10, 40}, {200, 0}), 2);
}

TEST_F(HitRegions, MoveWithTheirTransform) {
    const auto regionPtr = Box(0, 0, 100, 50);
    regionPtr->SetPos({200, 10});
    regionPtr->Move({1, 1});
    ExpectBox(regionPtr->GetBounds(), {201, 11, 301, 61});
    EXPECT_TRUE(regionPtr->HitTest({300, 60}));
    EXPECT_FALSE(regionPtr->HitTest({100, 10}));

    regionPtr->SetTransformMatrix(MATRIX3X2::CreateRotationMatrix(std::numbers::pi / 2));
    regionPtr->Move({0, 7});
    ExpectBox(regionPtr->GetBounds(), {-50, 7, 0, 107});
    regionPtr->SetPos({0.1, 0.1});
    EXPECT_EQ(regionPtr->GetTransformMatrix().orig, DOUBLE2(0.1F, 0.1F)) << "in single precision";

    ASSERT_TRUE(regionPtr->CreateRect(0, 0, 10, 10)) << "a new shape keeps the transform";
    ExpectBox(regionPtr->GetBounds(), {0.1, 0.1, 10.1, 10.1});
    for (const MATRIX3X2& useless : {MATRIX3X2::CreateScalingMatrix(0), MATRIX3X2::CreateScalingMatrix(notANumber)}) {
        regionPtr->SetTransformMatrix(useless);
        EXPECT_EQ(CountHits(*regionPtr, {5, -5}, {0, 10}), 0);
        EXPECT_FALSE(regionPtr->HitTest({500, 500}));
        EXPECT_FALSE(HasBox(regionPtr->GetBounds()));
    }
}

TEST_F(HitRegions, KnowWhatTheyHaveInCommon) {
    const auto boxPtr = Box(0, 0, 100, 100);
    const auto otherPtr = Box(0, 0, 50, 50);
    EXPECT_TRUE(boxPtr->HitTest(otherPtr.get())) << "one inside the other";
    otherPtr->SetPos({80, -20});
    EXPECT_TRUE(boxPtr->HitTest(otherPtr.get()));
    ExpectBox(boxPtr->CollisionTest(otherPtr.get()), {80, 0, 100, 30});
    otherPtr->SetPos({101, 0});
    EXPECT_FALSE(boxPtr->HitTest(otherPtr.get()));
    EXPECT_FALSE(HasBox(boxPtr->CollisionTest(otherPtr.get())));
}

TEST_F(HitRegions, BoundTheOverlapWithARectangle) {
    const auto regionPtr = Box(0, 0, 100, 100);
    struct Case {
        const char* name;
        RECT2 box;
        RECT2 overlap;
    };
    const Case cases[] = {
        {"a corner", {80, 90, 130, 130}, {80, 90, 100, 100}},
        {"inside", {10, 20, 30, 40}, {10, 20, 30, 40}},
        {"through", {-10, 40, 130, 60}, {0, 40, 100, 60}},
        {"beside", {200, 0, 210, 10}, {}},
        {"around: no edge meets the outline and no corner is inside", {-10, -10, 110, 110}, {}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        ExpectBox(regionPtr->CollisionTest(row.box), row.overlap);
    }
    regionPtr->SetPos({1000, 0});
    ExpectBox(regionPtr->CollisionTest(RECT2(1080, 90, 1130, 130)), {1080, 90, 1100, 100});
}

TEST_F(HitRegions, CombineTheirShapes) {
    const auto boxPtr = Box(0, 0, 100, 100);
    boxPtr->SetPos({5000, 0}); // a combination takes this region without its transform
    const auto otherPtr = Box(0, 0, 100, 100);
    otherPtr->SetPos({50, 0});
    const std::unique_ptr<HitRegion> unionPtr(boxPtr->Unite(otherPtr.get()));
    const std::unique_ptr<HitRegion> differencePtr(boxPtr->Exclude(otherPtr.get()));
    const std::unique_ptr<HitRegion> commonPtr(boxPtr->Intersect(otherPtr.get()));
    const std::unique_ptr<HitRegion> eitherPtr(boxPtr->Xor(otherPtr.get()));
    ExpectBox(unionPtr->GetBounds(), {0, 0, 150, 100});
    ExpectBox(differencePtr->GetBounds(), {0, 0, 50, 100});
    ExpectBox(commonPtr->GetBounds(), {50, 0, 100, 100});
    ExpectBox(eitherPtr->GetBounds(), {0, 0, 150, 100});
    EXPECT_FALSE(eitherPtr->HitTest({75, 50}));

    EXPECT_EQ(CountHits(*unionPtr, {-10, 50}, {200, 0}), 0);
    EXPECT_THAT(TakeMessages(), ElementsAre(notSimplified));
    unionPtr->Simplify(2, 5.0);
    EXPECT_EQ(CountHits(*unionPtr, {-10, 50}, {200, 0}), 2) << "the inner edges are gone";
    EXPECT_EQ(CountHits(*unionPtr, {-10, 50}, {200, 0}, -1), 1) << "and what is left is traced clockwise";
}

TEST_F(HitRegions, SimplifyToLinesReplacesTheShape) {
    HitRegion region;
    ASSERT_TRUE(region.CreateEllipse({0, 0}, 100, 100));
    EXPECT_TRUE(region.HitTest({89.5, 37}));
    region.Simplify(1, 50.0);
    EXPECT_FALSE(region.HitTest({89.5, 37})) << "an octagon";
    EXPECT_TRUE(region.HitTest({69, 69}));
    EXPECT_EQ(CountHits(region, {0, 0}, {89.5, 37}), 1);
    EXPECT_EQ(CountHits(region, {0, 0}, {80, 33}), 0);
}

TEST_F(HitRegions, WithoutAShapeSayItOnceAndDoNothing) {
    HitRegion region;
    const auto boxPtr = Box(0, 0, 10, 10);
    const auto expectMessage = [&](const char* operation, const wchar_t* text) {
        EXPECT_THAT(TakeMessages(), ElementsAre(text)) << operation;
    };
    region.SetTransformMatrix(MATRIX3X2::CreateScalingMatrix(2));
    expectMessage("SetTransformMatrix", noShape);
    EXPECT_EQ(region.GetTransformMatrix(), MATRIX3X2::CreateIdentityMatrix());
    region.Move({1, 1});
    expectMessage("Move", noShape);
    region.Simplify(2, 5.0);
    expectMessage("Simplify", noShape);
    EXPECT_FALSE(region.HitTest({0, 0}));
    expectMessage("HitTest of a point", noShape);
    EXPECT_FALSE(boxPtr->HitTest(&region));
    expectMessage("HitTest of a region", noShape);
    EXPECT_FALSE(HasBox(region.CollisionTest(RECT2(0, 0, 9, 9))));
    expectMessage("CollisionTest of a rectangle", noShape);
    EXPECT_FALSE(HasBox(boxPtr->CollisionTest(&region)));
    expectMessage("CollisionTest of a region", noShape);
    EXPECT_FALSE(HasBox(region.GetBounds()));
    expectMessage("GetBounds", noShape);
    EXPECT_EQ(region.Unite(boxPtr.get()), nullptr);
    expectMessage("Unite", noShape);
    EXPECT_EQ(region.GetGeometry(), nullptr);
    expectMessage("GetGeometry", noShape);
    EXPECT_EQ(CountHits(region, {0, 0}, {1, 1}), 0);
    expectMessage("Raycast", notSimplified);
}

TEST_F(HitRegions, WithoutTheirFileAreEmptyAndSayItOnce) {
    HitRegion region;
    ASSERT_TRUE(region.CreateRect(0, 0, 10, 10));
    EXPECT_FALSE(region.CreateFromFile(L"no such file.svg"));
    EXPECT_THAT(TakeMessages(), ElementsAre(L"Failed to load geometry from file no such file.svg"));

    EXPECT_EQ(CountHits(region, {5, -5}, {0, 100}), 0);
    EXPECT_FALSE(region.HitTest({5, 5}));
    EXPECT_FALSE(HasBox(region.GetBounds()));
    EXPECT_FALSE(HasBox(region.CollisionTest(RECT2(0, 0, 10, 10))));
    EXPECT_NE(region.GetGeometry(), nullptr) << "it can be drawn, as nothing";
    region.SetPos({5, 5});
}

using HitRegionsDeathTest = HitRegions;

TEST_F(HitRegionsDeathTest, EndTheProgramWhenTheirShapeCannotBeMade) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    HitRegion region;
    DOUBLE2 points[] = {{0, 0}, {notANumber, 1}};
    const auto exitsWithFailure = testing::ExitedWithCode(255);
    EXPECT_EXIT(region.CreateRect(0, notANumber, 1, 1), exitsWithFailure, "");
    EXPECT_EXIT(region.CreateEllipse({0, 0}, 1e300, 1), exitsWithFailure, "");
    EXPECT_EXIT(region.CreatePolygon(points, 2, true), exitsWithFailure, "");
    EXPECT_EXIT(region.CreatePolygon(points, 0, true), exitsWithFailure, "");
}

} // namespace
