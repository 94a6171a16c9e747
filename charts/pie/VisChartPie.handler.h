#pragma once

#include "charts/pie/VisChartPie.h"
#include "picking/select/VisHoverHandler.h"

/// Tooltips and highlight of a pie: the hovered thing of the base is what is highlighted.
class FenVisChartPie::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChartPie& chart);

    /// Forgets the highlighted thing when the hit is on it; clears the tooltip if it is still its name.
    bool OnMouseLeave(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& text) override;

protected:
    /// The name of a variable; the chart itself is highlighted without a tooltip.
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;
};
