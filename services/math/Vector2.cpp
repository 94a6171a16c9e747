#include "services/math/Vector2.h"

#include "services/math/Vector3.h"

#include <cmath>
#include <compare>
#include <limits>
#include <ostream>

namespace Kes::Math {

namespace {

// Passes over NaN, which it starts with.
template <class Choose>
Vector2 extreme(std::vector<Vector2> const& points, Choose const& choose)
{
    float const none = std::numeric_limits<float>::quiet_NaN();
    Vector2 result(none, none);
    for (Vector2 const& p : points) result = Vector2(choose(result.x(), p.x()), choose(result.y(), p.y()));
    return Vector2(std::isnan(result.x()) ? 0.0f : result.x(), std::isnan(result.y()) ? 0.0f : result.y());
}

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
    return extreme(points, [](float a, float b) { return std::fmin(a, b); });
}

Vector2 Vector2::max(std::vector<Vector2> const& points)
{
    return extreme(points, [](float a, float b) { return std::fmax(a, b); });
}

std::ostream& operator<<(std::ostream& out, Vector2 const& v)
{
    return out << '(' << v.x() << ", " << v.y() << ')';
}

} // namespace Kes::Math
