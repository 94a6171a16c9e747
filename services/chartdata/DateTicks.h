#pragma once

#include <QString>

#include <vector>

namespace fen {

struct DateTick {
    double seconds; ///< since 1970-01-01 UTC
    QString label;
};

/// Ticks at whole years, months, days, hours, minutes, seconds or decimal parts of a second, ascending.
///
/// A label tells what its step tells: "2012", "Apr", "15 Apr", "14:30", "14:30:05". The first label and
/// those where a longer unit begins tell that too: "Jan 2013", "1 Jan 2013", "16 Apr" at midnight. So the
/// day and the year can always be told: "15 Apr 2012 14:30:05.2" at the first of parts of seconds.
/// @param min, max   [seconds] of the axis, finite and ascending
/// @param divisions  about how many intervals, at least 1
/// @return empty when the calendar does not reach that far (year 0 to 9999) or parts of a second are
///     smaller than a double can tell
std::vector<DateTick> dateTicks(double min, double max, unsigned divisions);

/// A point in time as tooltips tell it: "2012-04-15", with the time of day unless it is midnight.
/// @param seconds  since 1970-01-01 UTC
/// @return empty for what is no date (some 270000 years away, not finite)
QString dateText(double seconds);

} // namespace fen
