#include "host/scene/PlaneSection.h"

#include "services/math/BoundingBox.h"
#include "services/math/Plane.h"

#include <algorithm>
#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Plane;
using Kes::Math::Vector3;

namespace fen {

namespace {

constexpr double mostLines = 1000;

Vector3 cornerOf(BoundingBox const& box, int bits)
{
    return Vector3(bits & 1 ? box.max().x() : box.min().x(), bits & 2 ? box.max().y() : box.min().y(),
                   bits & 4 ? box.max().z() : box.min().z());
}

/// Where the edges of the box meet the plane; corners that lie in it come once for each edge.
std::vector<Vector3> crossings(BoundingBox const& box, Plane const& plane)
{
    double const nearly = 1e-5 * double(box.extent().length());
    std::vector<Vector3> points;
    for (int bits = 0; bits < 8; ++bits)
        for (int const axis : {1, 2, 4}) {
            if (bits & axis) continue;
            Vector3 const from = cornerOf(box, bits), to = cornerOf(box, bits | axis);
            double const a = plane.distance(from), b = plane.distance(to);
            if (std::abs(a) <= nearly) points.push_back(from);
            if (std::abs(b) <= nearly) points.push_back(to);
            if ((a > nearly && b < -nearly) || (a < -nearly && b > nearly))
                points.push_back(from + (to - from) * float(a / (a - b)));
        }
    return points;
}

} // namespace

PlaneSection::PlaneSection(BoundingBox const& box, Plane const& plane)
    : origin(plane.point())
{
    Vector3 const n = plane.normal();
    Vector3 const other = std::abs(n.x()) < 0.9f ? Vector3(1, 0, 0) : Vector3(0, 1, 0);
    u = Vector3::normalize(other - n * Vector3::dot(other, n));
    v = Vector3::xProduct(n, u);
    if (!box.defined()) return;
    std::vector<Vector3> points = crossings(box, plane);
    Vector3 middle;
    for (Vector3 const& point : points) middle += point * (1.0f / float(points.size()));
    auto const turn = [&](Vector3 const& point) {
        return std::atan2(Vector3::dot(point - middle, v), Vector3::dot(point - middle, u));
    };
    std::sort(points.begin(), points.end(), [&](auto const& a, auto const& b) { return turn(a) < turn(b); });
    float const nearly = 1e-4f * box.extent().length();
    for (Vector3 const& point : points)
        if (corners.empty() || (point - corners.back()).length() > nearly) corners.push_back(point);
    if (corners.size() > 1 && (corners.front() - corners.back()).length() <= nearly) corners.pop_back();
}

Vector3 PlaneSection::center() const
{
    Vector3 sum;
    for (Vector3 const& corner : corners) sum += corner * (1.0f / float(corners.size()));
    return sum;
}

std::vector<Vector3> PlaneSection::grid(double spacing) const
{
    std::vector<Vector3> lines;
    if (empty() || !(spacing > 0)) return lines;
    appendLines(lines, u, spacing);
    appendLines(lines, v, spacing);
    return lines;
}

/// Lines at right angles to `across`: each crosses the outline of the convex section twice.
void PlaneSection::appendLines(std::vector<Vector3>& lines, Vector3 const& across, double spacing) const
{
    auto const place = [&](Vector3 const& point) { return double(Vector3::dot(point - origin, across)); };
    auto const [least, most] = std::minmax_element(
        corners.begin(), corners.end(), [&](auto const& a, auto const& b) { return place(a) < place(b); });
    double const from = std::ceil(place(*least) / spacing), to = std::floor(place(*most) / spacing);
    if (!(to - from < mostLines)) return;
    for (double i = from; i <= to; ++i) {
        std::vector<Vector3> ends;
        for (size_t k = 0; k < corners.size() && ends.size() < 2; ++k) {
            Vector3 const &a = corners[k], &b = corners[(k + 1) % corners.size()];
            double const before = place(a) - i * spacing, after = place(b) - i * spacing;
            if ((before <= 0) != (after <= 0)) ends.push_back(a + (b - a) * float(before / (before - after)));
        }
        if (ends.size() == 2) lines.insert(lines.end(), ends.begin(), ends.end());
    }
}

} // namespace fen
