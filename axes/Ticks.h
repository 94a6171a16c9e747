#pragma once

#include "../services/logging/Export.h"

#include <QString>

#include <functional>
#include <vector>

namespace fen {

/// A tick of an axis or a colour ramp.
struct Tick {
    int pixel = 0; ///< [px] along the line on which the ticks lie
    QString label; ///< what is written there; empty while it is not shown
    bool shown = true; ///< there is room for its label
};

/// How the labels of ticks lie along their line.
struct LabelRow {
    /// Text of tick i, asked for only where it may be shown.
    std::function<QString(unsigned i)> label;
    /// [px] of a label along the line; empty: none takes more than `least`.
    std::function<int(QString const& label)> extent;
    int least = 1; ///< [px] ticks closer than this never have room for labels
    int space = 0; ///< [px] kept free between two labels
};

/// Ticks of which every n-th shows its label, n being the smallest number that gives all of these room.
/// @param pixels  in order, ascending or descending
FENVIS_EXPORT std::vector<Tick> thinnedTicks(std::vector<int> const& pixels, LabelRow const& row);

/// Where marks are drawn: at all ticks, or only at the labelled ones where all would run together.
/// @param least  [px] distance from which on marks can be told apart
FENVIS_EXPORT std::vector<int> markedPixels(std::vector<Tick> const& ticks, int least);

} // namespace fen
