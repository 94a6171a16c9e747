#include "charts/correlation/VisChartCorrelation.handler.h"

#include "picking/hits/VisHitProperty.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/properties/StringBuilder.h"

namespace {

/// (row, column) of a hit; null when it is no cell.
FenVisHitVector2Qualifier const* cellOf(FenVisHitProperty const& hit)
{
    return dynamic_cast<FenVisHitVector2Qualifier const*>(hit.qualifier.get());
}

} // namespace

FenVisChartCorrelation::HitDetectEventHandler::HitDetectEventHandler(FenVisChartCorrelation& chart)
    : FenVisHoverHandler(chart)
{
}

bool FenVisChartCorrelation::HitDetectEventHandler::isSame(FenVisHitProperty const& a,
                                                           FenVisHitProperty const& b) const
{
    auto const *const one = cellOf(a), *const other = cellOf(b);
    bool const sameCell = one && other ? one->x == other->x && one->y == other->y : !one && !other;
    return sameCell && a.isPropertyEqual(b);
}

bool FenVisChartCorrelation::HitDetectEventHandler::describe(FenVisHitProperty const& hit,
                                                             FenStringBuilder const& builder,
                                                             QString& tooltip)
{
    auto const* const node = nodeAs<FenVisChartCorrelation>();
    auto const* const cell = cellOf(hit);
    if (!node || !cell || !hit.isPropertyEqual(&node->chart)) return false;
    tooltip = builder.formatter(QStringLiteral("%1"))(node->value(unsigned(cell->x), unsigned(cell->y)))();
    return true;
}
