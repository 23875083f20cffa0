#include "platform/core/screen/Scaler.h"
#include "platform/Picture.h"

#include <gmock/gmock.h>

using platform::Picture;
using testing::Each;
using testing::ElementsAre;

namespace {
std::vector<std::uint32_t> Scaled(const Picture& source, int width, int height) {
    Picture result(width, height);
    platform::Scaler scaler;
    scaler.SetSizes({source.width, source.height}, {width, height});
    scaler.Scale({source.pixels.data(), source.width, source.height, source.width}, result.pixels.data(), width);
    return result.pixels;
}
} // namespace

TEST(Scaler, WholeFactorsGivePlainBlocks) {
    Picture source(2, 2);
    source.pixels = {1, 2, 3, 4};
    EXPECT_EQ(Scaled(source, 2, 2), source.pixels);
    EXPECT_THAT(Scaled(source, 4, 2), ElementsAre(1, 1, 2, 2, 3, 3, 4, 4));
    EXPECT_THAT(Scaled(source, 2, 6), ElementsAre(1, 2, 1, 2, 1, 2, 3, 4, 3, 4, 3, 4));
}

TEST(Scaler, OtherFactorsGiveTheMeanOfTheAreaCovered) {
    Picture source(4, 1);
    source.pixels = {0xFF000000, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF};
    EXPECT_THAT(Scaled(source, 2, 1), ElementsAre(0xFF800000, 0xFF008080));
    // Three pixels of 4/3 each: all of one and a third of the next; two thirds and two thirds; a third and all.
    EXPECT_THAT(Scaled(source, 3, 1), ElementsAre(0xFF400000, 0xFF808000, 0xFF0040BF));
    EXPECT_THAT(Scaled(source, 1, 1), ElementsAre(0xFF404040));
}

TEST(Scaler, OneColourStaysThatColourAtEverySize) {
    for (const std::uint32_t colour : {0xFFFFFFFFU, 0xFF010203U, 0x00000000U}) {
        for (const POINT size : {POINT{55, 48}, POINT{31, 90}, POINT{77, 67}, POINT{7, 3}, POINT{1, 1}}) {
            EXPECT_THAT(Scaled(Picture(64, 56, colour), size.x, size.y), Each(colour)) << size.x << " x " << size.y;
        }
    }
}
