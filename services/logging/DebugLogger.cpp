#include "services/logging/DebugLogger.h"

namespace fen {

kesdebug::logger& debug_logger::debuglogger()
{
    static kesdebug::logger* const theLogger = new kesdebug::logger; // reachable for ever: no leak
    return *theLogger;
}

} // namespace fen
