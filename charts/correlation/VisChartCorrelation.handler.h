#pragma once

#include "charts/correlation/VisChartCorrelation.h"
#include "picking/select/VisHoverHandler.h"

/// Tooltips and highlight of a correlation chart: the hovered cell, whose number is the tooltip.
class FenVisChartCorrelation::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChartCorrelation& chart);

protected:
    /// The same owner and the same cell.
    bool isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const override;
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;
};
