#include "services/math/Vector2.h"

#include "services/math/Vector3.h"

#include <cmath>
#include <compare>
#include <limits>
#include <ostream>

namespace Kes::Math {

namespace {

float const infinity = std::numeric_limits<float>::infinity();

// No number at all leaves the start value, which becomes 0.
float found(float extreme, float start) { return extreme == start ? 0.0f : extreme; }

// NaN after every number, on either side of a comparison.
std::weak_ordering order(float a, float b)
{
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) <=> std::isnan(b);
    return std::weak_order(a, b);
}

} // namespace

bool Vector2::operator<(Vector2 const& o) const
{
    std::weak_ordering const byX = order(x(), o.x());
    return byX != 0 ? byX < 0 : order(y(), o.y()) < 0;
}

float Vector2::length() const { return std::hypot(x(), y()); }

Vector2 Vector2::min(std::vector<Vector2> const& points)
{
    Vector2 least(infinity, infinity);
    for (Vector2 const& p : points) {
        least = Vector2(std::fmin(least.x(), p.x()), std::fmin(least.y(), p.y()));
    }
    return Vector2(found(least.x(), infinity), found(least.y(), infinity));
}

Vector2 Vector2::max(std::vector<Vector2> const& points)
{
    Vector2 most(-infinity, -infinity);
    for (Vector2 const& p : points) {
        most = Vector2(std::fmax(most.x(), p.x()), std::fmax(most.y(), p.y()));
    }
    return Vector2(found(most.x(), -infinity), found(most.y(), -infinity));
}

std::ostream& operator<<(std::ostream& out, Vector2 const& v)
{
    return out << '(' << v.x() << ", " << v.y() << ')';
}

} // namespace Kes::Math
