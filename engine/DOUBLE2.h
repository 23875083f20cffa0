#pragma once

#include "platform/Types.h"

#include <iosfwd>

class String;

/// A point or vector in pixels; x grows right, y grows down.
struct DOUBLE2 {
    double x = 0.0;
    double y = 0.0;

    constexpr DOUBLE2() = default;
    constexpr DOUBLE2(double atX, double atY) : x(atX), y(atY) {}
    constexpr DOUBLE2(D2D1_POINT_2F point) : x(point.x), y(point.y) {}
    constexpr D2D1_POINT_2F ToPoint2F() const { return {static_cast<float>(x), static_cast<float>(y)}; }

    constexpr DOUBLE2& operator+=(DOUBLE2 o) { return *this = {x + o.x, y + o.y}; }
    constexpr DOUBLE2& operator-=(DOUBLE2 o) { return *this = {x - o.x, y - o.y}; }
    constexpr DOUBLE2& operator*=(double s) { return *this = {x * s, y * s}; }
    constexpr DOUBLE2& operator/=(double s) { return *this = {x / s, y / s}; }
    constexpr DOUBLE2 operator-() const { return {-x, -y}; }
    friend constexpr DOUBLE2 operator+(DOUBLE2 a, DOUBLE2 b) { return a += b; }
    friend constexpr DOUBLE2 operator-(DOUBLE2 a, DOUBLE2 b) { return a -= b; }
    friend constexpr DOUBLE2 operator*(DOUBLE2 v, double s) { return v *= s; }
    friend constexpr DOUBLE2 operator*(double s, DOUBLE2 v) { return v *= s; }
    friend constexpr DOUBLE2 operator/(DOUBLE2 v, double s) { return v /= s; }
    friend constexpr bool operator==(DOUBLE2 a, DOUBLE2 b) = default; // exact; tests compare with a tolerance

    double Length() const;
    double Norm() const { return Length(); }
    constexpr double DotProduct(DOUBLE2 o) const { return x * o.x + y * o.y; }
    /// The cross product; positive when `o` lies clockwise of this vector on screen.
    constexpr double DetProduct(DOUBLE2 o) const { return x * o.y - y * o.x; }
    constexpr DOUBLE2 Orthogonal() const { return {-y, x}; }
    /// Length 1; (0, 0) when this vector is shorter than `epsilon`.
    DOUBLE2 Normalized(double epsilon = 0.001) const;
    /// Radians from this vector to `o`, between -2 pi and 2 pi: the difference of their angles, not wrapped.
    double AngleWith(DOUBLE2 o) const;
    /// For example [3.50, -1.00].
    String ToString() const;
};

/// The point at `t` of the way from `a` to `b`.
constexpr DOUBLE2 Lerp(DOUBLE2 a, DOUBLE2 b, double t) { return a + (b - a) * t; }

std::ostream& operator<<(std::ostream& stream, DOUBLE2 v);
std::wostream& operator<<(std::wostream& stream, DOUBLE2 v);

/// Where the infinite lines p1 p2 and q1 q2 cross: `outLambda1` is the place along p1 p2 (0 at p1, 1 at p2),
/// `outLambda2` along q1 q2. False, with both left alone, when the lines are parallel: the cross product of their
/// vectors lies within `epsilon` of 0.
bool IntersectLines(DOUBLE2 p1, DOUBLE2 p2, DOUBLE2 q1, DOUBLE2 q2, double& outLambda1, double& outLambda2,
                    double epsilon);

/// The same for segments: true only if both places lie in the closed range 0 to 1.
bool IntersectLineSegments(DOUBLE2 p1, DOUBLE2 p2, DOUBLE2 q1, DOUBLE2 q2, double& outLambda1, double& outLambda2,
                           double epsilon);
