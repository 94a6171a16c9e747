#pragma once

#include "charts/chart3d/VisChart3D.h"
#include "picking/select/VisHoverHandler.h"

#include <QString>

/// Tooltips and highlight of a 3D chart: the hovered thing of the base is what is highlighted.
///
/// A hit on a line or surface becomes a hit on the point that the pointer means there.
class FenVisChart3D::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisChart3D& chart);

    /// True for every hit on a variable or an axis, the same again too.
    bool OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& text) override;
    /// Forgets whatever was highlighted; true when there was something.
    bool OnMouseLeave(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& text) override;
};
