#include "game/Handy.h"

#include <gtest/gtest.h>

TEST(Handy, BoxesThatOnlyTouchOverlap) {
    const Handy& handy = *Handy::GetSingleton();
    const RECT2 box(10, 10, 20, 20);
    for (const auto& [other, common] : {std::pair<RECT2, RECT2>{{15, 5, 30, 12}, {15, 10, 20, 12}}, // a corner of it
                                        {{12, 12, 14, 14}, {12, 12, 14, 14}},                       // inside
                                        {{20, 10, 30, 20}, {20, 10, 20, 20}},                       // side by side
                                        {{20, 20, 30, 30}, {20, 20, 20, 20}},                       // by a corner
                                        {{12, 0, 12, 15}, {12, 10, 12, 15}},                        // a line
                                        {{20.001, 10, 30, 20}, {}},
                                        {{10, 20.001, 20, 30}, {}}}) {
        EXPECT_EQ(handy.RectsOverlap(box, other), HasBox(common));
        EXPECT_EQ(handy.RectsOverlap(other, box), HasBox(common));
        EXPECT_EQ(handy.GetIntersection(box, other), common);
    }
}

TEST(Handy, NearEndsBeforeTheRadiusOnEitherAxis) {
    const Handy& handy = *Handy::GetSingleton();
    EXPECT_TRUE(handy.IsPointNear({149.9, 150.1}, {100, 200}, 50));
    EXPECT_TRUE(handy.IsPointNear({50.1, 249.9}, {100, 200}, 50));
    for (const DOUBLE2 far : {DOUBLE2(150, 200), DOUBLE2(50, 200), DOUBLE2(100, 250), DOUBLE2(100, 150)})
        EXPECT_FALSE(handy.IsPointNear(far, {100, 200}, 50)) << far;
}
