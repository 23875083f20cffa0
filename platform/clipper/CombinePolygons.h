#pragma once

#include "platform/core/shapes/Polygon.h"

namespace platform {

PolygonCombiner CombinePolygons;

} // namespace platform
