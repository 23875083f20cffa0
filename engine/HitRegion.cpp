#include "engine/HitRegion.h"

#include "engine/GameEngine.h"
#include "engine/SVGLoader.h"
#include "engine/String.h"
#include "platform/Desktop.h"

#include <algorithm>

namespace {

constexpr float hitTolerance = 0.25F; // pixels between a curve and the lines that stand for it in hit tests
constexpr double outlineTolerance = 5.0;

void Show(const wchar_t* message) { GameEngine::GetSingleton()->MessageBox(String(message)); }

/// A path of what `draw` puts into its sink; null if that is refused.
template <class Draw>
std::unique_ptr<ID2D1Geometry> MakePath(ID2D1Factory& factory, const Draw& draw) {
    std::unique_ptr<ID2D1PathGeometry> pathPtr = factory.CreatePathGeometry();
    ID2D1GeometrySink* sinkPtr = nullptr;
    if (!pathPtr || pathPtr->Open(&sinkPtr) < 0 || !draw(*sinkPtr) || sinkPtr->Close() < 0) return nullptr;
    return pathPtr;
}

std::unique_ptr<ID2D1Geometry> MakeEmptyPath(ID2D1Factory& factory) {
    return MakePath(factory, [](ID2D1GeometrySink&) { return true; });
}

RECT2 BoundsOf(const ID2D1Geometry& geometry) {
    D2D1_RECT_F bounds;
    if (geometry.GetBounds(&bounds) < 0 || bounds.left > bounds.right) return {};
    return {bounds.left, bounds.top, bounds.right, bounds.bottom};
}

MATRIX3X2 SinglePrecisionTranslation(DOUBLE2 by) { return MATRIX3X2::CreateTranslationMatrix(by.ToPoint2F()); }

} // namespace

HitRegion::HitRegion() : HitRegion(GameEngine::GetSingleton()->GetD2DFactory()) {}

HitRegion::HitRegion(ID2D1Factory* factoryPtr) : D2DFactoryPtr(factoryPtr) {}

bool HitRegion::CreateRect(double left, double top, double right, double bottom) {
    const auto topLeft = DOUBLE2(left, top).ToPoint2F();
    const auto bottomRight = DOUBLE2(right, bottom).ToPoint2F();
    return Create(D2DFactoryPtr->CreateRectangleGeometry({topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}),
                  L"HitRegion CreateRect Failed");
}

bool HitRegion::CreateEllipse(DOUBLE2 centerPt, double radiusX, double radiusY) {
    const auto radii = DOUBLE2(radiusX, radiusY).ToPoint2F();
    return Create(D2DFactoryPtr->CreateEllipseGeometry({centerPt.ToPoint2F(), radii.x, radii.y}),
                  L"HitRegion CreateEllipse Failed");
}

bool HitRegion::CreatePolygon(DOUBLE2 ptsArr[], int count, bool close) {
    return Create(MakePath(*D2DFactoryPtr,
                           [&](ID2D1GeometrySink& sink) {
                               if (count < 1) return false;
                               sink.BeginFigure(ptsArr[0].ToPoint2F(), D2D1_FIGURE_BEGIN_FILLED);
                               for (int i = 1; i < count; ++i) sink.AddLine(ptsArr[i].ToPoint2F());
                               sink.EndFigure(close ? D2D1_FIGURE_END_CLOSED : D2D1_FIGURE_END_OPEN);
                               return true;
                           }),
                  L"HitRegion CreatePolygon Failed");
}

bool HitRegion::CreateFromFile(String const& fileName) {
    ID2D1Geometry* loadedPtr = nullptr;
    const bool isLoaded = SVGLoader().LoadGeometryFromFile(fileName, &loadedPtr);
    SetGeometry(isLoaded ? std::unique_ptr<ID2D1Geometry>(loadedPtr) : MakeEmptyPath(*D2DFactoryPtr));
    return isLoaded;
}

void HitRegion::Simplify(int mode, double flatteningTolerance) {
    if (!HasShape()) return;
    const auto option =
        mode < 2 ? D2D1_GEOMETRY_SIMPLIFICATION_OPTION_LINES : D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES;
    hitOutlinePtr = std::make_unique<HitOutline>();
    auto simplifiedPtr = MakePath(*D2DFactoryPtr, [&](ID2D1GeometrySink& sink) {
        return hitOutlinePtr->Record(*geometryPtr, option, flatteningTolerance, &sink);
    });
    if (simplifiedPtr)
        geometryPtr = std::move(simplifiedPtr);
    else
        Show(L"Geometry::Simplify failed");
    RebuildTransformedGeometry();
}

void HitRegion::SetTransformMatrix(MATRIX3X2 mat) {
    if (!HasShape()) return;
    matTransform = mat;
    matInverse = mat.Inverse();
    RebuildTransformedGeometry();
}

void HitRegion::SetPos(DOUBLE2 pos) { SetTransformMatrix(SinglePrecisionTranslation(pos)); }

void HitRegion::Move(DOUBLE2 deltaPos) { SetTransformMatrix(matTransform * SinglePrecisionTranslation(deltaPos)); }

bool HitRegion::HitTest(DOUBLE2 pt) const {
    if (!HasShape()) return false;
    bool contains = false;
    transformedGeometryPtr->FillContainsPoint(pt.ToPoint2F(), hitTolerance, &contains);
    return contains;
}

bool HitRegion::HitTest(HitRegion* regionPtr) const {
    if (!HasShape() || !regionPtr->HasShape()) return false;
    D2D1_GEOMETRY_RELATION relation = D2D1_GEOMETRY_RELATION_UNKNOWN;
    transformedGeometryPtr->CompareWithGeometry(*regionPtr->transformedGeometryPtr, hitTolerance, &relation);
    return relation != D2D1_GEOMETRY_RELATION_DISJOINT;
}

RECT2 HitRegion::CollisionTest(HitRegion* regionPtr) const {
    if (!HasShape() || !regionPtr->HasShape()) return {};
    const auto commonPtr = MakePath(*D2DFactoryPtr, [&](ID2D1GeometrySink& sink) {
        return transformedGeometryPtr->CombineWithGeometry(*regionPtr->transformedGeometryPtr,
                                                           D2D1_COMBINE_MODE_INTERSECT, hitTolerance, sink) >= 0;
    });
    return commonPtr ? BoundsOf(*commonPtr) : RECT2{};
}

RECT2 HitRegion::CollisionTest(RECT2 boundingbox) const {
    if (!HasShape()) return {};
    constexpr int hitsPerRay = 10;
    const auto [left, top, right, bottom] = boundingbox;
    const DOUBLE2 width(right - left, 0.0);
    const DOUBLE2 height(0.0, bottom - top);
    const DOUBLE2 corners[] = {{left, top}, {right, top}, {left, bottom}, {right, bottom}};

    HIT hits[4 * hitsPerRay + 4];
    int count = 0;
    const auto castAlongEdge = [&](DOUBLE2 from, DOUBLE2 along) {
        count += Raycast(from, along, hits + count, hitsPerRay, 0);
    };
    castAlongEdge(corners[0], width);
    castAlongEdge(corners[2], width);
    castAlongEdge(corners[0], height);
    castAlongEdge(corners[1], height);

    // A corner is inside when a ray from it that leaves the region crosses the outline an odd number of times.
    const DOUBLE2 beyond(std::max(right, GetBounds().right) + 1.0, 0.0);
    for (const DOUBLE2 corner : corners) {
        HIT crossings[hitsPerRay];
        if (Raycast(corner, beyond, crossings, hitsPerRay, 0) % 2 == 1) hits[count++].point = corner;
    }
    if (count == 0) return {};

    const DOUBLE2 first = hits[0].point;
    RECT2 box(first.x, first.y, first.x, first.y);
    for (int i = 1; i < count; ++i) {
        const DOUBLE2 point = hits[i].point;
        box = {std::min(box.left, point.x), std::min(box.top, point.y), std::max(box.right, point.x),
               std::max(box.bottom, point.y)};
    }
    return box;
}

RECT2 HitRegion::GetBounds() const { return HasShape() ? BoundsOf(*transformedGeometryPtr) : RECT2{}; }

HitRegion* HitRegion::Unite(HitRegion* regionPtr) const { return Combine(regionPtr, D2D1_COMBINE_MODE_UNION); }

HitRegion* HitRegion::Exclude(HitRegion* regionPtr) const { return Combine(regionPtr, D2D1_COMBINE_MODE_EXCLUDE); }

HitRegion* HitRegion::Intersect(HitRegion* regionPtr) const { return Combine(regionPtr, D2D1_COMBINE_MODE_INTERSECT); }

HitRegion* HitRegion::Xor(HitRegion* regionPtr) const { return Combine(regionPtr, D2D1_COMBINE_MODE_XOR); }

int HitRegion::Raycast(DOUBLE2 startPoint, DOUBLE2 vector, HIT hitArr[], int hitArrSize, int collisionNumber) const {
    if (!hitOutlinePtr) {
        Show(L"You must call Simplify before Raycast");
        return 0;
    }
    const int count = hitOutlinePtr->Raycast(matInverse.TransformPoint(startPoint), matInverse.TransformVector(vector),
                                             hitArr, hitArrSize, 1.0, static_cast<double>(collisionNumber));
    for (int i = 0; i < count; ++i) {
        hitArr[i].point = matTransform.TransformPoint(hitArr[i].point);
        hitArr[i].normal = matTransform.TransformVector(hitArr[i].normal);
    }
    return count;
}

bool HitRegion::HasShape() const {
    if (!geometryPtr) Show(L"HitRegion object is being used but no Create() function has been called!");
    return geometryPtr != nullptr;
}

bool HitRegion::Create(std::unique_ptr<ID2D1Geometry> newGeometryPtr, const wchar_t* failure) {
    if (!newGeometryPtr) {
        Show(failure);
        platform::ExitProcess(-1);
    }
    SetGeometry(std::move(newGeometryPtr));
    return true;
}

void HitRegion::SetGeometry(std::unique_ptr<ID2D1Geometry> newGeometryPtr) {
    geometryPtr = std::move(newGeometryPtr);
    Simplify(2, outlineTolerance);
}

void HitRegion::RebuildTransformedGeometry() {
    transformedGeometryPtr = D2DFactoryPtr->CreateTransformedGeometry(*geometryPtr, matTransform.ToMatrix3x2F());
    // A transform that takes the shape out of the range of numbers leaves nothing to hit or draw.
    if (!transformedGeometryPtr) transformedGeometryPtr = MakeEmptyPath(*D2DFactoryPtr);
}

HitRegion* HitRegion::Combine(HitRegion* regionPtr, D2D1_COMBINE_MODE mode) const {
    if (!HasShape() || !regionPtr->HasShape()) return nullptr;
    auto combinedPtr = std::make_unique<HitRegion>(D2DFactoryPtr);
    combinedPtr->geometryPtr = MakePath(*D2DFactoryPtr, [&](ID2D1GeometrySink& sink) {
        return geometryPtr->CombineWithGeometry(*regionPtr->transformedGeometryPtr, mode, hitTolerance, sink) >= 0;
    });
    if (!combinedPtr->geometryPtr) {
        Show(L"Excluding Failed");
        return nullptr;
    }
    combinedPtr->RebuildTransformedGeometry();
    return combinedPtr.release();
}
