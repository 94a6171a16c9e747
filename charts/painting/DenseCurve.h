#pragma once

#include "charts/painting/CurvePoints.h"

namespace fen {

/// Curves whose x do not ascend may cross every pixel thousands of times: drawing all of it takes minutes.
/// Where a curve would cover its rectangle more than once over, these give the pixels that it covers instead,
/// each once. Nothing of it is left out.

/// The curve itself, or upright spans over every pixel that it meets.
/// @param size   [px] rectangle that is seen
/// @param ratio  pixel columns per pixel
Strips lineOrCover(Strips line, QSize const& size, double ratio);

/// Triangle strips as `areaBand` makes them, or one upright stripe per pixel column from the lowest to the
/// highest place that the area takes there.
/// @param edge  the curve
/// @param base  [px] height of the base line
Strips bandOrCover(Strips const& edge, double base, QSize const& size, double ratio);

} // namespace fen
