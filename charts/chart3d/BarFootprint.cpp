#include "charts/chart3d/BarFootprint.h"

#include "services/chartdata/FloatRange.h"
#include "services/opengl/OglGeometry.h"

#include <cfloat>
#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace fen {

Vector2 barFootprint(std::vector<Vector3> const& points)
{
    Vector2 least(FLT_MAX, FLT_MAX);
    Vector2 previous(FLT_MAX, FLT_MAX);
    for (Vector3 const& point : points) {
        float const dx = std::abs(previous.x() - point.x()), dy = std::abs(previous.y() - point.y());
        if (dx > 0 && dx < least.x()) least.x() = dx;
        if (dy > 0 && dy < least.y()) least.y() = dy;
        previous = Vector2(point);
    }
    return least;
}

BarBox BarStand::box(Vector3 const& point) const
{
    double const dx = 0.5 * double(footprint.x()), dy = 0.5 * double(footprint.y());
    double const x = double(point.x()), y = double(point.y());
    return {FenOglGeometry::Project(x - dx, y - dy, base, scaling, offset),
            FenOglGeometry::Project(x + dx, y + dy, double(point.z()), scaling, offset)};
}

BoundingBox withOverhang(BoundingBox const& bounds, Vector2 const& footprint)
{
    if (!bounds.defined() || footprint == Vector2()) return bounds;
    double const dx = 0.5 * double(footprint.x()), dy = 0.5 * double(footprint.y());
    Vector3 const min = bounds.min(), max = bounds.max();
    BoundingBox wider = bounds;
    wider.insert(toFloat(double(min.x()) - dx), toFloat(double(min.y()) - dy), min.z());
    wider.insert(toFloat(double(max.x()) + dx), toFloat(double(max.y()) + dy), max.z());
    return wider;
}

} // namespace fen
