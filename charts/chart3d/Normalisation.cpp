#include "charts/chart3d/Normalisation.h"

#include "services/chartdata/FloatRange.h"
#include "services/opengl/OglGeometry.h"

#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Vector3;

namespace fen {

namespace {

constexpr double leastShare = 1e-6; // of a number, so that floats on both sides of it differ

} // namespace

BoundingBox widened(BoundingBox const& box)
{
    if (!box.defined()) return box;
    Vector3 min = box.min(), max = box.max();
    for (int i = 0; i < 3; ++i) {
        if (min[i] != max[i]) continue;
        double const value = double(min[i]);
        double const margin = std::max(1.0, leastShare * std::abs(value));
        min[i] = toFloat(value - margin);
        max[i] = toFloat(value + margin);
    }
    return BoundingBox(min, max);
}

Normalisation normalised(BoundingBox const& data)
{
    Normalisation result;
    result.bounds = data;
    if (!data.defined()) return result;
    result.offset = -data.min();
    for (int i = 0; i < 3; ++i) {
        double const size = double(data.max()[i]) - double(data.min()[i]);
        result.scaling[i] = size == 0 ? 1.0f : toFloat(1.0 / size);
    }
    auto const project = [&](Vector3 const& corner) {
        return FenOglGeometry::Project(corner, result.scaling, result.offset);
    };
    result.bounds = BoundingBox(project(data.min()), project(data.max()));
    return result;
}

} // namespace fen
