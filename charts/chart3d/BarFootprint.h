#pragma once

#include "services/math/BoundingBox.h"
#include "services/math/Vector2.h"

#include <vector>

namespace fen {

/// Extent of a bar in x and y [data]: the smallest step above 0 between points that follow each other. A
/// component without such a step, as for one point or a single row, is FLT_MAX.
Kes::Math::Vector2 barFootprint(std::vector<Kes::Math::Vector3> const& points);

/// The box of a bar around a point, from the base line to the point's z; low corner first in x and y only.
struct BarBox {
    Kes::Math::Vector3 base, top; ///< [scene]
};

/// Where bars stand and how they come into the scene.
struct BarStand {
    Kes::Math::Vector2 footprint; ///< [data] with the bar width applied
    double base = 0; ///< [data] of the base line
    Kes::Math::Vector3 scaling, offset;

    BarBox box(Kes::Math::Vector3 const& point) const;
};

/// Makes room for half a bar on each side of a box.
/// @param footprint  [scene] largest extent of a bar; (0, 0) changes nothing
Kes::Math::BoundingBox withOverhang(Kes::Math::BoundingBox const& bounds,
                                    Kes::Math::Vector2 const& footprint);

} // namespace fen
