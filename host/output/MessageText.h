#pragma once

#include "../../services/logging/Export.h"

#include <QString>

namespace fen {

/// A text from outside as it may stand in a message: control and direction marks
/// as "\u{..}", and no more than `longest` characters of it.
FENVIS_EXPORT QString messageText(QString const& text, qsizetype longest = 4096);

} // namespace fen
