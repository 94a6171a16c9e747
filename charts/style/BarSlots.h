#pragma once

#include <vector>

namespace fen {

/// A variable that is drawn as bars.
struct BarVariable {
    void const* axis = nullptr; ///< whose places it shares with the other variables on it; only compared
    double distance = 1; ///< [data] from bar to bar of this variable
    double width = 1; ///< share of its slot that a bar takes
};

/// Where the bars of one variable stand beside those of the others.
struct BarSlot {
    double shift = 0; ///< [data] by which they stand right of their points
    double width = 1; ///< [data] of one bar
};

/// The variables on one axis stand side by side: the smallest distance of any of them is shared evenly,
/// with some air between the groups when there is more than one.
/// @return one slot per variable, in order
std::vector<BarSlot> barSlots(std::vector<BarVariable> const& variables);

} // namespace fen
