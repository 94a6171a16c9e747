#include "charts/chart3d/UsabilityPlane.h"

#include "services/logging/DebugLogger.h"
#include "services/opengl/OglGeometry.h"

using Kes::Math::Vector3;

namespace {

constexpr char const* unknownPlane = "@line 1";

} // namespace

QString FenVisHitUsabilityPlaneQualifier::toString() const
{
    return QStringLiteral("usabilityplane(%1 = %2)").arg(index).arg(value);
}

Vector3 FenVisHitUsabilityPlaneQualifier::point(double depth) const
{
    FenOglViewport const pixels(0, 0, viewport.width(), viewport.height());
    Vector3 const pointer(float(mouse.x()) + 0.5f, float(mouse.y()) + 0.5f, float(depth));
    Vector3 const scene = met ? *met : pointer.unProject(modelView, projection, pixels);
    Vector3 data = FenOglGeometry::UnProject(scene, scaling, offset);
    switch (index) {
    case 0:
        break;
    case 1:
        data.x() = float(value);
        break;
    case 2:
        data.y() = float(value);
        break;
    default:
        fen::debug_logger::debuglogger().sentry(__PRETTY_FUNCTION__, unknownPlane);
    }
    return data;
}
