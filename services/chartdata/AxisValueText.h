#pragma once

#include "../logging/Export.h"
#include "../math/NumberFormat.h"

#include <QString>

namespace fen {

/// A value as a tooltip tells it: the format's digits, and as many more as tell it from a neighbour on an
/// axis from `min` to `max`. A number that is short as it is keeps all its digits. Formats other than 'g'
/// were chosen by somebody and hold as they are.
FENVIS_EXPORT QString axisValueText(double value, double min, double max,
                                    Kes::Math::NumberFormat const& format);

} // namespace fen
