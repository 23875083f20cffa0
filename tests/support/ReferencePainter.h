#pragma once

#include "platform/Canvas.h"
#include "platform/Picture.h"

/// Says what a canvas must show, one pixel after the other and without any haste: a frame pixel is covered when its
/// centre is in the destination (the left and the top edge on the screen belong to it), and shows the picture pixel in
/// which its centre falls.
class ReferencePainter {
public:
    ReferencePainter(int width, int height, std::uint32_t pixel) : frame(width, height, pixel) {}

    void SetTransform(const D2D1_MATRIX_3X2_F& transform) { mat = transform; }
    /// `opacity` from 0 to 255.
    void DrawBitmap(const platform::Picture& picture, D2D1_RECT_F destination, D2D1_RECT_F source, int opacity = 255);

    platform::Picture frame;

private:
    D2D1_MATRIX_3X2_F mat;
};
