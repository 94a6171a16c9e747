#pragma once

#include "../logging/Export.h"
#include "Vector3.h"

namespace Kes::Math {

class Plane;

/// A 4 x 4 transform of column vectors, stored column by column as OpenGL does.
///
/// `a * b` applies b first. Starts as the identity.
class FENVIS_EXPORT Matrix {
public:
    static Matrix const Identity;

    constexpr Matrix() = default;
    /// Takes 16 floats, column by column.
    explicit Matrix(float const* columns);

    constexpr operator float const*() const { return _m; }
    constexpr operator float*() { return _m; }

    constexpr float operator()(int row, int column) const { return _m[column * 4 + row]; }
    constexpr float& operator()(int row, int column) { return _m[column * 4 + row]; }

    bool operator==(Matrix const& o) const;

    void identity() { *this = Matrix(); }

    /// @return the identity when there is no inverse
    Matrix inverse() const;
    /// The rotation part: axes of length 1, no translation. A mirroring stays in it.
    Matrix orientation() const;
    /// The lengths of the three axes.
    Vector3 scale() const;

    Matrix operator*(Matrix const& o) const;
    /// This matrix times another, as glMultMatrix does.
    Matrix& operator*=(Matrix const& o) { return *this = *this * o; }
    /// Transforms a point; divides by w unless that is 0.
    Vector3 operator*(Vector3 const& point) const;

    /// About an axis through the origin, counter-clockwise seen from its tip; the identity when the axis
    /// has no length. Multiples of 90 degrees about a coordinate axis are exact.
    static Matrix rotate(Vector3 const& axis, double degrees);
    static Matrix translation(Vector3 const& offset);
    static Matrix scaling(Vector3 const& factors);
    /// Flattens every point onto a plane, along the ray from a light at a position. Points on the plane's
    /// side of the light get a positive w.
    static Matrix shadow(Plane const& plane, Vector3 const& light);

private:
    float _m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

inline constexpr Matrix Matrix::Identity{};

} // namespace Kes::Math
