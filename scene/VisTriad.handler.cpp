#include "scene/VisTriad.handler.h"

#include "picking/hits/VisHitQualifiers.h"

namespace {

QString labelOf(FenVisHitProperty const& hit)
{
    auto const* const label = dynamic_cast<FenVisHitLabelQualifier const*>(hit.qualifier.get());
    return label ? label->label : QString();
}

} // namespace

FenVisTriad::HitDetectEventHandler::HitDetectEventHandler(FenVisTriad& triad)
    : FenVisHoverHandler(triad)
{
}

QString FenVisTriad::HitDetectEventHandler::hoveredLabel() const
{
    return hovered().defined() ? labelOf(hovered()) : QString();
}

bool FenVisTriad::HitDetectEventHandler::isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const
{
    return a.isPropertyEqual(b) && labelOf(a) == labelOf(b);
}

bool FenVisTriad::HitDetectEventHandler::describe(FenVisHitProperty const& hit, FenStringBuilder const&,
                                                  QString& tooltip)
{
    tooltip = labelOf(hit);
    return true;
}
