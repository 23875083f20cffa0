#pragma once

#include "engine/BoxIndex.h"
#include "engine/HIT.h"
#include "platform/Geometry.h"

#include <array>
#include <cstddef>
#include <vector>

/// The outline of a simplified shape, in the shape's own coordinates, and the ray cast against it.
class HitOutline {
public:
    /// No ray cast reports more crossings.
    static constexpr int maxHits = 100;

    /// An outline without any lines.
    HitOutline() = default;
    virtual ~HitOutline() = default;

    /// Records the shape, and writes its simplified copy to `innerSinkPtr`, which is not closed. Once.
    /// False, and no outline, when the shape cannot be simplified.
    bool Record(const ID2D1Geometry& geometry, D2D1_GEOMETRY_SIMPLIFICATION_OPTION option, double flatteningTolerance,
                ID2D1GeometrySink* innerSinkPtr);

    /// Finds where the ray from `start` to `start + vector` crosses the outline, nearest first, and among equals in the
    /// order of the outline (lines before curves). Crossings at lambda 0 count, those at `maxLambda` do not. Of more
    /// than a hundred, the first hundred in the order of the outline remain. `side`: 0 keeps every crossing, -1 those
    /// whose normal points along the ray, +1 those against it. Writes at most `hitArrSize` entries and returns how
    /// many. Costs little more in a large outline than in a small one if the ray is short; never allocates.
    int Raycast(DOUBLE2 start, DOUBLE2 vector, HIT hitArr[], int hitArrSize, double maxLambda, double side);

private:
    struct Ray {
        DOUBLE2 start;
        DOUBLE2 end;
        DOUBLE2 vector;
        RECT2 box;
        double maxLambda;
        double side;
        bool Faces(DOUBLE2 normal) const { return side == 0.0 || normal.DotProduct(vector) * side < 0.0; }
    };
    struct FoundHit {
        HIT hit;
        std::size_t order = 0; ///< in the outline
    };

    void BuildIndexes();
    void CastAtSegment(const Ray& ray, std::size_t segment);
    void CastAtCurve(const Ray& ray, std::size_t curve);
    void Keep(const FoundHit& found);

    std::vector<DOUBLE2> segmentPoints; ///< lines: start, end
    std::vector<DOUBLE2> curvePoints;   ///< quadratic Bézier curves: start, control, end
    BoxIndex segmentIndex;
    BoxIndex curveIndex;

    std::array<FoundHit, maxHits> foundHits; ///< of the running cast
    std::size_t foundCount = 0;
};
