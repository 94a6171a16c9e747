#pragma once

#include <QColor>
#include <QRect>
#include <QSize>
#include <QStringList>

#include <vector>

class FenOglText;

namespace fen {

/// Bins of a correlation chart as its legend shows them: a bar of their colours, their edges beside it.
struct LegendBins {
    QStringList edges; ///< texts, from the lowest
    std::vector<QColor> colors; ///< one less

    bool empty() const { return colors.empty() || std::size_t(edges.size()) != colors.size() + 1; }
};

/// Edges that have their text: every n-th, so that they stand apart, the outermost are among them and, where
/// possible, the middle one.
/// @param most  number of texts that have room
int edgeStride(int bins, int most);

/// [px] Size of the bar with its texts.
/// @param length  [px] of the bar
/// @param vertical  texts stand at its right, the lowest at the bottom; else below it, the lowest at the left
QSize sizeCorrelationLegend(FenOglText const& text, LegendBins const& bins, int length, bool vertical);

/// Draws it in the text's colour.
/// @param area  [px] y up, of the size that `sizeCorrelationLegend` gives
void drawCorrelationLegend(FenOglText& text, LegendBins const& bins, QRect const& area, bool vertical);

} // namespace fen
