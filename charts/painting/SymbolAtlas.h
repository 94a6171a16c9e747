#pragma once

#include "../../services/logging/Export.h"

#include <QString>

namespace fen {

/// Index of a plot symbol in the atlas.
/// @return -1 for `FenChart::symbolNone` and, after one line in the log, for an unknown name
FENVIS_EXPORT int symbolIndex(QString const& name);

} // namespace fen
