#pragma once

#include "../../services/logging/Export.h"

#include <QString>

namespace fen {

/// A text from outside as it may stand in a message: control and direction marks
/// as "\u{..}", and no more than `longest` characters of it.
FENVIS_EXPORT QString messageText(QString const& text, qsizetype longest = 4096);

/// The same in quotes: a name, cut when it is long.
FENVIS_EXPORT QString quotedName(QString const& name);

} // namespace fen
