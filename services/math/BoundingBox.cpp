#include "services/math/BoundingBox.h"

#include "services/math/Matrix.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace Kes::Math {

namespace {

// Nothing times infinity is nothing, so that what has no end stays a box.
float product(float a, float b) { return a == 0.0f || b == 0.0f ? 0.0f : a * b; }

float numberOr0(float value) { return std::isnan(value) ? 0.0f : value; }

bool finite(Vector3 const& v) { return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z()); }

Vector3 withoutNaN(Vector3 const& v) { return {numberOr0(v.x()), numberOr0(v.y()), numberOr0(v.z())}; }

} // namespace

Vector3 BoundingBox::extent() const { return _defined ? withoutNaN(_max - _min) : Vector3(); }

Vector3 BoundingBox::center() const { return _defined ? withoutNaN(_min * 0.5f + _max * 0.5f) : Vector3(); }

void BoundingBox::insert(float x, float y, float z)
{
    if (std::isnan(x) || std::isnan(y) || std::isnan(z)) return;
    Vector3 const point(x, y, z);
    if (!_defined) {
        *this = BoundingBox(point, point);
        return;
    }
    for (int i = 0; i < 3; ++i) {
        _min[i] = std::min(_min[i], point[i]);
        _max[i] = std::max(_max[i], point[i]);
    }
}

void BoundingBox::insert(BoundingBox const& box)
{
    if (!box._defined) return;
    if (!_defined) {
        *this = box;
        return;
    }
    for (int i = 0; i < 3; ++i) {
        _min[i] = std::min(_min[i], box._min[i]);
        _max[i] = std::max(_max[i], box._max[i]);
    }
}

BoundingBox BoundingBox::scale(Vector3 const& factors) const
{
    BoundingBox result = *this;
    for (int i = 0; i < 3; ++i) {
        auto const [low, high] = std::minmax({product(_min[i], factors[i]), product(_max[i], factors[i])});
        result._min[i] = low;
        result._max[i] = high;
    }
    return result;
}

BoundingBox BoundingBox::operator*(Matrix const& m) const
{
    BoundingBox result;
    if (!_defined) return result;
    if (!finite(_min) || !finite(_max)) {
        Vector3 low, high;
        for (int row = 0; row < 3; ++row) {
            low[row] = high[row] = m(row, 3);
            for (int i = 0; i < 3; ++i) {
                float const a = product(m(row, i), _min[i]), b = product(m(row, i), _max[i]);
                low[row] += std::min(a, b);
                high[row] += std::max(a, b);
            }
        }
        return BoundingBox(withoutNaN(low), withoutNaN(high));
    }
    for (int corner = 0; corner < 8; ++corner) {
        result.insert(m
                      * Vector3(corner & 1 ? _max.x() : _min.x(), corner & 2 ? _max.y() : _min.y(),
                                corner & 4 ? _max.z() : _min.z()));
    }
    return result;
}

bool BoundingBox::operator==(BoundingBox const& o) const
{
    if (!_defined || !o._defined) return _defined == o._defined;
    return _min == o._min && _max == o._max;
}

std::ostream& operator<<(std::ostream& out, BoundingBox const& box)
{
    if (!box.defined()) return out << "undefined";
    return out << box.min() << " - " << box.max();
}

} // namespace Kes::Math
