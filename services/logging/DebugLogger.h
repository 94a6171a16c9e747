#pragma once

#include "Export.h"
#include "Logger.h"

namespace fen {

/// Where the library's one logger is found.
class FENVIS_EXPORT debug_logger {
public:
    /// The process's logger. It is never destroyed, so it can be used until the very end.
    static kesdebug::logger& debuglogger();
};

} // namespace fen
