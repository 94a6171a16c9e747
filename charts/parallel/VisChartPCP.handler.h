#pragma once

#include "charts/multiaxis/ItemHoverHandler.h"
#include "charts/parallel/VisChartPCP.h"

/// Hover and drag of parallel coordinates: tooltips of axes, sliders and records; a slider follows the
/// pointer, and its release writes the limit.
class FenVisChartPCP::HitDetectEventHandler : public fen::ItemHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChartPCP& chart);

    bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override;
    bool OnMouseRelease(FenVisHitRecord const& hit) override;

protected:
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;

private:
    void moveSliders(int dLow, int dHigh);
    int getHighlightedIndex() const;
    bool commit();
    void write(FenChartVariable const& variable, bool low, double value) const;
};
