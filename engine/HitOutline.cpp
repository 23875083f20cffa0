#include "engine/HitOutline.h"

#include "engine/SimplifiedGeometrySink.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Far more than what rounding moves a point by, relative to its coordinates.
constexpr double roundingMargin = 1e-9;

bool IsFinite(DOUBLE2 p) { return std::isfinite(p.x) && std::isfinite(p.y); }

double LargestCoordinate(const RECT2& box) {
    return std::max({std::abs(box.left), std::abs(box.top), std::abs(box.right), std::abs(box.bottom)});
}

RECT2 BoxAround(DOUBLE2 a, DOUBLE2 b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

/// Edges that meet touch.
bool Touches(const RECT2& a, const RECT2& b) {
    return (a.left <= b.right) & (b.left <= a.right) & (a.top <= b.bottom) & (b.top <= a.bottom);
}

RECT2 Grown(const RECT2& box, double by) { return {box.left - by, box.top - by, box.right + by, box.bottom + by}; }

struct Roots {
    int count = 0;
    double root[2] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
};

/// The roots of a t^2 + b t + c; a and the discriminant count as 0 below 1e-6.
Roots SolveQuadratic(double a, double b, double c) {
    constexpr double epsilon = 1e-6;
    if (std::abs(a) < epsilon) return {1, {-c / b, -c / b}};
    const double discriminant = b * b - 4.0 * a * c;
    if (discriminant < 0.0) return {};
    if (std::abs(discriminant) < epsilon) return {1, {-b / (2.0 * a), -b / (2.0 * a)}};
    const double root = std::sqrt(discriminant);
    return {2, {(-b + root) / (2.0 * a), (-b - root) / (2.0 * a)}};
}

} // namespace

bool HitOutline::Record(const ID2D1Geometry& geometry, D2D1_GEOMETRY_SIMPLIFICATION_OPTION option,
                        double flatteningTolerance, ID2D1GeometrySink* innerSinkPtr) {
    SimplifiedGeometrySink sink(innerSinkPtr, &segmentPoints, &curvePoints, flatteningTolerance);
    const bool isRecorded = geometry.Simplify(option, static_cast<float>(flatteningTolerance), sink) >= 0 &&
                            std::all_of(segmentPoints.begin(), segmentPoints.end(), IsFinite) &&
                            std::all_of(curvePoints.begin(), curvePoints.end(), IsFinite);
    if (!isRecorded) {
        segmentPoints.clear();
        curvePoints.clear();
    }
    BuildIndexes();
    return isRecorded;
}

void HitOutline::BuildIndexes() {
    std::vector<RECT2> boxes;
    for (std::size_t i = 0; i + 1 < segmentPoints.size(); i += 2)
        boxes.push_back(BoxAround(segmentPoints[i], segmentPoints[i + 1]));
    segmentIndex = BoxIndex(boxes);

    // A crossing is a point of the curve beside the ray, on a curve that the ray's whole line crosses. For a very short
    // ray the solver's tolerances leave it anywhere on such a curve, so it may lie as far from the ray as the curve is
    // long; the boxes are that much larger.
    boxes.clear();
    for (std::size_t i = 0; i + 2 < curvePoints.size(); i += 3) {
        const RECT2 ends = BoxAround(curvePoints[i], curvePoints[i + 2]);
        const DOUBLE2 control = curvePoints[i + 1];
        const RECT2 box{std::min(ends.left, control.x), std::min(ends.top, control.y), std::max(ends.right, control.x),
                        std::max(ends.bottom, control.y)};
        const double diagonal = std::hypot(box.right - box.left, box.bottom - box.top);
        boxes.push_back(Grown(box, diagonal + roundingMargin * LargestCoordinate(box)));
    }
    curveIndex = BoxIndex(boxes);
}

int HitOutline::Raycast(DOUBLE2 start, DOUBLE2 vector, HIT hitArr[], int hitArrSize, double maxLambda, double side) {
    const Ray ray{start, start + vector, vector, BoxAround(start, start + vector), maxLambda, side};
    if (!IsFinite(ray.start) || !IsFinite(ray.end)) return 0; // no crossing can be told of such a ray

    foundCount = 0;
    segmentIndex.ForEachNear(ray.box, [&](std::size_t segment) { CastAtSegment(ray, segment); });
    if (!curvePoints.empty()) {
        curveIndex.ForEachNear(Grown(ray.box, roundingMargin * LargestCoordinate(ray.box)),
                               [&](std::size_t curve) { CastAtCurve(ray, curve); });
    }

    const auto begin = foundHits.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(foundCount);
    std::sort(begin, end, [](const FoundHit& a, const FoundHit& b) {
        return a.hit.lambda < b.hit.lambda || (a.hit.lambda == b.hit.lambda && a.order < b.order);
    });
    const int count = std::clamp(hitArrSize, 0, static_cast<int>(foundCount));
    std::transform(begin, begin + count, hitArr, [](const FoundHit& found) { return found.hit; });
    return count;
}

void HitOutline::CastAtSegment(const Ray& ray, std::size_t segment) {
    const DOUBLE2 from = segmentPoints[2 * segment];
    const DOUBLE2 to = segmentPoints[2 * segment + 1];
    if (!Touches(ray.box, BoxAround(from, to))) return;
    const DOUBLE2 normal = (to - from).Orthogonal();
    if (!ray.Faces(normal)) return;
    double lambda = 0.0;
    double place = 0.0;
    if (!IntersectLines(ray.start, ray.end, from, to, lambda, place, 1e-6)) return;
    if (lambda < 0.0 || lambda >= ray.maxLambda || place < 0.0 || place > 1.0) return;
    Keep({{lambda, ray.start + ray.vector * lambda, normal.Normalized(0.001)}, segment});
}

void HitOutline::CastAtCurve(const Ray& ray, std::size_t curve) {
    // Seen from the start of the ray; how far each control point lies to one side of the ray's line.
    const DOUBLE2 a0 = curvePoints[3 * curve] - ray.start;
    const DOUBLE2 a1 = curvePoints[3 * curve + 1] - ray.start;
    const DOUBLE2 a2 = curvePoints[3 * curve + 2] - ray.start;
    const DOUBLE2 across = ray.vector.Orthogonal();
    const double d0 = across.DotProduct(a0);
    const double d1 = across.DotProduct(a1);
    const double d2 = across.DotProduct(a2);
    const bool isOnBothSides = (d0 > 0.0 || d1 > 0.0 || d2 > 0.0) && (d0 < 0.0 || d1 < 0.0 || d2 < 0.0);
    if (!isOnBothSides) return;

    const Roots roots = SolveQuadratic(2.0 * d1 - d0 - d2, 2.0 * d0 - 2.0 * d1, -d0);
    for (int i = 0; i < roots.count; ++i) {
        const double t = roots.root[i];
        if (!(t >= 0.0 && t <= 1.0)) continue;
        const DOUBLE2 tangent = 2.0 * (a1 - a0) + t * (2.0 * (a0 - a1) + 2.0 * (a2 - a1));
        const DOUBLE2 normal = tangent.Orthogonal();
        if (!ray.Faces(normal)) continue;
        const DOUBLE2 fromStart = Lerp(Lerp(a0, a1, t), Lerp(a1, a2, t), t);
        const double lambda = fromStart.DotProduct(ray.vector) / ray.vector.DotProduct(ray.vector);
        if (!(lambda >= 0.0 && lambda < ray.maxLambda)) continue;
        const std::size_t order = segmentPoints.size() + 2 * curve + static_cast<std::size_t>(i);
        Keep({{lambda, ray.start + fromStart, normal.Normalized(0.001)}, order});
    }
}

void HitOutline::Keep(const FoundHit& found) {
    const auto begin = foundHits.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(foundCount);
    if (std::any_of(begin, end, [&](const FoundHit& other) { return other.order == found.order; })) return;

    const auto isEarlier = [](const FoundHit& a, const FoundHit& b) { return a.order < b.order; };
    if (foundCount < foundHits.size()) {
        foundHits[foundCount++] = found;
        // From now on a heap, with the latest in the outline on top: it goes when an earlier one comes.
        if (foundCount == foundHits.size()) std::make_heap(begin, foundHits.end(), isEarlier);
    } else if (isEarlier(found, foundHits.front())) {
        std::pop_heap(begin, end, isEarlier);
        foundHits.back() = found;
        std::push_heap(begin, end, isEarlier);
    }
}
