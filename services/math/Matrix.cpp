#include "services/math/Matrix.h"

#include "services/math/Homogeneous.h"
#include "services/math/Plane.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kes::Math {

namespace {

struct Turn {
    double sine, cosine;
};

// Quarter turns are exact; the sine of a rounded pi is not 0.
Turn turn(double degrees)
{
    double const rest = std::remainder(degrees, 360.0); // -180..180
    if (rest == 0.0) return {0.0, 1.0};
    if (std::fabs(rest) == 180.0) return {0.0, -1.0};
    if (std::fabs(rest) == 90.0) return {std::copysign(1.0, rest), 0.0};
    double const radians = rest / 180.0 * std::numbers::pi;
    return {std::sin(radians), std::cos(radians)};
}

double axisLength(Matrix const& m, int column)
{
    return std::hypot(double(m(0, column)), double(m(1, column)), double(m(2, column)));
}

} // namespace

Matrix::Matrix(float const* columns) { std::copy_n(columns, 16, _m); }

bool Matrix::operator==(Matrix const& o) const { return std::equal(_m, _m + 16, o._m); }

Matrix Matrix::inverse() const
{
    Transform t(*this);
    return t.invert() ? t.matrix() : Identity;
}

Matrix Matrix::orientation() const
{
    Matrix result;
    for (int column = 0; column < 3; ++column) {
        double const length = axisLength(*this, column);
        if (!(length > 0.0) || !std::isfinite(length)) continue; // this axis stays a unit axis
        for (int row = 0; row < 3; ++row) result(row, column) = float((*this)(row, column) / length);
    }
    return result;
}

Vector3 Matrix::scale() const
{
    return {float(axisLength(*this, 0)), float(axisLength(*this, 1)), float(axisLength(*this, 2))};
}

Matrix Matrix::operator*(Matrix const& o) const { return (Transform(*this) * Transform(o)).matrix(); }

Vector3 Matrix::operator*(Vector3 const& point) const
{
    return (Transform(*this) * Homogeneous(point)).point();
}

// Rodrigues: R = c I + s [a]x + (1 - c) a aT for a unit axis a.
Matrix Matrix::rotate(Vector3 const& axis, double degrees)
{
    Vector3 const a = Vector3::normalize(axis);
    if (!std::isfinite(degrees) || !(a.length() > 0.5f) || !std::isfinite(a.length())) return Identity;
    auto const [s, c] = turn(degrees);
    double const cross[3][3] = {{0, -a.z(), a.y()}, {a.z(), 0, -a.x()}, {-a.y(), a.x(), 0}};
    Matrix result;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            double const diagonal = row == column ? c : 0.0;
            result(row, column) = float(diagonal + s * cross[row][column] + (1.0 - c) * a[row] * a[column]);
        }
    }
    return result;
}

Matrix Matrix::translation(Vector3 const& offset)
{
    Matrix result;
    for (int row = 0; row < 3; ++row) result(row, 3) = offset[row];
    return result;
}

Matrix Matrix::scaling(Vector3 const& factors)
{
    Matrix result;
    for (int i = 0; i < 3; ++i) result(i, i) = factors[i];
    return result;
}

// With the plane as n.x + d = 0 and the light L at a height h = n.L + d over it, a point p falls onto
// h p - (n.p + d) L, divided by h - (n.p + d). The sign is chosen so that the divisor is positive below L.
Matrix Matrix::shadow(Plane const& plane, Vector3 const& light)
{
    Vector3 const n = plane.normal();
    double const d = plane.distance(Vector3::zero);
    double const height = plane.distance(light);
    double const sign = height < 0.0 ? -1.0 : 1.0;
    double const planeRow[4] = {n.x(), n.y(), n.z(), d};
    double const lightColumn[4] = {light.x(), light.y(), light.z(), 1.0};
    Matrix result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double const diagonal = row == column ? height : 0.0;
            result(row, column) = float(sign * (diagonal - lightColumn[row] * planeRow[column]));
        }
    }
    return result;
}

} // namespace Kes::Math
