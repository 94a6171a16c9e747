#pragma once

#include "picking/select/VisHoverHandler.h"
#include "scene/VisTriad.h"

/// Hover of a triad: the arrow under the pointer lights up and its label is the tooltip.
class FenVisTriad::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisTriad& triad);

    /// Label of the hovered arrow; null for none.
    QString hoveredLabel() const;

protected:
    bool isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const override;
    bool describe(FenVisHitProperty const& hit, FenStringBuilder const& builder, QString& tooltip) override;
};
