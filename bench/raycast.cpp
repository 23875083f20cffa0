// Short rays against outlines of growing size: HitRegion::Raycast beside an R-tree over the same segments.

#include "engine/HitRegion.h"
#include "platform/ScriptedDesktop.h"

#define BOOST_ALLOW_DEPRECATED_HEADERS // the library includes some itself and would say so
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

constexpr double rayLength = 16.0; // level pixels
constexpr int mostHits = 8;

struct Ray {
    DOUBLE2 start;
    DOUBLE2 vector;
};

/// Ground seen from the side: ledges and slopes of 8 to 40 pixels, closed below; clockwise on screen.
std::vector<DOUBLE2> MakeGround(int segments, std::mt19937& random) {
    const auto whole = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    std::vector<DOUBLE2> corners{{0.0, 200.0}};
    while (static_cast<int>(corners.size()) < segments - 2) {
        DOUBLE2 corner = corners.back();
        const int kind = whole(0, 3);
        if (kind != 0) corner.x += whole(8, 40);                                   // a ledge or a slope
        if (kind < 2) corner.y += corner.y > 200.0 ? -whole(8, 32) : whole(8, 32); // a wall or a slope
        corners.push_back(corner);
    }
    corners.push_back({corners.back().x, 448.0});
    corners.push_back({0.0, 448.0});
    return corners;
}

/// Rays as the game casts them: from near the ground, along one axis.
std::vector<Ray> MakeRays(const std::vector<DOUBLE2>& corners, std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> anyCorner(0, corners.size() - 4);
    std::uniform_real_distribution<double> anyPlace(0.0, 1.0);
    std::vector<Ray> rays;
    for (int i = 0; i < 4096; ++i) {
        const std::size_t corner = anyCorner(random);
        const DOUBLE2 place = Lerp(corners[corner], corners[corner + 1], anyPlace(random)) +
                              DOUBLE2(anyPlace(random) - 0.5, anyPlace(random) - 0.5) * 2.0 * rayLength;
        const DOUBLE2 vectors[] = {{0.0, rayLength}, {rayLength, 0.0}, {0.0, -rayLength}, {-rayLength, 0.0}};
        rays.push_back({place, vectors[i % 4]});
    }
    return rays;
}

using Point = boost::geometry::model::point<double, 2, boost::geometry::cs::cartesian>;
using Box = boost::geometry::model::box<Point>;
using Segment = boost::geometry::model::segment<Point>;

/// The same ray cast on top of the library's tree, which holds the segments or, a shorter way, only their boxes.
template <class Held>
class TreeOutline {
public:
    explicit TreeOutline(const std::vector<DOUBLE2>& ofCorners) : corners(ofCorners) {
        std::vector<Value> values;
        for (std::size_t i = 0; i < corners.size(); ++i) values.emplace_back(Hold(corners[i], Next(i)), i);
        tree = Tree(values); // packed, its fastest form
    }

    int Raycast(DOUBLE2 start, DOUBLE2 vector, HIT hitArr[], int hitArrSize) const {
        const DOUBLE2 end = start + vector;
        int count = 0;
        const auto cast = [&](const Value& value) {
            const DOUBLE2 from = corners[value.second];
            const DOUBLE2 to = Next(value.second);
            double lambda = 0.0;
            double place = 0.0;
            if (count == hitArrSize || !IntersectLines(start, end, from, to, lambda, place, 1e-6)) return;
            if (lambda < 0.0 || lambda >= 1.0 || place < 0.0 || place > 1.0) return;
            hitArr[count++] = {lambda, start + vector * lambda, (to - from).Orthogonal().Normalized()};
        };
        tree.query(boost::geometry::index::intersects(BoxAround(start, end)),
                   boost::make_function_output_iterator(cast));
        std::sort(hitArr, hitArr + count, [](const HIT& a, const HIT& b) { return a.lambda < b.lambda; });
        return count;
    }

private:
    using Value = std::pair<Held, std::size_t>;
    using Tree = boost::geometry::index::rtree<Value, boost::geometry::index::rstar<16>>;

    static Box BoxAround(DOUBLE2 a, DOUBLE2 b) {
        return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}};
    }
    static Held Hold(DOUBLE2 a, DOUBLE2 b) {
        if constexpr (std::is_same_v<Held, Box>)
            return BoxAround(a, b);
        else
            return {{a.x, a.y}, {b.x, b.y}};
    }
    DOUBLE2 Next(std::size_t corner) const { return corners[corner + 1 < corners.size() ? corner + 1 : 0]; }

    const std::vector<DOUBLE2>& corners;
    Tree tree;
};

/// Nanoseconds a ray, and the crossings found by all rays.
template <class Cast>
std::pair<double, long> Measure(const std::vector<Ray>& rays, const Cast& cast) {
    constexpr int passes = 5;
    long crossings = 0;
    HIT hits[mostHits];
    const auto begin = std::chrono::steady_clock::now();
    for (int pass = 0; pass < passes; ++pass) {
        for (const Ray& ray : rays) crossings += cast(ray, hits);
    }
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - begin;
    return {time.count() / static_cast<double>(passes * rays.size()), crossings};
}

} // namespace

int main() {
    platform::Desktop::Use(std::make_unique<platform::ScriptedDesktop>());
    const auto factoryPtr = platform::CreateGeometryFactory();
    std::printf("rays of %.0f pixels, nanoseconds each\n%9s %10s %10s %6s %14s %6s\n", rayLength, "segments",
                "HitRegion", "R-tree", "ratio", "R-tree (boxes)", "ratio");
    for (const int segments : {60, 200, 2000, 20000}) {
        std::mt19937 random(1);
        std::vector<DOUBLE2> corners = MakeGround(segments, random);
        const std::vector<Ray> rays = MakeRays(corners, random);
        HitRegion region(factoryPtr.get());
        region.CreatePolygon(corners.data(), segments, true);
        const TreeOutline<Segment> segmentTree(corners);
        const TreeOutline<Box> boxTree(corners);

        // By turns, and the best of each: what disturbs the machine disturbs all.
        std::array<std::pair<double, long>, 3> best;
        best.fill({1e9, 0});
        for (int round = 0; round < 15; ++round) {
            const auto measure = [&](std::size_t which, const auto& cast) {
                best[which] = std::min(best[which], Measure(rays, cast));
            };
            measure(0, [&](const Ray& ray, HIT hits[]) {
                return region.Raycast(ray.start, ray.vector, hits, mostHits, 0);
            });
            measure(1, [&](const Ray& ray, HIT hits[]) {
                return segmentTree.Raycast(ray.start, ray.vector, hits, mostHits);
            });
            measure(2,
                    [&](const Ray& ray, HIT hits[]) { return boxTree.Raycast(ray.start, ray.vector, hits, mostHits); });
        }
        const auto& [regionBest, segmentBest, boxBest] = best;
        if (regionBest.second != segmentBest.second || regionBest.second != boxBest.second) {
            std::printf("%9d: they do not find the same crossings\n", segments);
            return 1;
        }
        std::printf("%9d %10.1f %10.1f %6.2f %14.1f %6.2f\n", segments, regionBest.first, segmentBest.first,
                    regionBest.first / segmentBest.first, boxBest.first, regionBest.first / boxBest.first);
    }
    return 0;
}
