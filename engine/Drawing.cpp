// The drawing half of GameEngine: the paint pass, the drawing state and the drawing operations.

#include "engine/Bitmap.h"
#include "engine/GameEngine.h"
#include "engine/HitRegion.h"
#include "platform/Desktop.h"

#include <string>

namespace {

float ToFloat(double value) { return static_cast<float>(value); }

RECT2 ToRect2(int left, int top, int right, int bottom) {
    return {static_cast<double>(left), static_cast<double>(top), static_cast<double>(right),
            static_cast<double>(bottom)};
}
RECT2 ToRect2(RECT rect) { return ToRect2(rect.left, rect.top, rect.right, rect.bottom); }

D2D1_RECT_F ToRectF(RECT2 rect) {
    return {ToFloat(rect.left), ToFloat(rect.top), ToFloat(rect.right), ToFloat(rect.bottom)};
}

D2D1_ROUNDED_RECT ToRoundedRect(RECT2 rect, int radiusX, int radiusY) {
    return {ToRectF(rect), static_cast<float>(radiusX), static_cast<float>(radiusY)};
}

D2D1_ELLIPSE ToEllipse(DOUBLE2 centre, int radiusX, int radiusY) {
    return {centre.ToPoint2F(), static_cast<float>(radiusX), static_cast<float>(radiusY)};
}

DOUBLE2 ToDouble2(POINT point) { return {static_cast<double>(point.x), static_cast<double>(point.y)}; }
DOUBLE2 ToDouble2(DOUBLE2 point) { return point; }

/// The lines of a polygon, for whole and double coordinates alike.
template <typename Point>
bool DrawPolygonLines(GameEngine& engine, const Point pts[], int count, bool close, double strokeWidth) {
    if (count < 2) return false;
    for (int i = 1; i < count; ++i) engine.DrawLine(ToDouble2(pts[i - 1]), ToDouble2(pts[i]), strokeWidth);
    if (close) engine.DrawLine(ToDouble2(pts[0]), ToDouble2(pts[count - 1]), strokeWidth);
    return true;
}

template <typename Point>
bool FillPolygonPath(GameEngine& engine, ID2D1HwndRenderTarget& target, const ID2D1SolidColorBrush& brush,
                     const Point pts[], int count) {
    if (count < 2) return false;
    const auto pathPtr = engine.GetD2DFactory()->CreatePathGeometry();
    if (!pathPtr) {
        engine.MessageBox(L"Failed to create path geometry");
        return false;
    }
    ID2D1GeometrySink* sinkPtr = nullptr;
    if (pathPtr->Open(&sinkPtr) < 0) {
        engine.MessageBox(L"Failed to open path geometry");
        return false;
    }
    sinkPtr->BeginFigure(ToDouble2(pts[0]).ToPoint2F(), D2D1_FIGURE_BEGIN_FILLED);
    for (int i = 1; i < count; ++i) sinkPtr->AddLine(ToDouble2(pts[i]).ToPoint2F());
    sinkPtr->EndFigure(D2D1_FIGURE_END_CLOSED);
    if (sinkPtr->Close() >= 0) target.FillGeometry(*pathPtr, brush);
    return true;
}

} // namespace

// Resources

void GameEngine::CreateDeviceIndependentResources() {
    if (!D2DFactoryPtr) D2DFactoryPtr = platform::CreateGeometryFactory();
    if (!D2DFactoryPtr) Fail(L"Create D2D Factory Failed");
    if (!WICFactoryPtr) WICFactoryPtr = platform::CreateImagingFactory();
    if (!WICFactoryPtr) Fail(L"Create WIC Factory Failed");
    if (!DWriteFactoryPtr) DWriteFactoryPtr = platform::CreateTextFactory();
    if (!DWriteFactoryPtr) Fail(L"Create WRITE Factory Failed");
}

void GameEngine::CreateDeviceResources() {
    if (renderTargetPtr) return;
    const D2D1_PRESENT_OPTIONS present = vSync ? D2D1_PRESENT_OPTIONS_NONE : D2D1_PRESENT_OPTIONS_IMMEDIATELY;
    renderTargetPtr = platform::CreateCanvas(hWindow, width, height, present);
    if (!renderTargetPtr) Fail(L"Create CreateDeviceResources Failed");
    renderTargetPtr->SetAntialiasMode(antialiasMode);
    colorBrushPtr = std::make_unique<ID2D1SolidColorBrush>();
    defaultFontPtr = std::make_unique<Font>(L"Consolas", 12.0F);
    userFontPtr = defaultFontPtr.get();
    deviceResourcesCreated = true;
}

void GameEngine::DiscardDeviceResources() {
    colorBrushPtr.reset();
    renderTargetPtr.reset();
    deviceResourcesCreated = false;
}

// The paint pass

void GameEngine::PaintFrame() {
    D2DBeginPaint();
    isPainting = true;
    gamePtr->GamePaint({0, 0, width, height});
    isPainting = false;
    if (!D2DEndPaint()) QuitGame();
}

void GameEngine::D2DBeginPaint() {
    if (!renderTargetPtr) return;
    renderTargetPtr->BeginDraw();
    renderTargetPtr->SetTransform({}); // the identity; the stored world matrix stays what the game set last
    renderTargetPtr->Clear({1.0F, 1.0F, 1.0F, 1.0F});
}

bool GameEngine::D2DEndPaint() {
    if (!renderTargetPtr) return true;
    platform::Desktop::Current().PaintControls(hWindow, *renderTargetPtr);
    renderTargetPtr->SetAntialiasMode(antialiasMode);
    if (renderTargetPtr->EndDraw() != D2DERR_RECREATE_TARGET) return true;
    MessageBox(L" Direct2D error: RenderTarget lost.\nThe gameEngine terminates the game.\n");
    return false;
}

bool GameEngine::CanPaint() {
    if (!isPainting) MessageBox(L"Painting from outside the GamePaint()...\n\nYOU SHALL NOT PASS!!!");
    return isPainting;
}

// Drawing state

void GameEngine::SetColor(COLOR color) {
    if (!colorBrushPtr) return;
    const auto channel = [](unsigned char value) { return static_cast<float>(value) / 255.0F; };
    colorBrushPtr->SetColor({channel(color.red), channel(color.green), channel(color.blue), channel(color.alpha)});
}

COLOR GameEngine::GetColor() const {
    if (!colorBrushPtr) return {0, 0, 0, 255};
    const auto channel = [](float value) { return static_cast<unsigned char>(value * 255.0F); };
    const D2D1_COLOR_F color = colorBrushPtr->GetColor();
    return {channel(color.r), channel(color.g), channel(color.b), channel(color.a)};
}

void GameEngine::SetWorldMatrix(MATRIX3X2 mat) {
    worldMatrix = mat;
    if (renderTargetPtr) renderTargetPtr->SetTransform(mat.ToMatrix3x2F());
}

void GameEngine::SetBitmapInterpolationModeLinear() { bitmapInterpolationMode = D2D1_BITMAP_INTERPOLATION_MODE_LINEAR; }

void GameEngine::SetBitmapInterpolationModeNearestNeighbor() {
    bitmapInterpolationMode = D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR;
}

void GameEngine::EnableAntiAlias(bool enable) {
    antialiasMode = enable ? D2D1_ANTIALIAS_MODE_PER_PRIMITIVE : D2D1_ANTIALIAS_MODE_ALIASED;
    if (renderTargetPtr) renderTargetPtr->SetAntialiasMode(antialiasMode);
}

// Bitmaps

bool GameEngine::DrawBitmap(Bitmap* bitmapPtr) { return DrawBitmap(bitmapPtr, DOUBLE2()); }

bool GameEngine::DrawBitmap(Bitmap* bitmapPtr, int x, int y) { return DrawBitmap(bitmapPtr, ToDouble2(POINT{x, y})); }

bool GameEngine::DrawBitmap(Bitmap* bitmapPtr, DOUBLE2 position) {
    return DrawBitmap(bitmapPtr, position, ToRect2(0, 0, bitmapPtr->GetWidth(), bitmapPtr->GetHeight()));
}

bool GameEngine::DrawBitmap(Bitmap* bitmapPtr, int x, int y, RECT srcRect) {
    return DrawBitmap(bitmapPtr, ToDouble2(POINT{x, y}), ToRect2(srcRect));
}

bool GameEngine::DrawBitmap(Bitmap* bitmapPtr, DOUBLE2 position, RECT2 srcRect) {
    if (!CanPaint()) return false;
    if (bitmapPtr->GetBitmapPtr() == nullptr) return true;
    const RECT2 destination(position.x, position.y, position.x + (srcRect.right - srcRect.left),
                            position.y + (srcRect.bottom - srcRect.top));
    renderTargetPtr->DrawBitmap(*bitmapPtr->GetBitmapPtr(), ToRectF(destination), ToFloat(bitmapPtr->GetOpacity()),
                                bitmapInterpolationMode, ToRectF(srcRect));
    return true;
}

// Lines and rectangles

void GameEngine::DrawLine(int x1, int y1, int x2, int y2) {
    DrawLine(ToDouble2(POINT{x1, y1}), ToDouble2(POINT{x2, y2}), 1.0);
}

bool GameEngine::DrawLine(DOUBLE2 p1, DOUBLE2 p2, double strokeWidth) {
    if (!CanPaint()) return false;
    renderTargetPtr->DrawLine(p1.ToPoint2F(), p2.ToPoint2F(), *colorBrushPtr, ToFloat(strokeWidth));
    return true;
}

bool GameEngine::DrawRect(int left, int top, int right, int bottom) {
    return DrawRect(ToRect2(left, top, right, bottom));
}

bool GameEngine::DrawRect(RECT rect) { return DrawRect(ToRect2(rect)); }

bool GameEngine::DrawRect(RECT2 rect, double strokeWidth) {
    if (!CanPaint()) return false;
    renderTargetPtr->DrawRectangle(ToRectF(rect), *colorBrushPtr, ToFloat(strokeWidth));
    return true;
}

bool GameEngine::DrawRect(double left, double top, double right, double bottom, double strokeWidth) {
    return DrawRect(RECT2(left, top, right, bottom), strokeWidth);
}

bool GameEngine::FillRect(int left, int top, int right, int bottom) {
    return FillRect(ToRect2(left, top, right, bottom));
}

bool GameEngine::FillRect(RECT rect) { return FillRect(ToRect2(rect)); }

bool GameEngine::FillRect(RECT2 rect) {
    if (!CanPaint()) return false;
    renderTargetPtr->FillRectangle(ToRectF(rect), *colorBrushPtr);
    return true;
}

bool GameEngine::FillRect(double left, double top, double right, double bottom) {
    return FillRect(RECT2(left, top, right, bottom));
}

bool GameEngine::DrawRoundedRect(int left, int top, int right, int bottom, int radiusX, int radiusY) {
    return DrawRoundedRect(ToRect2(left, top, right, bottom), radiusX, radiusY);
}

bool GameEngine::DrawRoundedRect(RECT rect, int radiusX, int radiusY) {
    return DrawRoundedRect(ToRect2(rect), radiusX, radiusY);
}

bool GameEngine::DrawRoundedRect(RECT2 rect, int radiusX, int radiusY, double strokeWidth) {
    if (!CanPaint()) return false;
    renderTargetPtr->DrawRoundedRectangle(ToRoundedRect(rect, radiusX, radiusY), *colorBrushPtr, ToFloat(strokeWidth));
    return true;
}

bool GameEngine::DrawRoundedRect(double left, double top, double right, double bottom, int radiusX, int radiusY,
                                 double strokeWidth) {
    return DrawRoundedRect(RECT2(left, top, right, bottom), radiusX, radiusY, strokeWidth);
}

bool GameEngine::FillRoundedRect(int left, int top, int right, int bottom, int radiusX, int radiusY) {
    return FillRoundedRect(ToRect2(left, top, right, bottom), radiusX, radiusY);
}

bool GameEngine::FillRoundedRect(RECT rect, int radiusX, int radiusY) {
    return FillRoundedRect(ToRect2(rect), radiusX, radiusY);
}

bool GameEngine::FillRoundedRect(RECT2 rect, int radiusX, int radiusY) {
    if (!CanPaint()) return false;
    renderTargetPtr->FillRoundedRectangle(ToRoundedRect(rect, radiusX, radiusY), *colorBrushPtr);
    return true;
}

bool GameEngine::FillRoundedRect(double left, double top, double right, double bottom, int radiusX, int radiusY) {
    return FillRoundedRect(RECT2(left, top, right, bottom), radiusX, radiusY);
}

// Ellipses and polygons

bool GameEngine::DrawEllipse(int centerX, int centerY, int radiusX, int radiusY) {
    return DrawEllipse(ToDouble2(POINT{centerX, centerY}), radiusX, radiusY);
}

bool GameEngine::DrawEllipse(DOUBLE2 centerPt, int radiusX, int radiusY, double strokeWidth) {
    if (!CanPaint()) return false;
    renderTargetPtr->DrawEllipse(ToEllipse(centerPt, radiusX, radiusY), *colorBrushPtr, ToFloat(strokeWidth));
    return true;
}

bool GameEngine::FillEllipse(int centerX, int centerY, int radiusX, int radiusY) {
    return FillEllipse(ToDouble2(POINT{centerX, centerY}), radiusX, radiusY);
}

bool GameEngine::FillEllipse(DOUBLE2 centerPt, int radiusX, int radiusY) {
    if (!CanPaint()) return false;
    renderTargetPtr->FillEllipse(ToEllipse(centerPt, radiusX, radiusY), *colorBrushPtr);
    return true;
}

bool GameEngine::DrawPolygon(POINT ptsArr[], int count, bool close) {
    return CanPaint() && DrawPolygonLines(*this, ptsArr, count, close, 1.0);
}

bool GameEngine::DrawPolygon(DOUBLE2 ptsArr[], int count, bool close, double strokeWidth) {
    return CanPaint() && DrawPolygonLines(*this, ptsArr, count, close, strokeWidth);
}

bool GameEngine::FillPolygon(POINT ptsArr[], int count) {
    return CanPaint() && FillPolygonPath(*this, *renderTargetPtr, *colorBrushPtr, ptsArr, count);
}

bool GameEngine::FillPolygon(DOUBLE2 ptsArr[], int count) {
    return CanPaint() && FillPolygonPath(*this, *renderTargetPtr, *colorBrushPtr, ptsArr, count);
}

// Hit regions

bool GameEngine::DrawHitRegion(HitRegion* regionPtr) {
    if (!CanPaint()) return false;
    if (const ID2D1Geometry* geometryPtr = regionPtr->GetGeometry()) {
        renderTargetPtr->DrawGeometry(*geometryPtr, *colorBrushPtr, 1.0F);
    }
    SetWorldMatrix(worldMatrix);
    return true;
}

bool GameEngine::FillHitRegion(HitRegion* regionPtr) {
    if (!CanPaint()) return false;
    if (const ID2D1Geometry* geometryPtr = regionPtr->GetGeometry()) {
        renderTargetPtr->FillGeometry(*geometryPtr, *colorBrushPtr);
    }
    SetWorldMatrix(worldMatrix);
    return true;
}

// Text and the rest

bool GameEngine::DrawString(String text, int left, int top, int right, int bottom) {
    return DrawString(text, ToDouble2(POINT{left, top}), right, bottom);
}

bool GameEngine::DrawString(String text, DOUBLE2 topLeft, double right, double bottom) {
    if (!CanPaint()) return false;
    const D2D1_SIZE_F size = renderTargetPtr->GetSize();
    if (right == -1.0) right = static_cast<int>(size.width);
    if (bottom == -1.0) bottom = static_cast<int>(size.height);
    renderTargetPtr->DrawText({text.C_str(), static_cast<std::size_t>(text.GetLength())}, *userFontPtr->GetTextFormat(),
                              ToRectF({topLeft.x, topLeft.y, right, bottom}), *colorBrushPtr);
    return true;
}

bool GameEngine::DrawString(std::string text, int left, int top, int right, int bottom) {
    return DrawString(Widened(text), left, top, right, bottom);
}

bool GameEngine::DrawString(std::string text, DOUBLE2 topLeft, double right, double bottom) {
    return DrawString(Widened(text), topLeft, right, bottom);
}

bool GameEngine::DrawCoordinateSystem(double size) {
    constexpr double axisLength = 1.3;
    return DrawLine({0.0, 0.0}, {axisLength * size, 0.0}, 1.0) && DrawLine({0.0, 0.0}, {0.0, axisLength * size}, 1.0);
}

bool GameEngine::FillWindowRect(int red, int green, int blue) {
    if (!CanPaint()) return false;
    const auto channel = [](int value) { return static_cast<float>(value) / 255.0F; };
    renderTargetPtr->Clear({channel(red), channel(green), channel(blue), 1.0F});
    return true;
}
