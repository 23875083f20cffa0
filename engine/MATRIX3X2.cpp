#include "engine/MATRIX3X2.h"

#include "engine/String.h"

#include <cmath>
#include <ostream>

MATRIX3X2 MATRIX3X2::CreateRotationMatrix(double radians) {
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    return {c, s, -s, c, 0.0, 0.0};
}

String MATRIX3X2::ToString() const {
    return String(L"x=") + dirX.ToString() + L"\ny=" + dirY.ToString() + L"\no=" + orig.ToString();
}

std::ostream& operator<<(std::ostream& stream, const MATRIX3X2& mat) {
    return stream << "MATRIX3X2( " << mat.dirX.x << ", " << mat.dirX.y << ", " << mat.dirY.x << ", " << mat.dirY.y
                  << ", " << mat.orig.x << ", " << mat.orig.y << " )";
}

std::wostream& operator<<(std::wostream& stream, const MATRIX3X2& mat) {
    return stream << L"MATRIX3X2( " << mat.dirX.x << L", " << mat.dirX.y << L", " << mat.dirY.x << L", " << mat.dirY.y
                  << L", " << mat.orig.x << L", " << mat.orig.y << L" )";
}
