#pragma once

#include "engine/DOUBLE2.h"
#include "engine/HIT.h"
#include "engine/HitOutline.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "platform/Geometry.h"

#include <memory>

class String;

/// A shape to hit: a rectangle, an ellipse, a polygon or the outline in a file, under a transform of its own.
/// All operations but the Create ones need a shape; without one they show a message and do nothing.
class HitRegion {
public:
    /// Without a shape.
    HitRegion();
    explicit HitRegion(ID2D1Factory* factoryPtr);
    virtual ~HitRegion() = default;

    // Making the shape; each replaces the previous one, keeps the transform, and leaves it ready for Raycast. Where the
    // shape cannot be made a message says so and the program ends with exit code -1.

    bool CreateRect(double left, double top, double right, double bottom);
    bool CreateEllipse(DOUBLE2 centerPt, double radiusX, double radiusY);
    /// At least one point. An open polygon has no closing line for a ray to cross, but is filled like a closed one.
    bool CreatePolygon(DOUBLE2 ptsArr[], int count, bool close);
    /// False, after a message, when the file has no outline: the region is then an empty shape that nothing ever hits.
    bool CreateFromFile(String const& fileName);

    /// Records the outline for Raycast and replaces the shape by its simplified copy. `mode`: below 2 everything
    /// becomes lines within `flatteningTolerance` of the curves, otherwise curves stay curves. The Create operations do
    /// this.
    void Simplify(int mode, double flatteningTolerance);

    void SetTransformMatrix(MATRIX3X2 mat);
    MATRIX3X2 GetTransformMatrix() const { return matTransform; }
    /// Replaces the transform by a move to `pos`, in single precision.
    void SetPos(DOUBLE2 pos);
    /// Moves on from where the region is, in single precision.
    void Move(DOUBLE2 deltaPos);

    // Everything below is in world coordinates: the shape moved by its transform.

    bool HitTest(DOUBLE2 pt) const;
    /// Whether the two areas have anything in common; true when that cannot be told.
    bool HitTest(HitRegion* regionPtr) const;
    /// The bounds of what the two areas have in common, all zero for nothing.
    RECT2 CollisionTest(HitRegion* regionPtr) const;
    /// The bounds of the part of the rectangle that overlaps the region, all zero for nothing: rays along its edges,
    /// and rays from its corners to the right that count crossings, at most ten each.
    RECT2 CollisionTest(RECT2 boundingbox) const;
    /// All zero for an empty shape.
    RECT2 GetBounds() const;

    /// New regions that the caller owns, without a transform, not yet simplified; null after a message if they cannot
    /// be made. They combine this region's shape without its transform with the other's transformed one.
    HitRegion* Unite(HitRegion* regionPtr) const;
    HitRegion* Exclude(HitRegion* regionPtr) const;
    HitRegion* Intersect(HitRegion* regionPtr) const;
    HitRegion* Xor(HitRegion* regionPtr) const;

    /// Finds where the ray from `startPoint` to `startPoint + vector` crosses the outline, nearest first.
    /// A crossing at the start counts (lambda 0), one at the end (lambda 1) does not; normals have the length that the
    /// transform gives to a unit vector. `collisionNumber`: 0 keeps every crossing, -1 those whose normal points along
    /// the ray (into the solid of an outline traced clockwise on screen), +1 those against it. Writes at most
    /// `hitArrSize` entries, of at most 100 crossings, and returns how many. A short ray costs little more in a large
    /// outline than in a small one; never allocates.
    int Raycast(DOUBLE2 startPoint, DOUBLE2 vector, HIT hitArr[], int hitArrSize, int collisionNumber) const;

    /// The transformed shape, for drawing; null without a shape.
    const ID2D1Geometry* GetGeometry() const { return HasShape() ? transformedGeometryPtr.get() : nullptr; }

private:
    bool HasShape() const;
    bool Create(std::unique_ptr<ID2D1Geometry> newGeometryPtr, const wchar_t* failure);
    void SetGeometry(std::unique_ptr<ID2D1Geometry> newGeometryPtr);
    void RebuildTransformedGeometry();
    HitRegion* Combine(HitRegion* regionPtr, D2D1_COMBINE_MODE mode) const;

    ID2D1Factory* D2DFactoryPtr;
    std::unique_ptr<ID2D1Geometry> geometryPtr; ///< without the transform
    std::unique_ptr<ID2D1Geometry> transformedGeometryPtr;
    MATRIX3X2 matTransform = MATRIX3X2::CreateIdentityMatrix();
    MATRIX3X2 matInverse = MATRIX3X2::CreateIdentityMatrix();
    std::unique_ptr<HitOutline> hitOutlinePtr;
};
