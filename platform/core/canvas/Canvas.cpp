#include "platform/Canvas.h"

#include "platform/Desktop.h"
#include "platform/Pixel.h"
#include "platform/core/Backend.h"
#include "platform/core/canvas/Compositor.h"
#include "platform/core/canvas/ShapePainter.h"
#include "platform/core/canvas/TextPainter.h"
#include "platform/core/text/TextFormat.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <new>
#include <utility>

namespace platform {

namespace {

constexpr int maxSide = 16384; // pixels of a canvas

bool AreFinite(std::initializer_list<double> numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); });
}

bool IsFinite(const D2D1_MATRIX_3X2_F& mat) { return AreFinite({mat.m11, mat.m12, mat.m21, mat.m22, mat.dx, mat.dy}); }

/// Pictures are noted down and composed at the end of the frame; shapes and text are painted at once, over what was
/// noted down before them.
class Canvas final : public ID2D1HwndRenderTarget {
public:
    Canvas(HWND window, FrameMemory frameMemory, bool waitsForBlank, const Backend& backend)
        : windowPtr(window), frame(std::move(frameMemory)), waitForBlank(waitsForBlank), compositor(frame),
          shapePainterPtr(backend.makeShapePainter(frame)), textPainterPtr(backend.makeTextPainter(frame)) {}

    bool IsReady() const { return shapePainterPtr && textPainterPtr; }

    void BeginDraw() override { isDrawing = true; }

    HRESULT EndDraw() override {
        if (!isDrawing) return E_FAIL;
        compositor.Compose();
        isDrawing = false;
        const FrameView view = {frame.pixels.get(), frame.width, frame.height, frame.stride};
        return Desktop::Current().Present(windowPtr, view, waitForBlank) ? S_OK : D2DERR_RECREATE_TARGET;
    }

    D2D1_SIZE_F GetSize() const override { return {static_cast<float>(frame.width), static_cast<float>(frame.height)}; }
    void SetTransform(const D2D1_MATRIX_3X2_F& transform) override { mat = transform; }
    void SetAntialiasMode(D2D1_ANTIALIAS_MODE mode) override { antialiasMode = mode; }

    void Clear(D2D1_COLOR_F color) override {
        if (isDrawing) compositor.Clear(ToPixel(color));
    }

    std::unique_ptr<ID2D1Bitmap> CreateBitmap(std::shared_ptr<const Picture> picturePtr) override {
        if (!picturePtr || picturePtr->width <= 0 || picturePtr->height <= 0 ||
            picturePtr->pixels.size() !=
                static_cast<std::size_t>(picturePtr->width) * static_cast<std::size_t>(picturePtr->height)) {
            return nullptr;
        }
        try {
            return std::make_unique<SpriteBitmap>(std::move(picturePtr));
        } catch (const std::bad_alloc&) { return nullptr; }
    }

    void DrawBitmap(const ID2D1Bitmap& bitmap, D2D1_RECT_F destination, float opacity,
                    D2D1_BITMAP_INTERPOLATION_MODE mode, D2D1_RECT_F source) override {
        if (!isDrawing) return;
        const auto placement = Placement::Make(source, bitmap.GetPixelSize(), destination, mat);
        if (!placement) return;
        compositor.Draw(static_cast<const SpriteBitmap&>(bitmap), *placement, ToChannel(opacity),
                        mode == D2D1_BITMAP_INTERPOLATION_MODE_LINEAR);
    }

    void DrawLine(D2D1_POINT_2F from, D2D1_POINT_2F to, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&] {
            path.MoveTo(from.x, from.y);
            path.LineTo(to.x, to.y);
        });
    }
    void DrawRectangle(D2D1_RECT_F rect, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&] { path.Add(rect); });
    }
    void FillRectangle(D2D1_RECT_F rect, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&] { path.Add(rect); });
    }
    void DrawRoundedRectangle(D2D1_ROUNDED_RECT rect, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&] { path.Add(rect); });
    }
    void FillRoundedRectangle(D2D1_ROUNDED_RECT rect, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&] { path.Add(rect); });
    }
    void DrawEllipse(D2D1_ELLIPSE ellipse, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&] { path.Add(ellipse); });
    }
    void FillEllipse(D2D1_ELLIPSE ellipse, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&] { path.Add(ellipse); });
    }
    void DrawGeometry(const ID2D1Geometry& geometry, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&] { path.Add(geometry, true); });
    }
    void FillGeometry(const ID2D1Geometry& geometry, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&] { path.Add(geometry, false); });
    }

    void DrawText(std::wstring_view text, const IDWriteTextFormat& format, D2D1_RECT_F box,
                  const ID2D1SolidColorBrush& brush) override {
        if (!CanPaintShapes() || !AreFinite({box.left, box.top, box.right, box.bottom})) return;
        compositor.Compose();
        textPainterPtr->DrawBox(text, FontOf(format), box, PaintOf(brush), mat);
    }

    void DrawTextLine(const TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip,
                      const ID2D1SolidColorBrush& brush) override {
        if (!CanPaintShapes() || !AreFinite({origin.x, origin.y, clip.left, clip.top, clip.right, clip.bottom})) return;
        compositor.Compose();
        textPainterPtr->DrawLine(line, origin, clip, PaintOf(brush), mat);
    }

private:
    /// A transform that flattens everything, or is no number, shows nothing.
    bool CanPaintShapes() const {
        if (!isDrawing || !IsFinite(mat)) return false;
        const double determinant = static_cast<double>(mat.m11) * mat.m22 - static_cast<double>(mat.m12) * mat.m21;
        return std::isnormal(determinant);
    }

    Paint PaintOf(const ID2D1SolidColorBrush& brush) const {
        const D2D1_COLOR_F color = brush.GetColor();
        const std::uint32_t opaque = ToPixel({color.r, color.g, color.b, 1.0F});
        return {(opaque & 0x00FFFFFFU) | ToChannel(color.a) << 24, antialiasMode != D2D1_ANTIALIAS_MODE_ALIASED};
    }

    template <class AddPath>
    void Fill(const ID2D1SolidColorBrush& brush, const AddPath& addPath) {
        if (!CanPaintShapes() || !BuildPath(addPath)) return;
        compositor.Compose();
        shapePainterPtr->Fill(path, PaintOf(brush));
    }

    template <class AddPath>
    void Stroke(const ID2D1SolidColorBrush& brush, float width, const AddPath& addPath) {
        if (!CanPaintShapes() || !(width > 0.0F) || !std::isfinite(width) || !BuildPath(addPath)) return;
        compositor.Compose();
        shapePainterPtr->Stroke(path, PaintOf(brush), width, mat);
    }

    /// False if the shape must not be painted.
    template <class AddPath>
    bool BuildPath(const AddPath& addPath) {
        path.Begin(mat);
        addPath();
        return path.IsGood();
    }

    HWND windowPtr;
    FrameMemory frame;
    bool waitForBlank;
    Compositor compositor;
    Path path; // of the shape that is painted now; keeps its memory
    std::unique_ptr<ShapePainter> shapePainterPtr;
    std::unique_ptr<TextPainter> textPainterPtr;
    D2D1_MATRIX_3X2_F mat;
    D2D1_ANTIALIAS_MODE antialiasMode = D2D1_ANTIALIAS_MODE_ALIASED;
    bool isDrawing = false;
};

} // namespace

std::unique_ptr<ID2D1HwndRenderTarget> CreateCanvas(HWND window, int width, int height, D2D1_PRESENT_OPTIONS present) {
    if (width <= 0 || height <= 0 || width > maxSide || height > maxSide) return nullptr;
    try {
        auto canvasPtr =
            std::make_unique<Canvas>(window, MakeFrameMemory(width, height),
                                     present != D2D1_PRESENT_OPTIONS_IMMEDIATELY, Desktop::Current().GetBackend());
        return canvasPtr->IsReady() ? std::move(canvasPtr) : nullptr;
    } catch (const std::bad_alloc&) { return nullptr; }
}

} // namespace platform
