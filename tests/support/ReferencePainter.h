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
        const Number determinant = Number(mat.m11) * mat.m22 - Number(mat.m12) * mat.m21;
        const Axis columns = {destination.left, destination.right, source.left, source.right,
                              (mat.m22 != 0.0F ? mat.m22 : -mat.m21) / determinant > 0.0L};
        const Axis rows = {destination.top, destination.bottom, source.top, source.bottom,
                           (mat.m11 != 0.0F ? mat.m11 : -mat.m12) / determinant > 0.0L};
        const RECT area = Area(destination);
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                const Number centreX = x + 0.5L - mat.dx;
                const Number centreY = y + 0.5L - mat.dy;
                const int column = columns.PixelAt((centreX * mat.m22 - centreY * mat.m21) / determinant);
                const int row = rows.PixelAt((centreY * mat.m11 - centreX * mat.m12) / determinant);
                if (column < 0 || row < 0 || column >= picture.width || row >= picture.height) continue;
                frame.At(x, y) = Blended(picture.At(column, row), frame.At(x, y), opacity);
            }
        }
    }

    platform::Picture frame;

private:
    using Number = long double;

    struct Axis {
        Number begin; // of the destination
        Number end;
        Number low; // of the source
        Number high;
        bool grows; // along the screen: an edge belongs to what lies behind it in screen direction

        /// The picture pixel under a point of the destination; -1 if it is not covered.
        int PixelAt(Number point) const {
            const auto position = static_cast<double>((point - begin) * (high - low) / (end - begin) + low);
            const bool isCovered = grows ? position >= low && position < high : position > low && position <= high;
            return !isCovered ? -1 : static_cast<int>(grows ? std::floor(position) : std::ceil(position) - 1.0);
        }
    };

    /// The frame pixels around the destination, only to save time.
    RECT Area(D2D1_RECT_F destination) const {
        const auto side = [&](float factorX, float factorY, float shift, int length, bool last) {
            const auto [left, right] = std::minmax({factorX * destination.left, factorX * destination.right});
            const auto [top, bottom] = std::minmax({factorY * destination.top, factorY * destination.bottom});
            const float edge = last ? right + bottom + shift + 2.0F : left + top + shift - 2.0F;
            return static_cast<int>(std::clamp(edge, 0.0F, static_cast<float>(length)));
        };
        return {side(mat.m11, mat.m21, mat.dx, frame.width, false), side(mat.m12, mat.m22, mat.dy, frame.height, false),
                side(mat.m11, mat.m21, mat.dx, frame.width, true), side(mat.m12, mat.m22, mat.dy, frame.height, true)};
    }

    static std::uint32_t Blended(std::uint32_t source, std::uint32_t destination, int opacity) {
        const auto channel = [](std::uint32_t pixel, int shift) { return static_cast<int>(pixel >> shift & 255); };
        const auto divided = [](int value) { return (2 * value + 255) / 510; }; // rounded value / 255
        const int alpha = divided(channel(source, 24) * opacity);
        std::uint32_t result = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            const int above = divided(channel(source, shift) * opacity);
            const int below = divided(channel(destination, shift) * (255 - alpha));
            result |= static_cast<std::uint32_t>(std::min(255, above + below)) << shift;
        }
        return result;
    }

    D2D1_MATRIX_3X2_F mat;
};
