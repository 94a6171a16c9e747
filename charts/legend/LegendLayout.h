#pragma once

#include <QRect>
#include <QSize>
#include <QSizeF>
#include <QString>

#include <cstddef>
#include <vector>

namespace fen {

/// What one entry of a legend needs room for.
struct LegendEntrySize {
    QSize label; ///< [px] of its text
    QSize ramp; ///< [px] of the colour ramp with its value labels, below the text; empty: no ramp
    QString text = {}; ///< what the label says
};

/// Rectangles of a legend. All are [px], y up, relative to the lower left corner of its box; QRect's
/// top() is the lower edge here.
struct LegendLayout {
    /// One entry: the sample of its line and symbol at the left, the label beside it, the ramp below.
    struct Entry {
        QRect bounds; ///< all of it, as wide as its column
        QRect sample;
        QRect label;
        QRect ramp;
        QString text;
    };
    QSize box;
    std::vector<Entry> entries;
    /// Entries that have no room; the last of `entries` then stands for their number.
    std::size_t hidden = 0;
};

/// Measures of a legend [px].
struct LegendMetrics {
    int lineHeight = 13;
    int padding = 6; ///< inside the frame
    int sampleWidth = 26;
    int gap = 6; ///< between sample and label, and between columns
    int rowGap = 3;
};

/// [px] that a label may take in a box of that width with a single column.
int legendLabelRoom(int width, LegendMetrics const& metrics);

/// Lays the entries out below each other, in further columns when the height is used up.
/// @param room  [px] that the box should not exceed; it does where an entry needs more
LegendLayout layoutVertical(std::vector<LegendEntrySize> const& entries, LegendMetrics const& metrics,
                            QSize const& room);

/// Lays the entries out side by side, in further rows when the width is used up.
LegendLayout layoutHorizontal(std::vector<LegendEntrySize> const& entries, LegendMetrics const& metrics,
                              QSize const& room);

} // namespace fen
