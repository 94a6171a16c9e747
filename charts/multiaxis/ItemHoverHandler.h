#pragma once

#include "picking/select/VisHoverHandler.h"

namespace fen {

/// Hover over a chart of items, all of which belong to the chart: they are told apart by their qualifiers.
class ItemHoverHandler : public FenVisHoverHandler {
public:
    using FenVisHoverHandler::FenVisHoverHandler;

    /// Over the chart itself nothing is hovered any more.
    bool OnMouseOver(FenVisHitRecord const& hit, FenStringBuilder const& builder, QString& tooltip) override;

protected:
    ~ItemHoverHandler() = default;

    /// The same owner and kind of part, and of two items the same one.
    bool isSame(FenVisHitProperty const& a, FenVisHitProperty const& b) const override;
};

} // namespace fen
