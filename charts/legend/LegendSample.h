#pragma once

#include "charts/style/VariableStyle.h"

#include <QRect>
#include <QString>

class FenChartVariable;
class FenOglCache;

namespace fen {

/// What a legend calls a variable: its label, or its name when that is empty.
QString legendLabel(FenChartVariable const& variable);

/// Draws how the chart draws the variable, in small: fill, line or bar, symbol.
/// @param area  [px] y up, in a 2D pixel mode inside a flat scope
void drawLegendSample(FenOglCache& cache, VariableStyle const& style, QRect const& area);

/// Draws a patch in the variable's fill colour (its line colour when it has no fill).
void drawLegendPatch(VariableStyle const& style, QRect const& area);

} // namespace fen
