#pragma once

#include "engine/DOUBLE2.h"

#include <optional>

/// Where a short ray through a body meets the level's solid outline, and how the body gets out of it. Each kind of body
/// casts rays of its own.
class TerrainContact {
public:
    /// Which surfaces a ray meets.
    enum Surfaces : int {
        everySurface = 0,
        enteredSurfaces = -1 // only those that the ray goes into: from the air, never from inside
    };

    /// The first surface on the ray from `start` to `start` + `ray`, in level pixels; nothing if there is none.
    static std::optional<TerrainContact> Cast(DOUBLE2 start, DOUBLE2 ray, Surfaces surfaces);

    /// Whether it lies in the second half of the ray: what is solid is at the ray's end.
    bool IsAtEnd() const { return lambda > 0.5; }
    /// The move that puts the end of the ray on the surface.
    DOUBLE2 PushBack() const { return -((1.0 - lambda) * ray); }
    /// The shorter way: puts the end of the ray that is nearer to the surface on it.
    DOUBLE2 PushOut() const { return IsAtEnd() ? PushBack() : lambda * ray; }

private:
    TerrainContact(double hitLambda, DOUBLE2 castRay) : lambda(hitLambda), ray(castRay) {}

    double lambda; // along the ray: 0 at its start, 1 at its end
    DOUBLE2 ray;
};
