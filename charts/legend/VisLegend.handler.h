#pragma once

#include "charts/legend/VisLegend.h"
#include "picking/select/VisHoverHandler.h"

/// Hover, click and drag of a legend. Hovering or clicking an entry highlights
/// it; dragging moves the legend, and the release writes its place.
class FenVisLegend::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisLegend& legend);

    bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override;
    bool OnMouseRelease(FenVisHitRecord const& hit) override;
    bool OnMouseSelect(FenVisHitRecord const& hit) override;

    /// [px] lower left corner of the box while it is dragged, else null.
    QPoint const* dragged() const { return _dragging ? &_corner : nullptr; }

protected:
    /// The label of an entry's variable, or the legend's name.
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;

private:
    bool _dragging = false;
    QPoint _corner;
};
