#include "picking/hits/VisHitProjectedPointQualifier.h"

#include <QString>

FenVisHitProjectedPointQualifier::FenVisHitProjectedPointQualifier(Kes::Math::Matrix const& modelView_,
                                                                   Kes::Math::Matrix const& projection_,
                                                                   FenOglViewport const& viewport_,
                                                                   QPoint const& point_,
                                                                   Kes::Math::Vector3 const& scaling_,
                                                                   Kes::Math::Vector3 const& offset_)
    : modelView(modelView_)
    , projection(projection_)
    , viewport(viewport_)
    , point(point_)
    , scaling(scaling_)
    , offset(offset_)
{
}

FenVisHitProjectedPointQualifier::~FenVisHitProjectedPointQualifier() = default;

QString FenVisHitProjectedPointQualifier::toString() const
{
    return QStringLiteral("??? no string version avaialble ???"); // kept as it is
}
