#pragma once

#include "services/math/Segment.h"
#include "services/math/Vector2.h"

#include <array>
#include <functional>

namespace Kes::Math {
class BoundingBox;
}

namespace fen {

/// [scene] to [px], origin at the lower left of the viewport; a NaN for what lies behind the eye.
typedef std::function<Kes::Math::Vector2(Kes::Math::Vector3 const&)> ScreenProjection;

/// Where the labels of the three axes of a box stand.
struct AxisLabelEdges {
    /// [scene] one edge of the box per axis, in the axis's positive direction
    std::array<Kes::Math::Segment, 3> edges;
    /// Side of the edge on which the labels lie: 1 towards +x of the screen, -1 towards -x; up or down for
    /// an edge that lies flat on the screen.
    std::array<float, 3> directions{1.0f, 1.0f, 1.0f};
};

/// Puts the labels of each axis on the outline of the projected box, outside: on the lower (or left) of
/// the two parallel edges that an axis has there. An axis without an edge in the outline, as when the
/// view runs along it, keeps its edge from the minimum corner; so do all axes while part of the box lies
/// behind the eye.
AxisLabelEdges placeAxisLabels(Kes::Math::BoundingBox const& box, ScreenProjection const& project);

/// True for a segment [px] that lies flat on the screen, but for rounding.
bool liesFlat(Kes::Math::Segment const& segment);

/// Unit vector [px] at right angles to a segment on the screen, towards the side of `direction`. Zero for
/// a segment without length.
Kes::Math::Vector2 outwardNormal(Kes::Math::Segment const& segment, float direction);

} // namespace fen
