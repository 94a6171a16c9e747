#pragma once

#include "../../services/logging/Export.h"

#include <optional>
#include <string_view>

namespace fen {

/// In which order a date names its parts.
enum class DateOrder {
    Iso, ///< "2012-04", "2012-04-15", "2012-04-15T14:30", "2012-04-15 14:30:05.25Z", "...+02:00"
    YearFirst, ///< "2012/04/15", "2012.4.15"
    DayFirst, ///< "15.04.2012", "15/4/12", "15-Apr-2012", "15 April 2012"
    MonthFirst ///< "04/15/2012", "Apr 15, 2012"
};

/// A date, with or without a time of the day, as a text says it.
struct DateText {
    double seconds = 0; ///< since 1970-01-01 00:00 of the clock that the text was read from
    std::optional<int> offset; ///< [minutes] of that clock, east of UTC; empty when the text does not say
    bool hasTime = false;

    double utc() const { return seconds - 60.0 * offset.value_or(0); } ///< without an offset the time is UTC
};

/// Reads a date; behind it may follow a time, "14:30", "2:30:05.25 pm", and an offset.
/// @return empty for anything else and for days that do not exist
FENVIS_EXPORT std::optional<DateText> readDate(std::string_view text, DateOrder order);
/// The same as a pattern says: yyyy yy MM M MMM dd d HH H mm ss zzz (parts of a second) AP; other
/// characters stand for themselves.
FENVIS_EXPORT std::optional<DateText> readDate(std::string_view text, std::string_view pattern);
/// [s] since midnight of "14:30", "14:30:05.25", "2:30 pm".
FENVIS_EXPORT std::optional<double> readTimeOfDay(std::string_view text);

/// Seconds since 1970-01-01 00:00 UTC of an ISO 8601 date or date-time. Without an offset the time is UTC.
/// @return empty for anything else and for days that do not exist
FENVIS_EXPORT std::optional<double> secondsFromIsoDate(std::string_view text);

} // namespace fen
