#pragma once

#include <QPoint>
#include <QSize>

#include <vector>

namespace fen {

/// Finds the place where a legend hides least of its chart.
///
/// Nine places are tried, from the corners to the middle; of equally good ones the first wins, in the
/// order upper right, upper left, lower right, lower left, then the middles of the edges, then the centre.
/// @param box     [px] size of the legend
/// @param area    [px] size of the data rectangle
/// @param margin  [px] kept free between the two, as far as there is room
/// @param ink     [px] where the chart has drawn, relative to the lower left corner of the area
/// @return [px] lower left corner of the legend in the area; never negative
QPoint leastHidingPlace(QSize const& box, QSize const& area, int margin, std::vector<QPoint> const& ink);

} // namespace fen
