#pragma once

#include "platform/Canvas.h"
#include "platform/Picture.h"

#include <algorithm>
#include <cmath>

/// Says what a canvas must show, one pixel after the other and without any haste: a frame pixel is covered when its
/// centre is in the destination (the left and the top edge on the screen belong to it), and shows the picture pixel in
/// which its centre falls. Works in long double, in which the tests' numbers are exact.
class ReferencePainter {
public:
    ReferencePainter(int width, int height, std::uint32_t pixel) : frame(width, height, pixel) {}

    void SetTransform(const D2D1_MATRIX_3X2_F& transform) { mat = transform; }

    /// `opacity` from 0 to 255.
    void DrawBitmap(const platform::Picture& picture, D2D1_RECT_F destination, D2D1_RECT_F source, int opacity = 255) {
        const long double scaleX = (static_cast<long double>(destination.right) - destination.left) /
                                   (static_cast<long double>(source.right) - source.left);
        const long double scaleY = (static_cast<long double>(destination.bottom) - destination.top) /
                                   (static_cast<long double>(source.bottom) - source.top);
        const long double determinant =
            static_cast<long double>(mat.m11) * mat.m22 - static_cast<long double>(mat.m12) * mat.m21;
        const bool columnGrows = (mat.m22 != 0.0F ? mat.m22 : -mat.m21) / determinant > 0.0L;
        const bool rowGrows = (mat.m11 != 0.0F ? mat.m11 : -mat.m12) / determinant > 0.0L;
        const RECT area = Area(destination);
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                const long double centreX = x + 0.5L - mat.dx;
                const long double centreY = y + 0.5L - mat.dy;
                const long double drawingX = (centreX * mat.m22 - centreY * mat.m21) / determinant;
                const long double drawingY = (centreY * mat.m11 - centreX * mat.m12) / determinant;
                const auto column = static_cast<double>((drawingX - destination.left) / scaleX + source.left);
                const auto row = static_cast<double>((drawingY - destination.top) / scaleY + source.top);
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

    platform::Picture frame;

private:
    /// The frame pixels around the destination, only to save time.
    RECT Area(D2D1_RECT_F destination) const {
        double left = 1e9;
        double top = 1e9;
        double right = -1e9;
        double bottom = -1e9;
        for (const float x : {destination.left, destination.right}) {
            for (const float y : {destination.top, destination.bottom}) {
                left = std::min<double>(left, x * mat.m11 + y * mat.m21 + mat.dx);
                right = std::max<double>(right, x * mat.m11 + y * mat.m21 + mat.dx);
                top = std::min<double>(top, x * mat.m12 + y * mat.m22 + mat.dy);
                bottom = std::max<double>(bottom, x * mat.m12 + y * mat.m22 + mat.dy);
            }
        }
        const auto inside = [](double position, int length) {
            return static_cast<int>(std::clamp(position, 0.0, static_cast<double>(length)));
        };
        return {inside(left - 2.0, frame.width), inside(top - 2.0, frame.height), inside(right + 2.0, frame.width),
                inside(bottom + 2.0, frame.height)};
    }

    /// One coordinate of the source under a frame pixel's centre, if that is covered. `grows` tells whether the
    /// coordinate grows along the screen: an edge belongs to what lies behind it in screen direction.
    static bool Locate(double coordinate, double low, double high, bool grows, int* pixelPtr) {
        if (grows ? coordinate < low || coordinate >= high : coordinate <= low || coordinate > high) return false;
        *pixelPtr = static_cast<int>(grows ? std::floor(coordinate) : std::ceil(coordinate) - 1.0);
        return true;
    }

    /// Rounded value / 255.
    static int Divided(int value) { return (2 * value + 255) / 510; }

    static std::uint32_t Blended(std::uint32_t source, std::uint32_t destination, int opacity) {
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

    D2D1_MATRIX_3X2_F mat;
};
