#include "tests/support/ReferencePainter.h"

#include <algorithm>
#include <cmath>

namespace {

/// Rounded value / 255.
int Divided(int value) { return (2 * value + 255) / 510; }

std::uint32_t Blended(std::uint32_t source, std::uint32_t destination, int opacity) {
    const auto channel = [](std::uint32_t pixel, int shift) { return static_cast<int>(pixel >> shift & 255); };
    const int alpha = Divided(channel(source, 24) * opacity);
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int above = Divided(channel(source, shift) * opacity);
        const int below = Divided(channel(destination, shift) * (255 - alpha));
        result |= static_cast<std::uint32_t>(std::min(255, above + below)) << shift;
    }
    return result;
}

/// One coordinate of the source under a frame pixel's centre, if that is covered. `grows` tells whether the coordinate
/// grows along the screen: an edge belongs to what lies behind it in screen direction.
bool Locate(double coordinate, double low, double high, bool grows, int* pixelPtr) {
    if (grows ? coordinate < low || coordinate >= high : coordinate <= low || coordinate > high) return false;
    *pixelPtr = static_cast<int>(grows ? std::floor(coordinate) : std::ceil(coordinate) - 1.0);
    return true;
}

} // namespace

void ReferencePainter::DrawBitmap(const platform::Picture& picture, D2D1_RECT_F destination, D2D1_RECT_F source,
                                  int opacity) {
    // long double: the tests' numbers are exact in it
    const long double scaleX = (static_cast<long double>(destination.right) - destination.left) /
                               (static_cast<long double>(source.right) - source.left);
    const long double scaleY = (static_cast<long double>(destination.bottom) - destination.top) /
                               (static_cast<long double>(source.bottom) - source.top);
    const long double determinant =
        static_cast<long double>(mat.m11) * mat.m22 - static_cast<long double>(mat.m12) * mat.m21;
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            const long double centreX = x + 0.5L - mat.dx;
            const long double centreY = y + 0.5L - mat.dy;
            const long double drawingX = (centreX * mat.m22 - centreY * mat.m21) / determinant;
            const long double drawingY = (centreY * mat.m11 - centreX * mat.m12) / determinant;
            const auto column = static_cast<double>((drawingX - destination.left) / scaleX + source.left);
            const auto row = static_cast<double>((drawingY - destination.top) / scaleY + source.top);
            const bool columnGrows = (mat.m22 != 0.0F ? mat.m22 : -mat.m21) / determinant > 0.0L;
            const bool rowGrows = (mat.m11 != 0.0F ? mat.m11 : -mat.m12) / determinant > 0.0L;
            int pictureX = 0;
            int pictureY = 0;
            if (!Locate(column, source.left, source.right, columnGrows, &pictureX) ||
                !Locate(row, source.top, source.bottom, rowGrows, &pictureY)) {
                continue;
            }
            if (pictureX < 0 || pictureY < 0 || pictureX >= picture.width || pictureY >= picture.height) continue;
            frame.At(x, y) = Blended(picture.At(pictureX, pictureY), frame.At(x, y), opacity);
        }
    }
}
