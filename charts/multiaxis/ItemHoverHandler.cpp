#include "charts/multiaxis/ItemHoverHandler.h"

#include "picking/hits/VisHitQualifiers.h"
#include "picking/hits/VisHitRecord.h"

#include <typeinfo>

bool fen::ItemHoverHandler::OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const& builder,
                                        QString& tooltip)
{
    bool const chart = hit.context() == FenVisHitRecord::DEFAULT_NAME && lookUp(hit).defined();
    if (!chart) return FenVisHoverHandler::OnMouseOver(hit, builder, tooltip);
    bool const any = hovered().defined();
    if (any) tooltip = QString();
    forget();
    return any;
}

bool fen::ItemHoverHandler::isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const
{
    if (!a.isPropertyEqual(b)) return false;
    auto const *partA = a.qualifier.get(), *partB = b.qualifier.get();
    if (!partA || !partB) return partA == partB;
    auto const* const itemA = dynamic_cast<FenVisHitDataPointQualifier const*>(partA);
    auto const* const itemB = dynamic_cast<FenVisHitDataPointQualifier const*>(partB);
    if (itemA && itemB) return itemA->dataPointIdx == itemB->dataPointIdx;
    return typeid(*partA) == typeid(*partB);
}
