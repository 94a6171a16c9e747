#pragma once

#include "../../services/logging/Export.h"
#include "../../services/math/Matrix.h"
#include "../../services/math/Vector3.h"
#include "../../services/opengl/OglViewport.h"
#include "VisHitProperty.h"

#include <QPoint>

/// A place on a curve where the pointer was: with the matrices that were in
/// force it can be turned back into data.
class FENVIS_EXPORT FenVisHitProjectedPointQualifier : public FenVisHitProperty::IQualifier {
public:
    FenVisHitProjectedPointQualifier(Kes::Math::Matrix const& modelView, Kes::Math::Matrix const& projection,
                                     FenOglViewport const& viewport, QPoint const& point,
                                     Kes::Math::Vector3 const& scaling, Kes::Math::Vector3 const& offset);
    ~FenVisHitProjectedPointQualifier() override;
    QString toString() const override;

    Kes::Math::Matrix modelView; ///< of the drawn curve
    Kes::Math::Matrix projection; ///< without the pick matrix
    FenOglViewport viewport; ///< [px] of the node
    QPoint point; ///< [px] pointer, relative to the origin of `viewport`
    Kes::Math::Vector3 scaling; ///< scene = (data + offset) * scaling, per axis
    Kes::Math::Vector3 offset;
};
