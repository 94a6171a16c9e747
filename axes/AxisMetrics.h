#pragma once

namespace fen {

/// Lengths of XY axes, all in whole pixels.
struct AxisMetrics {
    static constexpr unsigned pointSize = 8; ///< [pt] of labels and titles
    static constexpr int lineOffset = 1; ///< of the axis line from the data rectangle
    static constexpr int lineWidth = 3;
    static constexpr int highlightedLineWidth = 5;
    static constexpr int tickStart = 3; ///< tick marks run from here ...
    static constexpr int tickEnd = 5; ///< ... to here, outside the data rectangle
    static constexpr int labelGap = 3; ///< label distance is a line height and this
    static constexpr int labelSpace = 4; ///< least space between two labels in a row
    static constexpr int labelMaximum = 160; ///< wider labels are cut and end in an ellipsis
    static constexpr int labelShift = 12; ///< how far a label may leave its tick to stay in the chart
    static constexpr int rim = 1; ///< least distance of a label from the chart's edge
    static constexpr int tickSpace = 5; ///< ticks closer than this are thinned as the labels are
    static constexpr int titlePadding = 4; ///< between a title and the ends of its box
    static constexpr int titleLines = 2; ///< depth of a title's box in line heights
};

} // namespace fen
