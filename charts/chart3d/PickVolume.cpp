#include "charts/chart3d/PickVolume.h"

#include "services/opengl/OglViewport.h"

#include <algorithm>
#include <array>
#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Matrix;
using Kes::Math::Vector3;

namespace fen {

namespace {

Vector3 pixelCenter(QPoint const& point, float depth)
{
    return Vector3(float(point.x()) + 0.5f, float(point.y()) + 0.5f, depth);
}

} // namespace

PickVolume::PickVolume(QPoint const& point, QSize const& size, FenOglViewport const& viewport,
                       Matrix const& toClip)
{
    Vector3 const center = pixelCenter(point, 0);
    float const width = float(std::max(1, viewport.width())), height = float(std::max(1, viewport.height()));
    Matrix region;
    region(0, 0) = width / float(std::max(1, size.width()));
    region(1, 1) = height / float(std::max(1, size.height()));
    region(0, 3) = -(2 * center.x() / width - 1) * region(0, 0);
    region(1, 3) = -(2 * center.y() / height - 1) * region(1, 1);
    _toRegion = region * toClip;
}

PickVolume::Clip PickVolume::clip(Vector3 const& p) const
{
    auto const row = [&](int r) {
        return _toRegion(r, 0) * p.x() + _toRegion(r, 1) * p.y() + _toRegion(r, 2) * p.z() + _toRegion(r, 3);
    };
    return {row(0), row(1), row(2), row(3)};
}

bool PickVolume::mayMeet(BoundingBox const& box) const
{
    std::array<int, 6> outside{};
    for (int bits = 0; bits < 8; ++bits) {
        Vector3 const corner((bits & 1 ? box.max() : box.min()).x(), (bits & 2 ? box.max() : box.min()).y(),
                             (bits & 4 ? box.max() : box.min()).z());
        Clip const c = clip(corner);
        outside[0] += c.x < -c.w;
        outside[1] += c.x > c.w;
        outside[2] += c.y < -c.w;
        outside[3] += c.y > c.w;
        outside[4] += c.z < -c.w;
        outside[5] += c.z > c.w;
    }
    return std::none_of(outside.begin(), outside.end(), [](int count) { return count == 8; });
}

float PickVolume::depthOf(Vector3 const& point) const
{
    Clip const c = clip(point);
    bool const inside = std::abs(c.x) <= c.w && std::abs(c.y) <= c.w && std::abs(c.z) <= c.w && c.w > 0;
    return inside ? 0.5f * c.z / c.w + 0.5f : -1.0f;
}

float PickVolume::depthAnywhere(Vector3 const& point) const
{
    Clip const c = clip(point);
    return c.w > 0 ? std::clamp(0.5f * c.z / c.w + 0.5f, 0.0f, 1.0f) : 0.0f;
}

PickRay::PickRay(QPoint const& point, FenOglViewport const& viewport, Matrix const& modelView,
                 Matrix const& projection)
{
    FenOglViewport const pixels(0, 0, viewport.width(), viewport.height());
    from = pixelCenter(point, 0).unProject(modelView, projection, pixels);
    to = pixelCenter(point, 1).unProject(modelView, projection, pixels);
}

/// Moeller and Trumbore 1997.
double PickRay::meets(Vector3 const& a, Vector3 const& b, Vector3 const& c) const
{
    Vector3 const way = to - from, ab = b - a, ac = c - a;
    Vector3 const p = Vector3::xProduct(way, ac);
    double const determinant = double(Vector3::dot(ab, p));
    if (determinant == 0) return -1;
    Vector3 const away = from - a;
    double const u = double(Vector3::dot(away, p)) / determinant;
    Vector3 const q = Vector3::xProduct(away, ab);
    double const v = double(Vector3::dot(way, q)) / determinant;
    constexpr double rounding = 1e-5;
    if (u < -rounding || v < -rounding || u + v > 1 + rounding) return -1;
    return double(Vector3::dot(ac, q)) / determinant;
}

Vector3 PickRay::at(double share) const { return from + (to - from) * float(share); }

} // namespace fen
