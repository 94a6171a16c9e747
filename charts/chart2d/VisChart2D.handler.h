#pragma once

#include "charts/chart2d/VisChart2D.h"
#include "picking/select/VisHoverHandler.h"

#include <QString>

class FenChartAxisScale;
class FenChartVariable;
class FenVisHitProjectedPointQualifier;

/// Tooltips and highlight of a 2D chart: the hovered thing of the base is what is highlighted.
///
/// A hit on a curve becomes a hit on the data point that the curve stands for under the pointer.
class FenVisChart2D::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChart2D& chart);

    bool OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& text) override;
    /// Forgets whatever was highlighted; true when there was something.
    bool OnMouseLeave(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& text) override;
    bool OnMouseSelect(FenVisHitRecord const& hit) override;

private:
    bool describeVariable(FenVisChart2D const& chart, FenVisHitRecord const& hit, FenVisHitProperty& property,
                          FenStringBuilder const& builder, QString& text) const;
    FenVisHitProperty toDataPoint(FenVisChart2D const& chart, fen::DrawnVariable const& one,
                                  FenVisHitProjectedPointQualifier const& place,
                                  FenVisHitProperty const& property) const;
};
