#pragma once

#include "../logging/Export.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

namespace fen {

/// Names of the colour schemes: those for amounts, then the diverging ones, then those for categories.
FENVIS_EXPORT QStringList colorSchemeNames();

/// Colours of a scheme. Those for amounts go from the lowest to the highest value and are meant to be
/// spread evenly over a range, as colour lists of gradients and colour maps are; a diverging one has its
/// neutral colour in the middle; those for categories are taken one by one.
/// @return empty for an unknown name
FENVIS_EXPORT QList<QColor> colorScheme(QString const& name);

/// The scheme for amounts, for signed values and for categories where nobody has chosen one.
inline constexpr char defaultAmountScheme[] = "viridis";
inline constexpr char defaultDivergingScheme[] = "blueRed";
inline constexpr char defaultCategoryScheme[] = "okabeIto";

/// Colour of an evenly spread list, linear between its two nearest entries, alpha included.
/// @param place  [0..1], 0 at the first entry; clamped
/// @return black for an empty list and for NaN
FENVIS_EXPORT QColor rampColor(QList<QColor> const& colors, double place);

/// [0..1] relative luminance (WCAG 2.1: weighted sum of the linear sRGB channels). Ignores alpha.
FENVIS_EXPORT double relativeLuminance(QColor const& color);
/// Black or white, whichever contrasts more with the ground (contrast ratio of WCAG 2.1).
FENVIS_EXPORT QColor readableOn(QColor const& ground);

} // namespace fen
