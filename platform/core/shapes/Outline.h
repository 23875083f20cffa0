#pragma once

// How shapes are kept: figures of lines, cubic curves and elliptic arcs in double precision. An affine transform turns
// each of the three into one of its own kind, so a transformed shape is again a plain outline. (A quadratic curve is a
// cubic.)

#include "platform/Geometry.h"

#include <array>
#include <optional>
#include <variant>
#include <vector>

namespace platform {

/// A point or vector in double precision, widened from the single precision of the interface.
struct Vector {
    double x = 0.0;
    double y = 0.0;
    constexpr Vector() = default;
    constexpr Vector(double atX, double atY) : x(atX), y(atY) {}
    constexpr Vector(D2D1_POINT_2F point) : x(point.x), y(point.y) {}
    D2D1_POINT_2F ToPoint2F() const { return {static_cast<float>(x), static_cast<float>(y)}; }
    friend constexpr Vector operator+(Vector a, Vector b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Vector operator-(Vector a, Vector b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr Vector operator*(double s, Vector v) { return {s * v.x, s * v.y}; }
    friend constexpr bool operator==(Vector, Vector) = default;
};

constexpr double Dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y; }
double Length(Vector v);

/// An affine map for row vectors.
struct Affine {
    Vector dirX;
    Vector dirY;
    Vector orig;
    explicit constexpr Affine(const D2D1_MATRIX_3X2_F& mat)
        : dirX(mat.m11, mat.m12), dirY(mat.m21, mat.m22), orig(mat.dx, mat.dy) {}
    constexpr Vector MapVector(Vector v) const { return v.x * dirX + v.y * dirY; }
    constexpr Vector MapPoint(Vector p) const { return MapVector(p) + orig; }
};

// The kinds of segment. Each begins where the one before it ended, a point that is passed in as `start`, and offers:
//   At       the point at parameter t, 0 to 1
//   Bend     an upper bound of the second derivative over t: a chord over a step of dt is at most Bend * dt^2 / 8 away
//   Turns    the parameters at which it runs parallel to an axis; those outside 0 to 1, and NaN, mean nothing
//   Mapped   the segment under an affine map

struct Line {
    Vector end;
    Vector At(Vector start, double t) const { return start + t * (end - start); }
    double Bend(Vector) const { return 0.0; }
    std::array<double, 0> Turns(Vector) const { return {}; }
    Line Mapped(const Affine& map) const { return {map.MapPoint(end)}; }
};

struct Cubic {
    Vector control1;
    Vector control2;
    Vector end;
    Vector At(Vector start, double t) const;
    double Bend(Vector start) const;
    std::array<double, 4> Turns(Vector start) const;
    Cubic Mapped(const Affine& map) const;
};

/// centre + cos(a) * (start - centre) + sin(a) * conjugate, for a from 0 to `sweep`: any ellipse in any position.
struct Arc {
    Vector centre;
    Vector conjugate;   ///< from the centre, to where the ellipse runs parallel to (start - centre)
    double sweep = 0.0; ///< radians; positive is clockwise on screen unless a transform has mirrored it
    Vector end;
    Vector At(Vector start, double t) const;
    double Bend(Vector start) const;
    std::array<double, 4> Turns(Vector start) const;
    Arc Mapped(const Affine& map) const;
};

using Segment = std::variant<Line, Cubic, Arc>;

struct Figure {
    Vector start;
    bool filled = true;
    bool closed = true; ///< an open figure is filled as if it were closed
    std::vector<Segment> segments;
};

using Outline = std::vector<Figure>;

Vector EndOf(const Segment& segment);

/// Whether the figure counts where areas do.
inline bool HasArea(const Figure& figure) { return figure.filled && !figure.segments.empty(); }

/// An elliptic arc with its end points given. Radii too small to reach are scaled up; with a zero radius it is a line,
/// and nothing at all from a point to itself.
std::optional<Segment> MakeArc(Vector start, const D2D1_ARC_SEGMENT& arc);

/// A cubic that is the quadratic curve.
Cubic MakeQuadratic(Vector start, const D2D1_QUADRATIC_BEZIER_SEGMENT& bezier);

/// The curve as it is, or an arc as cubics of at most a quarter turn each (within 0.03 % of its radius); none for a
/// line.
std::vector<D2D1_BEZIER_SEGMENT> ToBeziers(Vector start, const Segment& segment);

Outline Mapped(const Outline& outline, const Affine& map);

/// Whether all of it can be written in single precision.
bool IsFinite(const Outline& outline);

/// The smallest rectangle around the filled figures, exact for curves; left > right when there are none.
D2D1_RECT_F Bounds(const Outline& outline);

/// How many straight pieces keep within `tolerance` of a segment of this bend; limited, so that no shape is endless.
int PieceCount(double bend, double tolerance);

/// Calls `visit` with the end of each straight piece that stands for the segment, in order.
template <class Visit>
void Flatten(Vector start, const Segment& segment, double tolerance, Visit visit) {
    std::visit(
        [&](const auto& curve) {
            const int pieces = PieceCount(curve.Bend(start), tolerance);
            for (int i = 1; i < pieces; ++i) visit(curve.At(start, static_cast<double>(i) / pieces));
            visit(curve.end);
        },
        segment);
}

/// Calls `visit` with every corner of the flattened figure, its start first.
template <class Visit>
void Flatten(const Figure& figure, double tolerance, Visit visit) {
    visit(figure.start);
    Vector start = figure.start;
    for (const Segment& segment : figure.segments) {
        Flatten(start, segment, tolerance, visit);
        start = EndOf(segment);
    }
}

} // namespace platform
