#pragma once

// The canvas: one frame in memory, drawn with immediate-mode operations between BeginDraw and EndDraw and then shown.

#include "platform/Geometry.h"
#include "platform/Picture.h"
#include "platform/Text.h"
#include "platform/Types.h"

#include <memory>
#include <string_view>

enum D2D1_ANTIALIAS_MODE { D2D1_ANTIALIAS_MODE_PER_PRIMITIVE = 0, D2D1_ANTIALIAS_MODE_ALIASED = 1 };
enum D2D1_BITMAP_INTERPOLATION_MODE {
    D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR = 0,
    D2D1_BITMAP_INTERPOLATION_MODE_LINEAR = 1
};
enum D2D1_PRESENT_OPTIONS { D2D1_PRESENT_OPTIONS_NONE = 0, D2D1_PRESENT_OPTIONS_IMMEDIATELY = 2 };

struct D2D1_ROUNDED_RECT {
    D2D1_RECT_F rect;
    float radiusX = 0.0F;
    float radiusY = 0.0F;
};

/// A picture made ready for drawing. Do not destroy it between drawing it and the end of that paint pass.
class ID2D1Bitmap {
public:
    virtual ~ID2D1Bitmap() = default;
    virtual POINT GetPixelSize() const = 0; ///< x and y hold width and height
};

/// One colour to paint with.
class ID2D1SolidColorBrush {
public:
    void SetColor(D2D1_COLOR_F newColor) { color = newColor; }
    D2D1_COLOR_F GetColor() const { return color; }

private:
    D2D1_COLOR_F color;
};

/// The canvas of a window. Coordinates are pixels under the current transform. A picture's pixel covers a destination
/// pixel whose centre falls into it (nearest sampling); shapes cover the pixels whose centres they contain (aliased).
/// Drawing outside BeginDraw and EndDraw does nothing.
class ID2D1HwndRenderTarget {
public:
    virtual ~ID2D1HwndRenderTarget() = default;
    virtual void BeginDraw() = 0;
    /// Finishes the frame and shows it. D2DERR_RECREATE_TARGET when the window can no longer show anything.
    virtual HRESULT EndDraw() = 0;
    virtual D2D1_SIZE_F GetSize() const = 0;
    virtual void SetTransform(const D2D1_MATRIX_3X2_F& transform) = 0;
    virtual void SetAntialiasMode(D2D1_ANTIALIAS_MODE mode) = 0;
    /// Fills the whole frame, whatever the transform.
    virtual void Clear(D2D1_COLOR_F color) = 0;

    /// Null if the picture is empty or memory runs out. Shares the pixels, which must not change any more.
    virtual std::unique_ptr<ID2D1Bitmap> CreateBitmap(std::shared_ptr<const platform::Picture> picturePtr) = 0;
    /// Draws the part `source` of the bitmap (in its pixels) into `destination`, its alpha multiplied by `opacity`.
    virtual void DrawBitmap(const ID2D1Bitmap& bitmap, D2D1_RECT_F destination, float opacity,
                            D2D1_BITMAP_INTERPOLATION_MODE mode, D2D1_RECT_F source) = 0;

    virtual void DrawLine(D2D1_POINT_2F from, D2D1_POINT_2F to, const ID2D1SolidColorBrush& brush, float stroke) = 0;
    virtual void DrawRectangle(D2D1_RECT_F rect, const ID2D1SolidColorBrush& brush, float stroke) = 0;
    virtual void FillRectangle(D2D1_RECT_F rect, const ID2D1SolidColorBrush& brush) = 0;
    virtual void DrawRoundedRectangle(D2D1_ROUNDED_RECT rect, const ID2D1SolidColorBrush& brush, float stroke) = 0;
    virtual void FillRoundedRectangle(D2D1_ROUNDED_RECT rect, const ID2D1SolidColorBrush& brush) = 0;
    virtual void DrawEllipse(D2D1_ELLIPSE ellipse, const ID2D1SolidColorBrush& brush, float stroke) = 0;
    virtual void FillEllipse(D2D1_ELLIPSE ellipse, const ID2D1SolidColorBrush& brush) = 0;
    virtual void DrawGeometry(const ID2D1Geometry& geometry, const ID2D1SolidColorBrush& brush, float stroke) = 0;
    virtual void FillGeometry(const ID2D1Geometry& geometry, const ID2D1SolidColorBrush& brush) = 0;
    /// Lays the text out in `box`, wrapped at word boundaries and clipped to it.
    virtual void DrawText(std::wstring_view text, const IDWriteTextFormat& format, D2D1_RECT_F box,
                          const ID2D1SolidColorBrush& brush) = 0;
    /// Draws the part of a line of text that is inside `clip`, the line's top left corner at `origin`.
    virtual void DrawTextLine(const platform::TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip,
                              const ID2D1SolidColorBrush& brush) = 0;
};

namespace platform {
/// The canvas of `window`, `width` by `height` pixels; null if it cannot be made. EndDraw shows the frame through the
/// current desktop.
std::unique_ptr<ID2D1HwndRenderTarget> CreateCanvas(HWND window, int width, int height, D2D1_PRESENT_OPTIONS present);
} // namespace platform
