#include "engine/DOUBLE2.h"

#include "engine/String.h"

#include <cmath>
#include <ostream>

double DOUBLE2::Length() const { return std::sqrt(x * x + y * y); }

DOUBLE2 DOUBLE2::Normalized(double epsilon) const {
    const double length = Length();
    if (epsilon > length) return {};
    return *this / length;
}

double DOUBLE2::AngleWith(DOUBLE2 o) const { return std::atan2(o.y, o.x) - std::atan2(y, x); }

String DOUBLE2::ToString() const {
    String text(L"[");
    text.SetPrecision(2);
    return text + x + L", " + y + L"]";
}

std::ostream& operator<<(std::ostream& stream, DOUBLE2 v) {
    return stream << "DOUBLE2( " << v.x << ", " << v.y << " )";
}

std::wostream& operator<<(std::wostream& stream, DOUBLE2 v) {
    return stream << L"DOUBLE2( " << v.x << L", " << v.y << L" )";
}

// p1 + lambda1 * (p2 - p1) = q1 + lambda2 * (q2 - q1); the cross product of both sides with one of the two vectors
// leaves the other lambda alone.
bool IntersectLines(DOUBLE2 p1, DOUBLE2 p2, DOUBLE2 q1, DOUBLE2 q2, double& outLambda1, double& outLambda2,
                    double epsilon) {
    const DOUBLE2 p1p2 = p2 - p1;
    const DOUBLE2 q1q2 = q2 - q1;
    const double denom = p1p2.DetProduct(q1q2);
    if (-epsilon <= denom && denom <= epsilon) return false;
    const DOUBLE2 p1q1 = q1 - p1;
    outLambda1 = p1q1.DetProduct(q1q2) / denom;
    outLambda2 = p1q1.DetProduct(p1p2) / denom;
    return true;
}

bool IntersectLineSegments(DOUBLE2 p1, DOUBLE2 p2, DOUBLE2 q1, DOUBLE2 q2, double& outLambda1, double& outLambda2,
                           double epsilon) {
    const auto onSegment = [](double lambda) { return lambda >= 0.0 && lambda <= 1.0; };
    return IntersectLines(p1, p2, q1, q2, outLambda1, outLambda2, epsilon) && onSegment(outLambda1) &&
           onSegment(outLambda2);
}
