#pragma once

#include "charts/pie/PieSegment.h"
#include "services/opengl/OglViewport.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace fen {

/// One variable of a pie.
struct PieItem {
    int ring = 0; ///< rings are the distinct numbers, the smallest innermost
    double value = 0; ///< its sign does not count; what is not finite counts as 0
};

/// Places of all segments of a pie inside the data rectangle of its chart.
///
/// Recomputed whole when data or size change; holds no reference to the chart.
struct PieLayout {
    struct Slice {
        std::size_t item; ///< index of the item
        PieSegment segment;
        double share; ///< [0..1] of its ring
    };
    struct Ring {
        PieSegment whole; ///< the ring without its divisions
        bool empty = false; ///< its total is 0: no slice has an area
        std::vector<Slice> slices; ///< clockwise from the top, in the order of the items
    };
    int radius = 0; ///< [px] 0 when there is no room
    PieCircle circle;
    std::vector<Ring> rings; ///< from the inside to the outside

    PieLayout() = default;
    /// @param data  [px] rectangle that the pie is centred in
    PieLayout(FenOglViewport const& data, std::vector<PieItem> const& items);

    /// Slices with an area that meet a box [px], in drawing order, at most the last `limit` of them.
    std::vector<Slice const*> slicesNear(QRectF const& box, std::size_t limit) const;
};

/// "25%": rounded up to whole percents; "0.0%" for a slice of an empty ring.
QString percentText(PieLayout::Ring const& ring, PieLayout::Slice const& slice);

} // namespace fen
