#pragma once

#include <QRect>
#include <QString>

class FenChartVariable;
class FenOglCache;

namespace fen {

/// What a legend calls a variable: its label, or its name when that is empty.
QString legendLabel(FenChartVariable const& variable);

/// True when lines or fills of the variable show its colours as a ramp.
bool hasColorRamp(FenChartVariable const& variable);

/// Draws how the chart draws the variable, in small: fill, line or bar, symbol.
/// @param area  [px] y up, in a 2D pixel mode
void drawLegendSample(FenOglCache& cache, FenChartVariable const& variable, QRect const& area);

/// Draws a patch in the variable's fill colour (its line colour when it has no fill).
void drawLegendPatch(FenChartVariable const& variable, QRect const& area);

} // namespace fen
