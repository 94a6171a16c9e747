#include "host/camera/CameraPose.h"

#include "services/math/BoundingBox.h"
#include "services/math/Vector3.h"

#include <algorithm>
#include <cmath>
#include <numbers>

using Kes::Math::BoundingBox;
using Kes::Math::Matrix;
using Kes::Math::Vector3;

namespace {

constexpr double leastZoom = 0.1;
constexpr double mostZoom = 100;

double degrees(double angle) { return angle * 180 / std::numbers::pi; }
double number(double value, double fallback) { return std::isfinite(value) ? value : fallback; }

/// Centre of a box, seen through a rotation, and half the height of the picture that it fits into.
struct Fit {
    Vector3 center;
    double half;

    Fit(BoundingBox const& box, Matrix const& rotation, double aspect)
        : half(1)
    {
        if (!box.defined()) return;
        BoundingBox const seen = box * rotation;
        center = seen.center();
        Vector3 const extent = seen.extent() * 0.5f;
        double const fitted = std::max(double(extent.y()), extent.x() / aspect);
        if (fitted > 0 && std::isfinite(fitted)) half = fitted;
    }
};

} // namespace

double const fen::CameraPose::isometric = degrees(std::atan(1 / std::numbers::sqrt2));

std::optional<fen::CameraPose> fen::CameraPose::named(QString const& direction)
{
    struct Row {
        char const* name;
        double azimuth, elevation;
    };
    static Row const rows[] = {{"front", 0, 0}, {"back", 180, 0},   {"left", -90, 0},      {"right", 90, 0},
                               {"top", 0, 90},  {"bottom", 0, -90}, {"iso", 45, isometric}};
    for (Row const& row : rows)
        if (direction == QLatin1String(row.name)) return CameraPose{row.azimuth, row.elevation};
    return {};
}

fen::CameraPose fen::CameraPose::limited() const
{
    CameraPose pose;
    pose.azimuth = std::remainder(number(azimuth, pose.azimuth), 360.0);
    pose.elevation = std::clamp(number(elevation, pose.elevation), -90.0, 90.0);
    pose.zoom = std::clamp(number(zoom, 1), leastZoom, mostZoom);
    double const farthest = 0.9 + 0.5 * pose.zoom; // some of the box stays in the picture
    pose.panX = std::clamp(number(panX, 0), -farthest, farthest);
    pose.panY = std::clamp(number(panY, 0), -farthest, farthest);
    return pose;
}

Matrix fen::CameraPose::rotation() const
{
    Vector3 const x(1, 0, 0), z(0, 0, 1);
    return Matrix::rotate(x, elevation - 90) * Matrix::rotate(z, -azimuth);
}

Matrix fen::CameraPose::matrix(BoundingBox const& box, double aspect) const
{
    Matrix const turned = rotation();
    Fit const fit(box, turned, aspect);
    double const away = 4 * fit.half;
    Vector3 const move(float(panX * fit.half - (zoom - 1) * fit.center.x()),
                       float(panY * fit.half - (zoom - 1) * fit.center.y()),
                       float(-zoom * fit.center.z() - away));
    float const size = float(zoom);
    return Matrix::translation(move) * Matrix::scaling(Vector3(size, size, size)) * turned;
}

fen::CameraPose fen::CameraPose::of(Matrix const& modelView, BoundingBox const& box, double aspect)
{
    if (modelView == Matrix()) return {};
    CameraPose pose;
    Matrix const turned = modelView.orientation();
    pose.elevation = degrees(std::asin(std::clamp(double(turned(2, 2)), -1.0, 1.0)));
    pose.azimuth = degrees(std::atan2(double(turned(0, 1)), double(turned(0, 0))));
    pose.zoom = modelView.scale().x();
    Fit const fit(box, CameraPose(pose).rotation(), aspect);
    pose.panX = (modelView(0, 3) + (pose.zoom - 1) * fit.center.x()) / fit.half;
    pose.panY = (modelView(1, 3) + (pose.zoom - 1) * fit.center.y()) / fit.half;
    return pose.limited();
}
