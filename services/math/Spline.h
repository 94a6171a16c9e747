#pragma once

#include "../logging/Export.h"
#include "Vector2.h"
#include "Vector3.h"

#include <vector>

namespace Kes::Math {

/// Replaces points by a curve through all of them: a Catmull-Rom spline with uniform knots, the end points
/// taken twice.
///
/// The way from one point to the next is parted evenly. Runs of equal points count as one. Points that are
/// not finite stay where they are and part the curve. Fewer than three points of a run stay a straight line.
/// Between two points x never leaves the range between theirs nor runs back, whatever the points beside them
/// do: tangents are shortened for that. The same points in the opposite order give the same curve.
/// @param step  longest share of the way from one point to the next, above 0 up to 1; anything else leaves
///              the points as they are. At most 1000 points are made between two, and 2^24 in all.
FENVIS_EXPORT void interpolateCutmullRom(std::vector<Vector2>& points, float step);
/// The same in space; x is not treated apart.
FENVIS_EXPORT void interpolateCutmullRom(std::vector<Vector3>& points, float step);

} // namespace Kes::Math
