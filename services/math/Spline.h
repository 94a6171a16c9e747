#pragma once

#include "../logging/Export.h"
#include "Vector2.h"
#include "Vector3.h"

#include <vector>

namespace Kes::Math {

/// Replaces points by a curve through all of them: a Catmull-Rom spline with uniform knots, the end points
/// taken twice.
///
/// Between two points lie the curve's points at parameter step, 2 step, ... below 1. Runs of equal points
/// count as one. Points that are not finite stay where they are and part the curve. Fewer than three points
/// of a run stay a straight line. Where x ascends, tangents are shortened so that x never runs back.
/// @param step  share of the way from one point to the next, above 0 up to 1; anything else leaves the
///              points as they are. At most 1000 points are made between two, and 2^24 in all.
FENVIS_EXPORT void interpolateCutmullRom(std::vector<Vector2>& points, float step);
/// The same in space; x is not treated apart.
FENVIS_EXPORT void interpolateCutmullRom(std::vector<Vector3>& points, float step);

} // namespace Kes::Math
