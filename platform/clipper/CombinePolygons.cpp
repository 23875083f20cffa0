#include "platform/clipper/CombinePolygons.h"

#include <clipper.hpp>

namespace platform {

namespace {

ClipperLib::ClipType ClipTypeOf(D2D1_COMBINE_MODE mode) {
    switch (mode) {
    case D2D1_COMBINE_MODE_UNION: return ClipperLib::ctUnion;
    case D2D1_COMBINE_MODE_INTERSECT: return ClipperLib::ctIntersection;
    case D2D1_COMBINE_MODE_XOR: return ClipperLib::ctXor;
    case D2D1_COMBINE_MODE_EXCLUDE: break;
    }
    return ClipperLib::ctDifference;
}

ClipperLib::Paths ToPaths(const Polygons& polygons) {
    ClipperLib::Paths paths(polygons.size());
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        for (const GridPoint point : polygons[i]) paths[i].emplace_back(point.x, point.y);
    }
    return paths;
}

} // namespace

bool CombinePolygons(const Polygons& first, const Polygons& second, D2D1_COMBINE_MODE mode, Polygons& result) try {
    ClipperLib::Clipper clipper;
    clipper.AddPaths(ToPaths(first), ClipperLib::ptSubject, true);
    clipper.AddPaths(ToPaths(second), ClipperLib::ptClip, true);
    ClipperLib::Paths paths;
    if (!clipper.Execute(ClipTypeOf(mode), paths, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd)) return false;
    result.resize(paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        result[i].clear();
        for (const ClipperLib::IntPoint point : paths[i]) result[i].push_back({point.X, point.Y});
    }
    return true;
} catch (const ClipperLib::clipperException&) { return false; }

} // namespace platform
