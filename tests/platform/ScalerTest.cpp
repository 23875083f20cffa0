#include "platform/core/screen/Scaler.h"
#include "platform/Picture.h"

#include <gtest/gtest.h>

using platform::Picture;

namespace {
Picture Scaled(const Picture& source, int width, int height) {
    Picture result(width, height);
    platform::Scaler scaler;
    scaler.SetSizes({source.width, source.height}, {width, height});
    scaler.Scale({source.pixels.data(), source.width, source.height, source.width}, result.pixels.data(), width);
    return result;
}

/// A picture in which every pixel is another.
Picture Distinct(int width, int height) {
    Picture picture(width, height);
    std::uint32_t number = 0xFF102030;
    for (std::uint32_t& pixel : picture.pixels) pixel = 0xFF000000 | (number = number * 1'664'525 + 1'013'904'223) >> 8;
    return picture;
}
} // namespace

TEST(Scaler, WholeFactorsGivePlainBlocks) {
    const Picture source = Distinct(5, 3);
    for (int across : {1, 2, 3}) {
        for (int down : {1, 3}) {
            const Picture result = Scaled(source, 5 * across, 3 * down);
            for (int y = 0; y < result.height; ++y) {
                for (int x = 0; x < result.width; ++x) ASSERT_EQ(result.At(x, y), source.At(x / across, y / down));
            }
        }
    }
}

TEST(Scaler, OtherFactorsGiveTheMeanOfTheAreaCovered) {
    Picture source(4, 1);
    source.pixels = {0xFF000000, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF};
    EXPECT_EQ(Scaled(source, 2, 1).pixels, (std::vector<std::uint32_t>{0xFF800000, 0xFF008080}));
    // Three pixels of 4/3 each: all of one and a third of the next; two thirds and two thirds; a third and all.
    EXPECT_EQ(Scaled(source, 3, 1).pixels, (std::vector<std::uint32_t>{0xFF400000, 0xFF808000, 0xFF0040BF}));
    EXPECT_EQ(Scaled(source, 1, 1).pixels, (std::vector<std::uint32_t>{0xFF404040}));
}

TEST(Scaler, OneColourStaysThatColourAtEverySize) {
    for (const std::uint32_t colour : {0xFFFFFFFFU, 0xFF010203U, 0x00000000U}) {
        const Picture source(64, 56, colour);
        for (const POINT size : {POINT{55, 48}, POINT{31, 90}, POINT{77, 67}, POINT{7, 3}, POINT{1, 1}}) {
            const Picture result = Scaled(source, size.x, size.y);
            for (const std::uint32_t pixel : result.pixels) ASSERT_EQ(pixel, colour) << size.x << " x " << size.y;
        }
    }
}
