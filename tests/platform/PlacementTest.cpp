#include "platform/core/screen/Placement.h"

#include <gtest/gtest.h>

using platform::PictureFromArea;
using platform::PlacePicture;
using platform::WindowSize;

namespace {
constexpr POINT picture{1024, 896};
}

TEST(Placement, WindowsShrinkToTheRoomAndGrowByWholeFactors) {
    const struct {
        POINT room;
        double scale;
        POINT size;
    } cases[] = {
        {{1920, 1080}, 1.0, {1024, 896}},  {{1366, 768}, 1.0, {878, 768}}, // a small laptop
        {{800, 2000}, 1.0, {800, 700}},    {{3840, 2160}, 1.5, {1024, 896}},
        {{3840, 2160}, 2.0, {2048, 1792}}, {{3840, 2160}, 3.0, {2048, 1792}}, // three would not fit
        {{1366, 768}, 2.0, {878, 768}},
    };
    for (const auto& [room, scale, size] : cases) {
        EXPECT_EQ(WindowSize(picture, room, scale), size) << room.x << " x " << room.y << " at " << scale;
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
        const POINT last{placement.right - 1, placement.bottom - 1};
        EXPECT_EQ(PictureFromArea({placement.left, placement.top}, picture, placement), (POINT{0, 0}));
        EXPECT_EQ(PictureFromArea(last, picture, placement), (POINT{1023, 895}));
        EXPECT_EQ(PictureFromArea({-5, area.y + 5}, picture, placement), (POINT{0, 895})) << "beside it: the edge";
    }
    const RECT doubled = {0, 0, 2048, 1792};
    EXPECT_EQ(PictureFromArea({1000, 500}, picture, doubled), (POINT{500, 250}));
    // a captured mouse may go on beside the picture
    EXPECT_EQ(PictureFromArea({-1, 1792}, picture, doubled, true), (POINT{-1, 896}));
    EXPECT_EQ(PictureFromArea({-3, 1793}, picture, doubled, true), (POINT{-2, 896}));
}
