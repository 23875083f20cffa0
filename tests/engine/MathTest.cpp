#include "engine/MATRIX3X2.h"
#include "engine/String.h"

#include <gtest/gtest.h>

#include <numbers>
#include <sstream>

namespace {

void ExpectNear(DOUBLE2 actual, DOUBLE2 expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-12);
    EXPECT_NEAR(actual.y, expected.y, 1e-12);
}

TEST(Double2, NormalizesDownToItsEpsilon) {
    ExpectNear(DOUBLE2(3.0, 4.0).Normalized(), {0.6, 0.8});
    EXPECT_EQ(DOUBLE2(0.0005, 0.0).Normalized(), DOUBLE2());
    EXPECT_EQ(DOUBLE2(0.5, 0.0).Normalized(0.5), DOUBLE2(1.0, 0.0));
}

TEST(Double2, TurnsClockwiseOnScreen) {
    const double quarter = std::numbers::pi / 2.0;
    EXPECT_GT(DOUBLE2(1.0, 0.0).DetProduct({0.0, 1.0}), 0.0);
    EXPECT_DOUBLE_EQ(DOUBLE2(1.0, 0.0).AngleWith({0.0, 1.0}), quarter);
    EXPECT_DOUBLE_EQ(DOUBLE2(0.0, 1.0).AngleWith({1.0, 0.0}), -quarter);
    EXPECT_DOUBLE_EQ(DOUBLE2(-1.0, -1e-9).AngleWith({-1.0, 1e-9}), 2.0 * std::numbers::pi - 2e-9);
    ExpectNear(MATRIX3X2::CreateRotationMatrix(quarter).TransformVector({1.0, 0.0}), {0.0, 1.0});
    EXPECT_EQ(DOUBLE2(1.0, 2.0).Orthogonal(), DOUBLE2(-2.0, 1.0));
}

TEST(Matrix, AppliesTheLeftFactorFirst) {
    const MATRIX3X2 translate = MATRIX3X2::CreateTranslationMatrix(10.0, 0.0);
    const MATRIX3X2 scale = MATRIX3X2::CreateScalingMatrix(2.0);
    EXPECT_EQ((translate * scale).TransformPoint({1.0, 0.0}), DOUBLE2(22.0, 0.0));
    EXPECT_EQ((scale * translate).TransformPoint({1.0, 0.0}), DOUBLE2(12.0, 0.0));
    EXPECT_EQ((translate * scale).TransformVector({1.0, 0.0}), DOUBLE2(2.0, 0.0));
}

TEST(Matrix, InverseUndoesAnyMix) {
    const MATRIX3X2 mat = MATRIX3X2(2.0, 0.5, -1.0, 3.0, 7.0, -4.0) * MATRIX3X2::CreateRotationMatrix(0.7);
    ExpectNear(mat.Inverse().TransformPoint(mat.TransformPoint({3.0, -8.0})), {3.0, -8.0});
    ExpectNear((mat * mat.Inverse()).orig, {});
}

TEST(Matrix, BecomesTheSameSixNumbersForDrawing) {
    const D2D1_MATRIX_3X2_F narrow = MATRIX3X2(1.0, 2.0, 3.0, 4.0, 5.0, 6.0).ToMatrix3x2F();
    EXPECT_EQ(narrow, (D2D1_MATRIX_3X2_F{1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F}));
    EXPECT_EQ(MATRIX3X2(narrow), MATRIX3X2(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
}

TEST(Lines, CrossOrAreParallelWithinTheEpsilon) {
    double along1 = -7.0;
    double along2 = -7.0;
    EXPECT_FALSE(IntersectLines({0, 0}, {1, 0}, {0, 1}, {1, 1 + 1e-6}, along1, along2, 1e-6));
    EXPECT_EQ(along1, -7.0);
    EXPECT_TRUE(IntersectLines({0, 0}, {10, 0}, {20, -5}, {20, 5}, along1, along2, 1e-6));
    EXPECT_DOUBLE_EQ(along1, 2.0);
    EXPECT_DOUBLE_EQ(along2, 0.5);
    EXPECT_FALSE(IntersectLineSegments({0, 0}, {10, 0}, {20, -5}, {20, 5}, along1, along2, 1e-6));
    EXPECT_TRUE(IntersectLineSegments({0, 0}, {20, 0}, {20, 0}, {20, 5}, along1, along2, 1e-6)); // at two ends
}

TEST(MathText, HasTwoDecimalsInStringsAndTheStreamsOwnFormatInStreams) {
    EXPECT_EQ(DOUBLE2(1.5, -2.0).ToString().ToUtf8(), "[1.50, -2.00]");
    EXPECT_EQ(MATRIX3X2(1, 2, 3, 4, 5, 6).ToString().ToUtf8(), "x=[1.00, 2.00]\ny=[3.00, 4.00]\no=[5.00, 6.00]");
    std::ostringstream narrow;
    narrow << DOUBLE2(1.5, -2.0) << MATRIX3X2(1, 2, 3, 4, 5, 6.5);
    EXPECT_EQ(narrow.str(), "DOUBLE2( 1.5, -2 )MATRIX3X2( 1, 2, 3, 4, 5, 6.5 )");
    std::wostringstream wide;
    wide << DOUBLE2(1.5, -2.0);
    EXPECT_EQ(wide.str(), L"DOUBLE2( 1.5, -2 )");
}

} // namespace
