#pragma once

#include "../logging/Export.h"

#include <QColor>
#include <QImage>
#include <QStringList>

namespace fen {

/// Resource name of the symbol atlas.
FENVIS_EXPORT extern char const* const plotSymbolsName;

/// Names of the symbols in the order of their indices: "rect", "ellipse",
/// "triangle", "uTriangle", "dTriangle", "lTriangle", "rTriangle", "diamond",
/// "hexagon", "star", "cross", "xCross".
FENVIS_EXPORT QStringList const& plotSymbolNames();
/// Index of a name, -1 for an unknown one.
FENVIS_EXPORT int plotSymbolIndex(QString const& name);

/// The two coverage masks of a symbol, painted for one pixel size.
struct PlotSymbolMasks {
    QImage fill; ///< Format_Alpha8, its area up to the middle of the outline
    QImage outline; ///< Format_Alpha8, its outline, wholly inside the picture
};
/// @param symbol  index; one that does not exist counts as 0 (rect), logged once
/// @param size  [device px] of the square picture, clamped to 1..255
/// @param pen  [device px] width of the outline
FENVIS_EXPORT PlotSymbolMasks plotSymbolMasks(unsigned symbol, int size, double pen = 1);

/// Cuts a symbol out of an atlas image: columns are symbols, the upper row has
/// the fill masks, the lower row the outline masks (alpha).
FENVIS_EXPORT PlotSymbolMasks cutPlotSymbol(QImage const& atlas, unsigned symbol, int size);

/// The masks of an atlas image, of the built-in symbols for a null one, with the
/// outline of one logical pixel at the pixel ratio in force.
FENVIS_EXPORT PlotSymbolMasks plotSymbolMasksOf(QImage const& atlas, unsigned symbol, int size);

/// Both masks in their colours, premultiplied. A transparent outline colour
/// draws the outline in the fill colour, so that the symbol keeps its size.
FENVIS_EXPORT QImage plotSymbolPicture(PlotSymbolMasks const& masks, QColor const& fill,
                                       QColor const& outline);

/// The atlas "plotSymbols.png": one column per symbol, two rows of masks in white.
/// @param cell  [px] side of a cell
FENVIS_EXPORT QImage plotSymbolAtlas(int cell = 64);

} // namespace fen
