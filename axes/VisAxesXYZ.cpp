#include "axes/VisAxesXYZ.h"

#include "framework/DrawContext.h"
#include "services/chartdata/ChartAxis.h"

#include <cmath>
#include <limits>

using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

QString const FenVisAxesXYZ::typeString = QStringLiteral("visualization.axesXYZ");

FenVisAxesXYZ::FenVisAxesXYZ(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
{
    rename(typeString);
    setType(typeString);
}

FenVisAxesXYZ::FenVisAxesXYZ(FenVisAxesXYZ const& other)
    : FenVisPassiveNode(other)
{
    rename(typeString);
    setType(typeString);
}

FenVisAxesXYZ& FenVisAxesXYZ::operator=(FenVisAxesXYZ const& other)
{
    FenVisPassiveNode::operator=(other);
    return *this;
}

FenVisAxesXYZ::~FenVisAxesXYZ() = default;

/// The axis whose colours an axis is drawn in: y stands in for a missing z.
FenChartAxis const* FenVisAxesXYZ::styleOf(unsigned k) const
{
    return axis(k) || k != Vector3::CompZ ? axis(k) : axis(Vector3::CompY);
}

Vector3 FenVisAxesXYZ::axisEnd(unsigned k) const
{
    Vector3 end = _bounds.min();
    end[k] = _bounds.max()[k];
    return end;
}

FenVisAxesXYZ::Projector::Projector(Matrix const& modelView, Matrix const& projection,
                                    FenOglViewport const& viewport)
    : _modelView(modelView)
    , _projection(projection)
    , _toClip(projection * modelView)
    , _viewport(viewport)
{
}

Vector3 FenVisAxesXYZ::Projector::project(Vector3 const& point) const
{
    return point.project(_modelView, _projection, _viewport);
}

Vector2 FenVisAxesXYZ::Projector::onScreen(Vector3 const& point) const
{
    float const w =
        _toClip(3, 0) * point.x() + _toClip(3, 1) * point.y() + _toClip(3, 2) * point.z() + _toClip(3, 3);
    constexpr float unknown = std::numeric_limits<float>::quiet_NaN();
    return w > 0 ? Vector2(project(point)) : Vector2(unknown, unknown);
}
