#pragma once

// How the desktop's own controls look: light, rounded, one accent colour.

#include "platform/Canvas.h"

#include <cstdint>

namespace platform::theme {

constexpr D2D1_COLOR_F Colour(std::uint32_t rgb, float alpha = 1.0F) {
    const auto channel = [rgb](int shift) { return static_cast<float>(rgb >> shift & 255U) / 255.0F; };
    return {channel(16), channel(8), channel(0), alpha};
}

/// `share` of `over` and the rest of `under`.
constexpr D2D1_COLOR_F Mixed(D2D1_COLOR_F under, D2D1_COLOR_F over, float share) {
    const auto mix = [share](float a, float b) { return a + (b - a) * share; };
    return {mix(under.r, over.r), mix(under.g, over.g), mix(under.b, over.b), under.a};
}

constexpr D2D1_COLOR_F accent = Colour(0x2F6FDE);
constexpr D2D1_COLOR_F ink = Colour(0x1D2430);
constexpr D2D1_COLOR_F inkDisabled = Colour(0xA3A9B3);
constexpr D2D1_COLOR_F paper = Colour(0xFFFFFF);
constexpr D2D1_COLOR_F face = Colour(0xFBFCFD);
constexpr D2D1_COLOR_F faceHovered = Colour(0xF1F5FC);
constexpr D2D1_COLOR_F facePressed = Colour(0xDFE8F7);
constexpr D2D1_COLOR_F faceDisabled = Colour(0xF3F4F6);
constexpr D2D1_COLOR_F border = Colour(0xC6CBD4);
constexpr D2D1_COLOR_F borderHovered = Colour(0x97A3B6);
constexpr D2D1_COLOR_F borderPressed = Colour(0x7F9BCB);
constexpr D2D1_COLOR_F borderDisabled = Colour(0xE1E4E9);
constexpr D2D1_COLOR_F edge = Colour(0x7C869A); // mixed with what it surrounds
constexpr D2D1_COLOR_F shadow = Colour(0x1D2430, 0.07F);

constexpr float radius = 6.0F;
constexpr float ringWidth = 2.0F;

inline D2D1_RECT_F Grown(D2D1_RECT_F rect, float by) {
    return {rect.left - by, rect.top - by, rect.right + by, rect.bottom + by};
}

inline void Fill(ID2D1HwndRenderTarget& canvas, D2D1_RECT_F rect, D2D1_COLOR_F colour, float corner = radius) {
    ID2D1SolidColorBrush brush;
    brush.SetColor(colour);
    canvas.FillRoundedRectangle({rect, corner, corner}, brush);
}

/// A line of `width` along the inner side of the edge.
inline void Outline(ID2D1HwndRenderTarget& canvas, D2D1_RECT_F rect, D2D1_COLOR_F colour, float width = 1.0F,
                    float corner = radius) {
    ID2D1SolidColorBrush brush;
    brush.SetColor(colour);
    const float inner = corner - width / 2.0F;
    canvas.DrawRoundedRectangle({Grown(rect, -width / 2.0F), inner, inner}, brush, width);
}

} // namespace platform::theme
