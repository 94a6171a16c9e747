#pragma once

#include "charts/multiaxis/ItemAxis.h"
#include "services/chartdata/ChartRange.h"

namespace fen {

/// Which end of a filter range a slider moves.
enum class FilterEnd { Low, High };

/// The part of the data that a filter leaves.
/// @param data    [data] smallest and largest value
/// @param filter  [data] limits; without effect unless the upper one is above the lower one
/// @return [data] each limit that lies within the data, else the data's own end
FenChartRange filteredRange(FenChartRange const& data, FenChartRange const& filter);

/// Moves one end of a filtered range, never beyond the other end or the data.
/// @param share  part of the axis' length, upwards positive
/// @return the range with the end moved
FenChartRange movedRange(ItemAxis const& axis, FenChartRange const& filtered, FilterEnd end, double share);

} // namespace fen
