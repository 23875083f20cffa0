#include "platform/Canvas.h"

#include "platform/Desktop.h"
#include "platform/Pixel.h"
#include "platform/core/canvas/Compositor.h"
#include "platform/pango/TextPainter.h"

#include <cairo/cairo.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <new>

namespace platform {

namespace {

constexpr int maxSide = 16384;      // pixels of a canvas
constexpr double farAway = 1 << 20; // pixels: the path library's fixed-point numbers hold it with room for strokes
constexpr float flattening = 0.25F; // pixels: how exactly curves of a geometry are followed
constexpr double quarterCircle = 0.5522847498307936; // control point distance of a cubic that follows a quarter circle

struct ContextDeleter {
    void operator()(cairo_t* contextPtr) const { cairo_destroy(contextPtr); }
};
using ContextPtr = std::unique_ptr<cairo_t, ContextDeleter>;
struct SurfaceDeleter {
    void operator()(cairo_surface_t* surfacePtr) const { cairo_surface_destroy(surfacePtr); }
};
using SurfacePtr = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

bool AreFinite(std::initializer_list<double> numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); });
}

bool IsFinite(const D2D1_MATRIX_3X2_F& mat) { return AreFinite({mat.m11, mat.m12, mat.m21, mat.m22, mat.dx, mat.dy}); }

/// Adds points to a path that is kept in frame pixels, so that a shape of any size stays within what the path library
/// can hold. A point that is no number spoils the path.
class PathBuilder {
public:
    PathBuilder(cairo_t* cairoPtr, const D2D1_MATRIX_3X2_F& transform) : contextPtr(cairoPtr), mat(transform) {}

    void MoveTo(double x, double y) {
        const Point to = At(x, y);
        if (isGood) cairo_move_to(contextPtr, to.x, to.y);
    }
    void LineTo(double x, double y) {
        const Point to = At(x, y);
        if (isGood) cairo_line_to(contextPtr, to.x, to.y);
    }
    void CurveTo(double x1, double y1, double x2, double y2, double x3, double y3) {
        const Point first = At(x1, y1);
        const Point second = At(x2, y2);
        const Point to = At(x3, y3);
        if (isGood) cairo_curve_to(contextPtr, first.x, first.y, second.x, second.y, to.x, to.y);
    }
    void Close() {
        if (isGood) cairo_close_path(contextPtr);
    }
    bool IsGood() const { return isGood; }

    void Add(D2D1_RECT_F rect) {
        MoveTo(rect.left, rect.top);
        LineTo(rect.right, rect.top);
        LineTo(rect.right, rect.bottom);
        LineTo(rect.left, rect.bottom);
        Close();
    }
    void Add(const D2D1_ROUNDED_RECT& rounded) {
        const auto [left, right] = std::minmax({rounded.rect.left, rounded.rect.right});
        const auto [top, bottom] = std::minmax({rounded.rect.top, rounded.rect.bottom});
        AddRounded(left, top, right, bottom, rounded.radiusX, rounded.radiusY);
    }
    /// An ellipse is a rounded rectangle without straight sides.
    void Add(const D2D1_ELLIPSE& ellipse) {
        const double radiusX = std::abs(ellipse.radiusX);
        const double radiusY = std::abs(ellipse.radiusY);
        AddRounded(ellipse.point.x - radiusX, ellipse.point.y - radiusY, ellipse.point.x + radiusX,
                   ellipse.point.y + radiusY, radiusX, radiusY);
    }

private:
    struct Point {
        double x;
        double y;
    };

    Point At(double x, double y) {
        const double frameX = x * mat.m11 + y * mat.m21 + mat.dx;
        const double frameY = x * mat.m12 + y * mat.m22 + mat.dy;
        isGood = isGood && !std::isnan(frameX) && !std::isnan(frameY);
        return {std::clamp(frameX, -farAway, farAway), std::clamp(frameY, -farAway, farAway)};
    }

    void AddRounded(double left, double top, double right, double bottom, double radiusX, double radiusY) {
        const double x = std::clamp(radiusX, 0.0, (right - left) / 2.0);
        const double y = std::clamp(radiusY, 0.0, (bottom - top) / 2.0);
        const double flatX = x * (1.0 - quarterCircle);
        const double flatY = y * (1.0 - quarterCircle);
        MoveTo(left + x, top);
        LineTo(right - x, top);
        CurveTo(right - flatX, top, right, top + flatY, right, top + y);
        LineTo(right, bottom - y);
        CurveTo(right, bottom - flatY, right - flatX, bottom, right - x, bottom);
        LineTo(left + x, bottom);
        CurveTo(left + flatX, bottom, left, bottom - flatY, left, bottom - y);
        LineTo(left, top + y);
        CurveTo(left, top + flatY, left + flatX, top, left + x, top);
        Close();
    }

    cairo_t* contextPtr;
    const D2D1_MATRIX_3X2_F& mat;
    bool isGood = true;
};

/// Receives a geometry's figures as a path.
class PathSink final : public ID2D1SimplifiedGeometrySink {
public:
    /// Filling leaves hollow figures out.
    PathSink(PathBuilder& pathBuilder, bool takesHollow) : path(pathBuilder), takesHollowFigures(takesHollow) {}

    HRESULT QueryInterface() override { return E_NOTIMPL; }
    UINT AddRef() override { return 1; }
    UINT Release() override { return 1; }
    void SetFillMode(D2D1_FILL_MODE) override {}
    void SetSegmentFlags(D2D1_PATH_SEGMENT) override {}
    void BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) override {
        isTaken = takesHollowFigures || begin == D2D1_FIGURE_BEGIN_FILLED;
        if (isTaken) path.MoveTo(start.x, start.y);
    }
    void AddLines(const D2D1_POINT_2F* points, UINT count) override {
        for (UINT index = 0; isTaken && index < count; ++index) path.LineTo(points[index].x, points[index].y);
    }
    void AddBeziers(const D2D1_BEZIER_SEGMENT* beziers, UINT count) override {
        for (UINT index = 0; isTaken && index < count; ++index) {
            const D2D1_BEZIER_SEGMENT& bezier = beziers[index];
            path.CurveTo(bezier.point1.x, bezier.point1.y, bezier.point2.x, bezier.point2.y, bezier.point3.x,
                         bezier.point3.y);
        }
    }
    void EndFigure(D2D1_FIGURE_END end) override {
        if (isTaken && end == D2D1_FIGURE_END_CLOSED) path.Close();
    }
    HRESULT Close() override { return S_OK; }

private:
    PathBuilder& path;
    bool takesHollowFigures;
    bool isTaken = true;
};

void AddGeometry(PathBuilder& path, const ID2D1Geometry& geometry, bool withHollow) {
    PathSink sink(path, withHollow);
    geometry.Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES, flattening, sink);
}

/// Pictures are noted down and composed at the end of the frame; shapes and text are painted at once, over what was
/// noted down before them.
class Canvas final : public ID2D1HwndRenderTarget {
public:
    Canvas(HWND window, FrameMemory frameMemory, bool waitsForBlank)
        : windowPtr(window), frame(std::move(frameMemory)), waitForBlank(waitsForBlank), compositor(frame),
          surfacePtr(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(frame.pixels.get()),
                                                         CAIRO_FORMAT_ARGB32, frame.width, frame.height,
                                                         frame.stride * static_cast<int>(sizeof(std::uint32_t)))) {}

    bool IsReady() const { return cairo_surface_status(surfacePtr.get()) == CAIRO_STATUS_SUCCESS; }

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
        Stroke(brush, stroke, [&](PathBuilder& path) {
            path.MoveTo(from.x, from.y);
            path.LineTo(to.x, to.y);
        });
    }
    void DrawRectangle(D2D1_RECT_F rect, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&](PathBuilder& path) { path.Add(rect); });
    }
    void FillRectangle(D2D1_RECT_F rect, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&](PathBuilder& path) { path.Add(rect); });
    }
    void DrawRoundedRectangle(D2D1_ROUNDED_RECT rect, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&](PathBuilder& path) { path.Add(rect); });
    }
    void FillRoundedRectangle(D2D1_ROUNDED_RECT rect, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&](PathBuilder& path) { path.Add(rect); });
    }
    void DrawEllipse(D2D1_ELLIPSE ellipse, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&](PathBuilder& path) { path.Add(ellipse); });
    }
    void FillEllipse(D2D1_ELLIPSE ellipse, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&](PathBuilder& path) { path.Add(ellipse); });
    }
    void DrawGeometry(const ID2D1Geometry& geometry, const ID2D1SolidColorBrush& brush, float stroke) override {
        Stroke(brush, stroke, [&](PathBuilder& path) { AddGeometry(path, geometry, true); });
    }
    void FillGeometry(const ID2D1Geometry& geometry, const ID2D1SolidColorBrush& brush) override {
        Fill(brush, [&](PathBuilder& path) { AddGeometry(path, geometry, false); });
    }

    void DrawText(std::wstring_view text, const IDWriteTextFormat& format, D2D1_RECT_F box,
                  const ID2D1SolidColorBrush& brush) override {
        if (!CanPaintShapes() || !AreFinite({box.left, box.top, box.right, box.bottom})) return;
        const ContextPtr contextPtr = BeginShape(brush);
        SetContextTransform(contextPtr.get());
        textPainter.Draw(contextPtr.get(), text, format, box);
    }

    void DrawTextLine(const TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip,
                      const ID2D1SolidColorBrush& brush) override {
        if (!CanPaintShapes() || !AreFinite({origin.x, origin.y, clip.left, clip.top, clip.right, clip.bottom})) return;
        const ContextPtr contextPtr = BeginShape(brush);
        SetContextTransform(contextPtr.get());
        textPainter.Draw(contextPtr.get(), line, origin, clip);
    }

private:
    /// A transform that flattens everything, or is no number, shows nothing.
    bool CanPaintShapes() const {
        if (!isDrawing || !IsFinite(mat)) return false;
        const double determinant = static_cast<double>(mat.m11) * mat.m22 - static_cast<double>(mat.m12) * mat.m21;
        return std::isnormal(determinant);
    }

    /// A fresh context for every shape: one that met an error would refuse everything after it.
    ContextPtr BeginShape(const ID2D1SolidColorBrush& brush) {
        compositor.Compose();
        cairo_surface_mark_dirty(surfacePtr.get());
        ContextPtr contextPtr(cairo_create(surfacePtr.get()));
        const bool isAliased = antialiasMode == D2D1_ANTIALIAS_MODE_ALIASED;
        cairo_set_antialias(contextPtr.get(), isAliased ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
        const std::uint32_t color = ToPixel({brush.GetColor().r, brush.GetColor().g, brush.GetColor().b, 1.0F});
        cairo_set_source_rgba(contextPtr.get(), (color >> 16 & 255) / 255.0, (color >> 8 & 255) / 255.0,
                              (color & 255) / 255.0, ToChannel(brush.GetColor().a) / 255.0);
        return contextPtr;
    }

    void SetContextTransform(cairo_t* contextPtr) const {
        const cairo_matrix_t matrix = {mat.m11, mat.m12, mat.m21, mat.m22, mat.dx, mat.dy};
        cairo_set_matrix(contextPtr, &matrix);
    }

    template <class AddPath>
    void Fill(const ID2D1SolidColorBrush& brush, const AddPath& addPath) {
        if (!CanPaintShapes()) return;
        const ContextPtr contextPtr = BeginShape(brush);
        PathBuilder path(contextPtr.get(), mat);
        addPath(path);
        if (!path.IsGood()) return;
        cairo_set_fill_rule(contextPtr.get(), CAIRO_FILL_RULE_EVEN_ODD);
        cairo_fill(contextPtr.get());
    }

    template <class AddPath>
    void Stroke(const ID2D1SolidColorBrush& brush, float width, const AddPath& addPath) {
        if (!CanPaintShapes() || !(width > 0.0F) || !std::isfinite(width)) return;
        const ContextPtr contextPtr = BeginShape(brush);
        PathBuilder path(contextPtr.get(), mat);
        addPath(path);
        if (!path.IsGood()) return;
        // the path is in frame pixels already; what is left to the transform is the pen
        SetContextTransform(contextPtr.get());
        cairo_set_line_width(contextPtr.get(), width);
        cairo_stroke(contextPtr.get());
    }

    HWND windowPtr;
    FrameMemory frame;
    bool waitForBlank;
    Compositor compositor;
    SurfacePtr surfacePtr;
    TextPainter textPainter;
    D2D1_MATRIX_3X2_F mat;
    D2D1_ANTIALIAS_MODE antialiasMode = D2D1_ANTIALIAS_MODE_ALIASED;
    bool isDrawing = false;
};

} // namespace

std::unique_ptr<ID2D1HwndRenderTarget> CreateCanvas(HWND window, int width, int height, D2D1_PRESENT_OPTIONS present) {
    if (width <= 0 || height <= 0 || width > maxSide || height > maxSide) return nullptr;
    try {
        auto canvasPtr = std::make_unique<Canvas>(window, MakeFrameMemory(width, height),
                                                  present != D2D1_PRESENT_OPTIONS_IMMEDIATELY);
        return canvasPtr->IsReady() ? std::move(canvasPtr) : nullptr;
    } catch (const std::bad_alloc&) { return nullptr; }
}

} // namespace platform
