#include "platform/core/screen/Placement.h"

#include <gtest/gtest.h>

using platform::PictureFromArea;
using platform::PlacePicture;
using platform::WindowSize;

namespace {
constexpr POINT picture{1024, 896};
}

TEST(Placement, WindowsShrinkToTheRoomAndGrowByWholeFactors) {
    struct Case {
        POINT room;
        double scale;
        POINT size;
    };
    for (const Case& c : {
             Case{{1920, 1080}, 1.0, {1024, 896}},
             Case{{1366, 768}, 1.0, {878, 768}}, // a small laptop
             Case{{800, 2000}, 1.0, {800, 700}},
             Case{{3840, 2160}, 1.5, {1024, 896}},
             Case{{3840, 2160}, 2.0, {2048, 1792}},
             Case{{3840, 2160}, 3.0, {2048, 1792}}, // three would not fit
             Case{{1920, 1080}, 2.0, {1024, 896}},
             Case{{1366, 768}, 2.0, {878, 768}},
         }) {
        EXPECT_EQ(WindowSize(picture, c.room, c.scale), c.size) << c.room.x << " x " << c.room.y << " at " << c.scale;
    }
}

TEST(Placement, FullScreenIsCentredAndSharp) {
    EXPECT_EQ(PlacePicture(picture, {1920, 1080}, true), (RECT{448, 92, 1472, 988}));
    EXPECT_EQ(PlacePicture(picture, {3840, 2160}, true), (RECT{896, 184, 2944, 1976}));
    EXPECT_EQ(PlacePicture(picture, {1366, 768}, true), (RECT{244, 0, 1122, 768}));
    EXPECT_EQ(PlacePicture(picture, {1536, 1344}, false), (RECT{0, 0, 1536, 1344})) << "a window is always filled";
}

TEST(Placement, EveryPixelOfThePictureCanBePointedAt) {
    for (const POINT area : {POINT{1024, 896}, POINT{1366, 768}, POINT{3840, 2160}, POINT{1536, 1344}}) {
        const RECT placement = PlacePicture(picture, area, false);
        const POINT topLeft{placement.left, placement.top};
        const POINT bottomRight{placement.right - 1, placement.bottom - 1};
        EXPECT_EQ(PictureFromArea(topLeft, picture, placement), (POINT{0, 0}));
        EXPECT_EQ(PictureFromArea(bottomRight, picture, placement), (POINT{1023, 895}));
        EXPECT_EQ(PictureFromArea({-5, area.y + 5}, picture, placement), (POINT{0, 895})) << "beside it: the edge";
    }
    EXPECT_EQ(PictureFromArea({1000, 500}, picture, {0, 0, 2048, 1792}), (POINT{500, 250}));
}
