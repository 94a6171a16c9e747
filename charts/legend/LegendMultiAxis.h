#pragma once

#include <QColor>
#include <QString>

#include <cstddef>
#include <vector>

class FenChartMultiAxis;

namespace fen {

/// Items that have one label and one colour.
struct LegendItem {
    QString label;
    QColor color;
};

struct LegendItems {
    std::vector<LegendItem> listed;
    std::size_t others = 0; ///< kinds of items beyond those that any legend has room for
};

/// The distinct pairs of label and colour of the valid items, in the order in which they first appear.
/// @param valid  one flag per item
LegendItems legendItems(FenChartMultiAxis const& chart, std::vector<bool> const& valid);

} // namespace fen
