#include "charts/chart3d/LineShape.h"

#include "services/math/BoundingBox.h"
#include "services/math/Spline.h"

#include <algorithm>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace fen {

namespace {

constexpr float finestStep = 0.05f; ///< of the way between two points
constexpr float mostSamples = 200000; ///< of one spline

float splineStep(std::size_t points) { return std::clamp(float(points) / mostSamples, finestStep, 1.0f); }

} // namespace

LinePlane::LinePlane(unsigned mode, std::vector<Vector3> const& points)
    : index(mode == 1 || mode == 2 ? int(mode) : 0)
{
    if (index == 0 || points.empty()) return;
    Kes::Math::BoundingBox box;
    for (Vector3 const& point : points) box.insert(point);
    int const fixed = index - 1;
    value = box.min()[fixed] == box.max()[fixed] ? box.min()[fixed] : box.center()[fixed];
}

Vector3 LinePlane::lift(Vector2 const& sample) const
{
    return index == 1 ? Vector3(value, sample.x(), sample.y()) : Vector3(sample.x(), value, sample.y());
}

Vector2 LinePlane::flat(Vector3 const& point) const
{
    return Vector2(index == 1 ? point.y() : point.x(), point.z());
}

std::vector<Vector3> linePoints(std::vector<Vector3> const& points, LinePlane const& plane, bool spline)
{
    std::vector<Vector3> line = points;
    if (plane.index == 0) {
        if (spline) Kes::Math::interpolateCutmullRom(line, splineStep(points.size()));
        return line;
    }
    std::vector<Vector2> samples;
    samples.reserve(points.size());
    for (Vector3 const& point : points) samples.push_back(plane.flat(point));
    if (spline) Kes::Math::interpolateCutmullRom(samples, splineStep(points.size()));
    line.resize(samples.size());
    std::transform(samples.begin(), samples.end(), line.begin(),
                   [&](Vector2 const& sample) { return plane.lift(sample); });
    return line;
}

std::vector<Vector3> areaStrip(std::vector<Vector3> const& line, float base)
{
    std::vector<Vector3> strip;
    strip.reserve(2 * line.size());
    auto const add = [&](Vector3 const& point) {
        strip.push_back(point);
        strip.push_back(Vector3(point.x(), point.y(), base));
    };
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (i > 0) {
            float const before = line[i - 1].z() - base, after = line[i].z() - base;
            if ((before < 0 && after > 0) || (before > 0 && after < 0))
                add(line[i - 1] + (line[i] - line[i - 1]) * (before / (before - after)));
        }
        add(line[i]);
    }
    return strip;
}

} // namespace fen
