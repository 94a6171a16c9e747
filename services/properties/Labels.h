#pragma once

#include "../logging/Export.h"

#include <QString>

/// Texts for axis labels and titles. Numbers have at most six digits.
namespace fen {

/// A number with a short exponent: "1000", "2.5", "1e6", "1e-5".
FENVIS_EXPORT QString tidyExponent(double value);

/// The factor of a linear axis; empty for 1 and for what is no factor (0, NaN, infinities).
FENVIS_EXPORT QString toFactorLabel(double factor);

/// The factor of a logarithmic axis as a power of its base, "1e3" for base "10"
/// and "2^5" for others; plain where it is no whole power. Empty as above.
FENVIS_EXPORT QString toLogLabel(QString const& base, double factor);

} // namespace fen
