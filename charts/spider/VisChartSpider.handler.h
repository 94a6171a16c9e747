#pragma once

#include "charts/spider/VisChartSpider.h"
#include "picking/select/VisHoverHandler.h"

/// Hover over a spider: tooltips and highlights of axes and items.
class FenVisChartSpider::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChartSpider& chart);

protected:
    /// Two items are different things, though both belong to the chart.
    bool isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const override;
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;
};
