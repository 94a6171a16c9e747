#include "charts/chart3d/VisChart3D.handler.h"

#include "charts/chart3d/UsabilityPlane.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/hits/VisHitRecord.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/StringBuilder.h"

#include <boost/make_shared.hpp>

FenVisChart3D::HitDetectEventHandler::HitDetectEventHandler(FenVisChart3D& chart)
    : FenVisHoverHandler(chart)
{
}

bool FenVisChart3D::HitDetectEventHandler::OnMouseOver(FenVisHitRecord const& hit,
                                                       FenStringBuilder const& builder, QString& text)
{
    FenVisHitProperty found = lookUp(hit);
    if (!found.defined()) return false;
    if (auto const* axis = dynamic_cast<FenChartAxis const*>(found.property)) {
        text = axis->name();
        setHovered(found);
        return true;
    }
    auto const* const variable = dynamic_cast<FenChartVariable const*>(found.property);
    if (!variable) return false;
    if (auto const* plane = dynamic_cast<FenVisHitUsabilityPlaneQualifier const*>(found.qualifier.get())) {
        Kes::Math::Vector3 const at = plane->point(hit.depth());
        found = FenVisHitProperty(variable,
                                  boost::make_shared<FenVisHitVector3Qualifier>(at.x(), at.y(), at.z()));
    }
    if (auto const* at = dynamic_cast<FenVisHitVector3Qualifier const*>(found.qualifier.get())) {
        FenStringBuilder::Formatter written = builder.formatter(QStringLiteral("%1 { %2, %3, %4 }"));
        text = written(variable->shownName())(at->x)(at->y)(at->z)();
    }
    setHovered(found);
    return true;
}

bool FenVisChart3D::HitDetectEventHandler::OnMouseLeave(FenVisHitRecord const&, FenStringBuilder const&,
                                                        QString&)
{
    bool const any = hovered().defined();
    forget();
    return any;
}
