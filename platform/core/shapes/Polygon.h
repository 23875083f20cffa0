#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <vector>

namespace platform {

struct GridPoint {
    std::int64_t x = 0;
    std::int64_t y = 0;
};
using Polygon = std::vector<GridPoint>;
using Polygons = std::vector<Polygon>;

/// Combines two areas of closed polygons by the even-odd rule; solids come out clockwise on screen, holes the other
/// way. Coordinates are below 2^29. False if it gives up.
using PolygonCombiner = bool(const Polygons& first, const Polygons& second, D2D1_COMBINE_MODE mode, Polygons& result);

} // namespace platform
