#pragma once

#include "services/math/Matrix.h"

#include <array>

namespace Kes::Math {

/// A point with its fourth coordinate, in double.
struct Homogeneous {
    double x, y, z, w;

    Homogeneous(double px, double py, double pz, double pw = 1.0)
        : x(px)
        , y(py)
        , z(pz)
        , w(pw)
    {
    }
    explicit Homogeneous(Vector3 const& point)
        : Homogeneous(point.x(), point.y(), point.z())
    {
    }

    bool hasPoint() const { return w != 0.0; }
    /// The point in space; a direction (w is 0) is taken as it is.
    Vector3 point() const;
};

/// A 4 x 4 transform in double, column by column: what products and inverses are computed with.
class Transform {
public:
    explicit Transform(Matrix const& m);

    Matrix matrix() const;

    Transform operator*(Transform const& o) const;
    Homogeneous operator*(Homogeneous const& p) const;

    /// False, and unchanged, when there is no inverse that a Matrix can hold.
    bool invert();

private:
    Transform() = default;
    double at(int row, int column) const { return _m[size_t(column * 4 + row)]; }
    double& at(int row, int column) { return _m[size_t(column * 4 + row)]; }

    std::array<double, 16> _m{};
};

} // namespace Kes::Math
