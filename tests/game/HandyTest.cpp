#include "game/Handy.h"

#include <gtest/gtest.h>

TEST(Handy, BoxesThatOnlyTouchOverlap) {
    const Handy& handy = *Handy::GetSingleton();
    const RECT2 box(10, 10, 20, 20);
    struct {
        RECT2 other;
        bool overlaps;
        RECT2 common;
    } const cases[] = {
        {{15, 5, 30, 12}, true, {15, 10, 20, 12}},  // a corner of it
        {{12, 12, 14, 14}, true, {12, 12, 14, 14}}, // inside
        {{20, 10, 30, 20}, true, {20, 10, 20, 20}}, // side by side
        {{5, 20, 15, 25}, true, {10, 20, 15, 20}},  // one on the other
        {{20, 20, 30, 30}, true, {20, 20, 20, 20}}, // by a corner
        {{12, 0, 12, 15}, true, {12, 10, 12, 15}},  // a line through its top
        {{20.001, 10, 30, 20}, false, {}},          {{10, 20.001, 20, 30}, false, {}}, {{0, 0, 0, 0}, false, {}},
    };
    for (const auto& [other, overlaps, common] : cases) {
        SCOPED_TRACE(testing::Message() << other.left << ' ' << other.top);
        EXPECT_EQ(handy.RectsOverlap(box, other), overlaps);
        EXPECT_EQ(handy.RectsOverlap(other, box), overlaps);
        EXPECT_TRUE(handy.GetIntersection(box, other) == common);
        EXPECT_TRUE(handy.GetIntersection(other, box) == common);
    }
}

TEST(Handy, NearEndsBeforeTheRadiusOnEitherAxis) {
    const Handy& handy = *Handy::GetSingleton();
    const DOUBLE2 here(100, 200);
    EXPECT_TRUE(handy.IsPointNear({149.9, 150.1}, here, 50));
    EXPECT_TRUE(handy.IsPointNear({50.1, 249.9}, here, 50));
    for (const DOUBLE2 far : {DOUBLE2(150, 200), DOUBLE2(50, 200), DOUBLE2(100, 250), DOUBLE2(100, 150)}) {
        EXPECT_FALSE(handy.IsPointNear(far, here, 50)) << far.x << ' ' << far.y;
    }
}
