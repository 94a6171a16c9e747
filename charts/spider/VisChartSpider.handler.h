#pragma once

#include "charts/multiaxis/ItemHoverHandler.h"
#include "charts/spider/VisChartSpider.h"

/// Hover over a spider: tooltips and highlights of axes and items.
class FenVisChartSpider::HitDetectEventHandler : public fen::ItemHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChartSpider& chart);

protected:
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;
};
