#pragma once

#include "engine/DOUBLE2.h"

#include <optional>

/// The point where a short ray through a body meets the level's solid outline, and how the body gets out of the
/// outline. Each kind of body has its own rays.
class TerrainContact {
public:
    /// Which surfaces a ray can meet.
    enum Surfaces : int {
        everySurface = 0,
        enteredSurfaces = -1 // those where the ray goes from the air into something solid
    };

    /// The first surface between `start` and `start` + `ray`, in level pixels; empty if there is none.
    static std::optional<TerrainContact> Cast(DOUBLE2 start, DOUBLE2 ray, Surfaces surfaces);

    /// Whether it lies in the second half of the ray: then the solid side is at the ray's end.
    bool IsAtEnd() const { return lambda > 0.5; }
    /// The move that puts the ray's end on the surface.
    DOUBLE2 PushBack() const { return -((1.0 - lambda) * ray); }
    /// The shorter move: it puts the ray's end or its start on the surface.
    DOUBLE2 PushOut() const { return IsAtEnd() ? PushBack() : lambda * ray; }

private:
    TerrainContact(double hitLambda, DOUBLE2 castRay) : lambda(hitLambda), ray(castRay) {}

    double lambda; // along the ray: 0 at its start, 1 at its end
    DOUBLE2 ray;
};
