#include "host/table/DateText.h"

#include <algorithm>
#include <chrono>

namespace {

/// Reads one part after the other off the front of a text.
class Reader {
public:
    explicit Reader(std::string_view text)
        : _rest(text)
    {
    }

    bool done() const { return _rest.empty(); }

    bool take(char c)
    {
        if (_rest.empty() || _rest.front() != c) return false;
        _rest.remove_prefix(1);
        return true;
    }

    /// Exactly `digits` digits.
    bool number(std::size_t digits, int& value)
    {
        if (_rest.size() < digits) return false;
        value = 0;
        for (char const c : _rest.substr(0, digits)) {
            if (c < '0' || c > '9') return false;
            value = value * 10 + (c - '0');
        }
        _rest.remove_prefix(digits);
        return true;
    }

    /// Digits behind a decimal point that was taken, as a fraction of 1.
    bool fraction(double& value)
    {
        std::size_t const end = std::min(_rest.find_first_not_of("0123456789"), _rest.size());
        double unit = 0.1;
        value = 0;
        for (char const c : _rest.substr(0, end)) {
            value += unit * (c - '0');
            unit /= 10;
        }
        _rest.remove_prefix(end);
        return end > 0;
    }

private:
    std::string_view _rest;
};

constexpr double secondsPerMinute = 60;
constexpr double secondsPerHour = 3600;
constexpr double secondsPerDay = 86400;

/// "2012-04" or "2012-04-15"
bool readDay(Reader& reader, double& seconds, bool& monthOnly)
{
    int year = 0;
    int month = 0;
    int day = 1;
    if (!reader.number(4, year) || !reader.take('-') || !reader.number(2, month)) return false;
    monthOnly = !reader.take('-');
    if (!monthOnly && !reader.number(2, day)) return false;
    std::chrono::year_month_day const date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                           std::chrono::day(unsigned(day))};
    seconds = secondsPerDay * double(std::chrono::sys_days(date).time_since_epoch().count());
    return date.ok();
}

/// "14:30", "14:30:05", "14:30:05.25"
bool readTime(Reader& reader, double& seconds)
{
    int hour = 0;
    int minute = 0;
    int second = 0;
    double fraction = 0;
    if (!reader.number(2, hour) || !reader.take(':') || !reader.number(2, minute)) return false;
    if (reader.take(':') && !reader.number(2, second)) return false;
    if (reader.take('.') && !reader.fraction(fraction)) return false;
    seconds = hour * secondsPerHour + minute * secondsPerMinute + second + fraction;
    return hour < 24 && minute < 60 && second <= 60; // 60: a leap second
}

/// "", "Z", "+02:00", "+0200", "+02": what has to be subtracted
bool readOffset(Reader& reader, double& seconds)
{
    seconds = 0;
    if (reader.done() || reader.take('Z')) return true;
    bool const east = reader.take('+');
    int hours = 0;
    int minutes = 0;
    if ((!east && !reader.take('-')) || !reader.number(2, hours)) return false;
    reader.take(':');
    if (!reader.done() && !reader.number(2, minutes)) return false;
    seconds = (hours * secondsPerHour + minutes * secondsPerMinute) * (east ? 1 : -1);
    return hours < 24 && minutes < 60;
}

} // namespace

std::optional<double> fen::secondsFromIsoDate(std::string_view text)
{
    Reader reader(text);
    double day = 0;
    double time = 0;
    double offset = 0;
    bool monthOnly = false;
    if (!readDay(reader, day, monthOnly)) return {};
    if (!monthOnly && (reader.take('T') || reader.take(' '))) {
        if (!readTime(reader, time) || !readOffset(reader, offset)) return {};
    }
    if (!reader.done()) return {};
    return day + time - offset;
}
