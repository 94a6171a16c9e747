#pragma once

#include <QString>

namespace fen {

/// What of a variable is drawn beside its symbols.
enum class Shape3D {
    Nothing, ///< not even symbols
    Line, ///< then symbols
    Bars, ///< then symbols
    Surface ///< unless the symbols stand for it
};

/// What a variable looks like.
/// @param mode     axis flags of the chart: bit 0 for x, bit 1 for y
/// @param surface  the variable's "surface"
/// @param style    the variable's "style"
Shape3D shapeOf(unsigned mode, bool surface, QString const& style);

} // namespace fen
