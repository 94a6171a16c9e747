#include "services/math/Plane.h"

namespace Kes::Math {

Plane& Plane::normalize()
{
    _normal.normalize();
    return *this;
}

double Plane::distance(Vector3 const& p) const
{
    double sum = 0.0;
    for (int i = 0; i < 3; ++i) sum += double(_normal[i]) * (double(p[i]) - double(_point[i]));
    return sum;
}

} // namespace Kes::Math
