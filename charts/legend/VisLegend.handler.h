#pragma once

#include "charts/legend/VisLegend.h"
#include "picking/select/VisHoverHandler.h"
#include "services/opengl/BoxPlacement.h"

/// Hover, click and drag of a legend. Hovering or clicking an entry highlights
/// it; dragging moves the legend, and the release writes its place.
class FenVisLegend::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisLegend& legend);

    bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override;
    bool OnMouseRelease(FenVisHitRecord const& hit) override;
    bool OnMouseSelect(FenVisHitRecord const& hit) override;

    fen::BoxDrag const& drag() const { return _drag; }

protected:
    /// The label of an entry's variable, or the legend's name.
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;

private:
    fen::BoxDrag _drag;
};
