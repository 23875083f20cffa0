#pragma once

#include "engine/DOUBLE2.h"
#include "platform/Types.h"

#include <iosfwd>

class String;

/// An affine transform for row vectors; in a * b the transform a comes first. There is no default value: a matrix is
/// built from its rows or by a factory.
struct MATRIX3X2 {
    DOUBLE2 dirX; ///< where the unit x axis goes
    DOUBLE2 dirY; ///< where the unit y axis goes
    DOUBLE2 orig; ///< where the origin goes

    constexpr MATRIX3X2(DOUBLE2 xAxis, DOUBLE2 yAxis, DOUBLE2 origin) : dirX(xAxis), dirY(yAxis), orig(origin) {}
    constexpr MATRIX3X2(double m11, double m12, double m21, double m22, double dx, double dy)
        : dirX(m11, m12), dirY(m21, m22), orig(dx, dy) {}
    constexpr MATRIX3X2(const D2D1_MATRIX_3X2_F& mat) : MATRIX3X2(mat.m11, mat.m12, mat.m21, mat.m22, mat.dx, mat.dy) {}

    static constexpr MATRIX3X2 CreateIdentityMatrix() { return {1.0, 0.0, 0.0, 1.0, 0.0, 0.0}; }
    /// A positive angle turns clockwise on screen.
    static MATRIX3X2 CreateRotationMatrix(double radians);
    static constexpr MATRIX3X2 CreateScalingMatrix(double scaleX, double scaleY) {
        return {scaleX, 0.0, 0.0, scaleY, 0.0, 0.0};
    }
    static constexpr MATRIX3X2 CreateScalingMatrix(double scale) { return CreateScalingMatrix(scale, scale); }
    static constexpr MATRIX3X2 CreateScalingMatrix(DOUBLE2 scaleXY) {
        return CreateScalingMatrix(scaleXY.x, scaleXY.y);
    }
    static constexpr MATRIX3X2 CreateTranslationMatrix(double tx, double ty) { return {1.0, 0.0, 0.0, 1.0, tx, ty}; }
    static constexpr MATRIX3X2 CreateTranslationMatrix(DOUBLE2 origin) {
        return CreateTranslationMatrix(origin.x, origin.y);
    }

    constexpr void SetAsIdentity() { *this = CreateIdentityMatrix(); }
    void SetAsRotate(double radians) { *this = CreateRotationMatrix(radians); }
    constexpr void SetAsScale(double scale) { *this = CreateScalingMatrix(scale); }
    constexpr void SetAsScale(double scaleX, double scaleY) { *this = CreateScalingMatrix(scaleX, scaleY); }
    constexpr void SetAsTranslate(double tx, double ty) { *this = CreateTranslationMatrix(tx, ty); }
    constexpr void SetAsTranslate(DOUBLE2 origin) { *this = CreateTranslationMatrix(origin); }

    /// Directions and distances: the translation does not count.
    constexpr DOUBLE2 TransformVector(DOUBLE2 v) const { return v.x * dirX + v.y * dirY; }
    constexpr DOUBLE2 TransformPoint(DOUBLE2 p) const { return TransformVector(p) + orig; }
    constexpr double Determinant() const { return dirX.DetProduct(dirY); }
    /// The transform that undoes this one; infinite or not-a-number entries when the determinant is 0.
    constexpr MATRIX3X2 Inverse() const {
        const double det = Determinant();
        return {DOUBLE2(dirY.y, -dirX.y) / det, DOUBLE2(-dirY.x, dirX.x) / det,
                DOUBLE2(dirY.x * orig.y - dirY.y * orig.x, dirX.y * orig.x - dirX.x * orig.y) / det};
    }
    constexpr D2D1_MATRIX_3X2_F ToMatrix3x2F() const {
        return {static_cast<float>(dirX.x), static_cast<float>(dirX.y), static_cast<float>(dirY.x),
                static_cast<float>(dirY.y), static_cast<float>(orig.x), static_cast<float>(orig.y)};
    }
    /// Three lines: x=[…], y=[…], o=[…], with two decimals.
    String ToString() const;

    friend constexpr MATRIX3X2 operator*(const MATRIX3X2& a, const MATRIX3X2& b) {
        return {b.TransformVector(a.dirX), b.TransformVector(a.dirY), b.TransformPoint(a.orig)};
    }
    friend constexpr bool operator==(const MATRIX3X2& a, const MATRIX3X2& b) = default;
};

std::ostream& operator<<(std::ostream& stream, const MATRIX3X2& mat);
std::wostream& operator<<(std::wostream& stream, const MATRIX3X2& mat);
