#pragma once

#include "../../services/logging/Export.h"

#include <optional>
#include <string_view>

namespace fen {

/// Seconds since 1970-01-01 00:00 UTC of an ISO 8601 date or date-time:
/// "2012-04", "2012-04-15", "2012-04-15T14:30", "2012-04-15 14:30:05.25Z",
/// "2012-04-15T14:30+02:00". Without an offset the time is UTC.
/// @return empty for anything else and for days that do not exist
FENVIS_EXPORT std::optional<double> secondsFromIsoDate(std::string_view text);

} // namespace fen
