#include "charts/parallel/FilterRanges.h"

#include <algorithm>
#include <cmath>

namespace fen {

FenChartRange filteredRange(FenChartRange const& data, FenChartRange const& filter)
{
    FenChartRange left = data;
    if (!(filter.max > filter.min)) return left;
    if (left.min < filter.min && filter.min < left.max) left.min = filter.min;
    if (left.min < filter.max && filter.max < left.max) left.max = filter.max;
    return left;
}

FenChartRange movedRange(ItemAxis const& axis, FenChartRange const& filtered, FilterEnd end, double share)
{
    FenChartRange moved = filtered;
    double const from = axis.fraction(end == FilterEnd::Low ? filtered.min : filtered.max);
    double const to = axis.valueAt(from + share);
    // Limits that met would be no filter any more: the least distance is kept.
    if (end == FilterEnd::Low)
        moved.min = std::clamp(to, axis.range.min, std::nextafter(filtered.max, axis.range.min));
    else
        moved.max = std::clamp(to, std::nextafter(filtered.min, axis.range.max), axis.range.max);
    return moved;
}

} // namespace fen
