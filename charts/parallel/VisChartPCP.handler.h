#pragma once

#include "charts/parallel/VisChartPCP.h"
#include "picking/select/VisHoverHandler.h"

/// Hover and drag of parallel coordinates: tooltips of axes, sliders and records; a slider follows the
/// pointer, and its release writes the limit.
class FenVisChartPCP::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChartPCP& chart);

    bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override;
    bool OnMouseRelease(FenVisHitRecord const& hit) override;

protected:
    /// Axis, lower and upper slider of a variable are different things, and so are two records.
    bool isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const override;
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;

private:
    void moveSliders(int dLow, int dHigh);
    int getHighlightedIndex() const;
    bool commit();
    void write(FenChartVariable const& variable, bool low, double value) const;
};
