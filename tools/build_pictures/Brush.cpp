#include "tools/build_pictures/Brush.h"

#include <cmath>

namespace pictures {

double Chance(int x, int y, int seed) {
    auto bits = static_cast<std::uint32_t>(x) * 0x9e3779b1U ^ static_cast<std::uint32_t>(y) * 0x85ebca77U ^
                static_cast<std::uint32_t>(seed) * 0xc2b2ae3dU;
    bits ^= bits >> 15;
    bits *= 0x2c1b3c6dU;
    bits ^= bits >> 12;
    bits *= 0x297a2d39U;
    bits ^= bits >> 15;
    return bits / 4294967296.0;
}

namespace {

double Smooth(double t) { return t * t * (3.0 - 2.0 * t); }

double Mix(double a, double b, double t) { return a + (b - a) * t; }

} // namespace

double Wave(double x, double period, int seed) {
    const double place = x / period;
    const int cell = static_cast<int>(std::floor(place));
    return Mix(Chance(cell, 0, seed), Chance(cell + 1, 0, seed), Smooth(place - cell));
}

double Wave2(double x, double y, double period, int seed) {
    const int column = static_cast<int>(std::floor(x / period));
    const int row = static_cast<int>(std::floor(y / period));
    const double across = Smooth(x / period - column);
    const double upper = Mix(Chance(column, row, seed), Chance(column + 1, row, seed), across);
    const double lower = Mix(Chance(column, row + 1, seed), Chance(column + 1, row + 1, seed), across);
    return Mix(upper, lower, Smooth(y / period - row));
}

bool Dither(int x, int y, double share) {
    constexpr int order[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    return (order[y & 3][x & 3] + 0.5) / 16.0 < share;
}

void Box(platform::Picture& picture, int left, int top, int right, int bottom, std::uint32_t colour) {
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) Dot(picture, x, y, colour);
    }
}

} // namespace pictures
