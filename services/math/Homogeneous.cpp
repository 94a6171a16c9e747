#include "services/math/Homogeneous.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Kes::Math {

Vector3 Homogeneous::point() const
{
    double const divisor = hasPoint() ? w : 1.0;
    return {float(x / divisor), float(y / divisor), float(z / divisor)};
}

Transform::Transform(Matrix const& m)
{
    float const* const source = m;
    std::copy_n(source, _m.size(), _m.begin());
}

Matrix Transform::matrix() const
{
    std::array<float, 16> columns;
    std::transform(_m.begin(), _m.end(), columns.begin(), [](double d) { return float(d); });
    return Matrix(columns.data());
}

Transform Transform::operator*(Transform const& o) const
{
    Transform product;
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            for (int k = 0; k < 4; ++k) product.at(row, column) += at(row, k) * o.at(k, column);
        }
    }
    return product;
}

Homogeneous Transform::operator*(Homogeneous const& p) const
{
    auto const row = [&](int r) { return at(r, 0) * p.x + at(r, 1) * p.y + at(r, 2) * p.z + at(r, 3) * p.w; };
    return Homogeneous(row(0), row(1), row(2), row(3));
}

// Gauss-Jordan with the largest pivot of each column.
bool Transform::invert()
{
    Transform left = *this;
    Transform right(Matrix::Identity);
    for (int column = 0; column < 4; ++column) {
        int pivot = column;
        for (int row = column + 1; row < 4; ++row) {
            if (std::fabs(left.at(row, column)) > std::fabs(left.at(pivot, column))) pivot = row;
        }
        double const divisor = left.at(pivot, column);
        if (divisor == 0.0 || !std::isfinite(divisor)) return false;
        for (int k = 0; k < 4; ++k) {
            std::swap(left.at(pivot, k), left.at(column, k));
            std::swap(right.at(pivot, k), right.at(column, k));
            left.at(column, k) /= divisor;
            right.at(column, k) /= divisor;
        }
        for (int row = 0; row < 4; ++row) {
            double const share = row == column ? 0.0 : left.at(row, column);
            for (int k = 0; k < 4; ++k) {
                left.at(row, k) -= share * left.at(column, k);
                right.at(row, k) -= share * right.at(column, k);
            }
        }
    }
    double const limit = double(std::numeric_limits<float>::max());
    bool const held =
        std::all_of(right._m.begin(), right._m.end(), [limit](double d) { return std::fabs(d) <= limit; });
    if (held) *this = right;
    return held;
}

} // namespace Kes::Math
