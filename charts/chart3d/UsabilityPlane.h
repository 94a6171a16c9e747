#pragma once

#include "picking/hits/VisHitProperty.h"
#include "services/math/Matrix.h"
#include "services/opengl/OglViewport.h"

#include <QPoint>

#include <optional>

/// Where the pointer was on a line or surface of a 3D chart, with all that turns it back into data. The
/// lines of a chart with one fixed axis lie in a plane on which that coordinate is known.
class FenVisHitUsabilityPlaneQualifier : public FenVisHitProperty::IQualifier {
public:
    QString toString() const override;

    /// [data] the point that the pointer means.
    /// @param depth  [depth] of the hit
    Kes::Math::Vector3 point(double depth) const;

    qint32 index = 0; ///< 1: x is fixed, 2: y is, 0: nothing is
    double value = 0; ///< [data] of the fixed coordinate
    Kes::Math::Matrix modelView, projection; ///< the latter without the pick region
    FenOglViewport viewport; ///< [px] of the node
    QPoint mouse; ///< [px] relative to the origin of `viewport`
    Kes::Math::Vector3 scaling{1, 1, 1}, offset; ///< scene = (data + offset) x scaling
    std::optional<Kes::Math::Vector3> met; ///< [scene] where the pointer meets a surface
};
