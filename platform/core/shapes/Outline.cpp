#include "platform/core/shapes/Outline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace platform {

namespace {

constexpr double pi = std::numbers::pi;

/// The roots of a t^2 + b t + c without cancellation; not finite where there are none.
std::array<double, 2> SolveQuadratic(double a, double b, double c) {
    const double q = -0.5 * (b + std::copysign(std::sqrt(b * b - 4.0 * a * c), b));
    return {q / a, c / q};
}

std::array<double, 2> CubicTurns(double p0, double p1, double p2, double p3) {
    return SolveQuadratic(p3 - 3.0 * p2 + 3.0 * p1 - p0, 2.0 * (p2 - 2.0 * p1 + p0), p1 - p0);
}

/// Where cos(a) * radius + sin(a) * conjugate is largest and smallest, as parts of the sweep.
std::array<double, 2> ArcTurns(double radius, double conjugate, double sweep) {
    const double fullTurn = std::copysign(2.0 * pi, sweep);
    const auto along = [&](double angle) {
        const double rest = std::fmod(angle, fullTurn);
        return (rest * sweep < 0.0 ? rest + fullTurn : rest) / sweep;
    };
    const double angle = std::atan2(conjugate, radius);
    return {along(angle), along(angle + pi)};
}

std::array<double, 4> Joined(std::array<double, 2> a, std::array<double, 2> b) { return {a[0], a[1], b[0], b[1]}; }

bool IsFinite(Vector v) {
    constexpr double limit = std::numeric_limits<float>::max();
    return std::abs(v.x) <= limit && std::abs(v.y) <= limit;
}

D2D1_BEZIER_SEGMENT ToBezier(const Cubic& cubic) {
    return {cubic.control1.ToPoint2F(), cubic.control2.ToPoint2F(), cubic.end.ToPoint2F()};
}

bool IsFinite(const Line& line) { return IsFinite(line.end); }
bool IsFinite(const Cubic& cubic) {
    return IsFinite(cubic.control1) && IsFinite(cubic.control2) && IsFinite(cubic.end);
}
bool IsFinite(const Arc& arc) { return IsFinite(arc.centre) && IsFinite(arc.conjugate) && IsFinite(arc.end); }

} // namespace

double Length(Vector v) { return std::hypot(v.x, v.y); }

Vector Cubic::At(Vector start, double t) const {
    const double u = 1.0 - t;
    return u * u * u * start + 3.0 * u * u * t * control1 + 3.0 * u * t * t * control2 + t * t * t * end;
}

double Cubic::Bend(Vector start) const {
    const Vector atStart = start - 2.0 * control1 + control2;
    const Vector atEnd = control1 - 2.0 * control2 + end;
    return 6.0 * std::max(Length(atStart), Length(atEnd));
}

std::array<double, 4> Cubic::Turns(Vector start) const {
    return Joined(CubicTurns(start.x, control1.x, control2.x, end.x),
                  CubicTurns(start.y, control1.y, control2.y, end.y));
}

Cubic Cubic::Mapped(const Affine& map) const {
    return {map.MapPoint(control1), map.MapPoint(control2), map.MapPoint(end)};
}

Vector Arc::At(Vector start, double t) const {
    return centre + std::cos(t * sweep) * (start - centre) + std::sin(t * sweep) * conjugate;
}

double Arc::Bend(Vector start) const {
    const Vector radius = start - centre;
    return sweep * sweep * std::sqrt(Dot(radius, radius) + Dot(conjugate, conjugate));
}

std::array<double, 4> Arc::Turns(Vector start) const {
    const Vector radius = start - centre;
    return Joined(ArcTurns(radius.x, conjugate.x, sweep), ArcTurns(radius.y, conjugate.y, sweep));
}

Arc Arc::Mapped(const Affine& map) const {
    return {map.MapPoint(centre), map.MapVector(conjugate), sweep, map.MapPoint(end)};
}

Vector EndOf(const Segment& segment) {
    return std::visit([](const auto& curve) { return curve.end; }, segment);
}

std::optional<Segment> MakeArc(Vector start, const D2D1_ARC_SEGMENT& arc) {
    const Vector end = arc.point;
    double radiusX = std::abs(static_cast<double>(arc.size.width));
    double radiusY = std::abs(static_cast<double>(arc.size.height));
    if (start == end) return std::nullopt;
    if (radiusX == 0.0 || radiusY == 0.0) return Line{end};

    // In the ellipse's own axes, scaled to the unit circle, the chord decides the centre.
    const double rotation = std::fmod(arc.rotationAngle, 360.0) * pi / 180.0;
    const Vector axisX{std::cos(rotation), std::sin(rotation)};
    const Vector axisY{-axisX.y, axisX.x};
    const Vector halfChord = 0.5 * (end - start);
    Vector unit{Dot(halfChord, axisX) / radiusX, Dot(halfChord, axisY) / radiusY};
    const double reach = Length(unit);
    if (reach > 1.0) {
        radiusX *= reach;
        radiusY *= reach;
        unit = 1.0 / reach * unit;
    }
    const double chord = std::min(1.0, Dot(unit, unit));
    if (chord == 0.0) return Line{end}; // lost beside such radii

    const double turn = arc.sweepDirection == D2D1_SWEEP_DIRECTION_CLOCKWISE ? 1.0 : -1.0;
    const double size = arc.arcSize == D2D1_ARC_SIZE_LARGE ? -1.0 : 1.0;
    const double smallSweep = 2.0 * std::asin(std::sqrt(chord));
    const double sweep = turn * (size > 0.0 ? smallSweep : 2.0 * pi - smallSweep);
    const double offset = turn * size * std::sqrt((1.0 - chord) / chord);
    const Vector from{offset * unit.y - unit.x, -offset * unit.x - unit.y}; // seen from the centre
    const auto fromUnit = [&](Vector v) { return v.x * radiusX * axisX + v.y * radiusY * axisY; };
    return Arc{start - fromUnit(from), fromUnit({-from.y, from.x}), sweep, end};
}

Cubic MakeQuadratic(Vector start, const D2D1_QUADRATIC_BEZIER_SEGMENT& bezier) {
    const Vector control = bezier.point1;
    const Vector end = bezier.point2;
    return {start + 2.0 / 3.0 * (control - start), end + 2.0 / 3.0 * (control - end), end};
}

std::vector<D2D1_BEZIER_SEGMENT> ToBeziers(Vector start, const Segment& segment) {
    if (const Cubic* cubicPtr = std::get_if<Cubic>(&segment)) return {ToBezier(*cubicPtr)};
    std::vector<D2D1_BEZIER_SEGMENT> beziers;
    if (const Arc* arcPtr = std::get_if<Arc>(&segment)) {
        const Vector radius = start - arcPtr->centre;
        const auto direction = [&](double angle) {
            return std::cos(angle) * arcPtr->conjugate - std::sin(angle) * radius;
        };
        const int count = std::max(1, static_cast<int>(std::ceil(std::abs(arcPtr->sweep) / (0.5 * pi) - 1e-9)));
        const double step = arcPtr->sweep / count;
        const double reach = 4.0 / 3.0 * std::tan(step / 4.0);
        Vector from = start;
        for (int i = 0; i < count; ++i) {
            const Vector to = i + 1 < count ? arcPtr->At(start, static_cast<double>(i + 1) / count) : arcPtr->end;
            beziers.push_back(
                ToBezier({from + reach * direction(i * step), to - reach * direction((i + 1) * step), to}));
            from = to;
        }
    }
    return beziers;
}

Outline Mapped(const Outline& outline, const Affine& map) {
    Outline mapped = outline;
    for (Figure& figure : mapped) {
        figure.start = map.MapPoint(figure.start);
        for (Segment& segment : figure.segments)
            segment = std::visit([&](const auto& curve) -> Segment { return curve.Mapped(map); }, segment);
    }
    return mapped;
}

bool IsFinite(const Outline& outline) {
    return std::all_of(outline.begin(), outline.end(), [](const Figure& figure) {
        return IsFinite(figure.start) &&
               std::all_of(figure.segments.begin(), figure.segments.end(), [](const Segment& segment) {
                   return std::visit([](const auto& curve) { return IsFinite(curve); }, segment);
               });
    });
}

D2D1_RECT_F Bounds(const Outline& outline) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Vector low{infinity, infinity};
    Vector high{-infinity, -infinity};
    const auto include = [&](Vector point) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    };
    for (const Figure& figure : outline) {
        if (!HasArea(figure)) continue;
        include(figure.start);
        Vector start = figure.start;
        for (const Segment& segment : figure.segments) {
            std::visit(
                [&](const auto& curve) {
                    for (const double t : curve.Turns(start)) {
                        if (t > 0.0 && t < 1.0) include(curve.At(start, t));
                    }
                    include(curve.end);
                },
                segment);
            start = EndOf(segment);
        }
    }
    const D2D1_POINT_2F topLeft = low.ToPoint2F();
    const D2D1_POINT_2F bottomRight = high.ToPoint2F();
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

int PieceCount(double bend, double tolerance) {
    constexpr double finest = 1e-4;
    constexpr double most = 1024.0;
    const double count = std::sqrt(bend / (8.0 * (tolerance > finest ? tolerance : finest)));
    return static_cast<int>(std::ceil(std::clamp(count, 1.0, most)));
}

} // namespace platform
