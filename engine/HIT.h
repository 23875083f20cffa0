#pragma once

#include "engine/DOUBLE2.h"

/// Where a ray crosses an outline.
struct HIT {
    double lambda = 0.0; ///< along the ray: 0 at its start, 1 at its end
    DOUBLE2 point;
    DOUBLE2 normal; ///< to the right, on screen, of the direction of tracing: into a shape traced clockwise on screen
};
