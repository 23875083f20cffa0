#pragma once

#include "platform/Picture.h"

#include <cstdint>

namespace pictures {

/// A random number from 0 to 1 for a place; the same place and seed always give the same one.
double Chance(int x, int y, int seed);

/// Smooth random waves between 0 and 1 along a line, `period` pixels from one to the next.
double Wave(double x, double period, int seed);

/// Smooth random hills between 0 and 1 over the plane.
double Wave2(double x, double y, double period, int seed);

/// The 4 x 4 ordered pattern: true for this share (0 to 1) of the pixels.
bool Dither(int x, int y, double share);

/// Sets a pixel if it lies inside the picture.
inline void Dot(platform::Picture& picture, int x, int y, std::uint32_t colour) {
    if (x >= 0 && y >= 0 && x < picture.width && y < picture.height) picture.At(x, y) = colour;
}

/// Fills columns `left` to `right` - 1 of rows `top` to `bottom` - 1.
void Box(platform::Picture& picture, int left, int top, int right, int bottom, std::uint32_t colour);

} // namespace pictures
