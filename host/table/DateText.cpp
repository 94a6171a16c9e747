#include "host/table/DateText.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>

namespace {

using namespace std::string_view_literals;

constexpr std::array months{"jan"sv, "feb"sv, "mar"sv, "apr"sv, "may"sv, "jun"sv,
                            "jul"sv, "aug"sv, "sep"sv, "oct"sv, "nov"sv, "dec"sv};
constexpr std::array longMonths{"uary"sv, "ruary"sv, "ch"sv,     "il"sv,   ""sv,      "e"sv,
                                "y"sv,    "ust"sv,   "tember"sv, "ober"sv, "ember"sv, "ember"sv};

constexpr double secondsPerMinute = 60;
constexpr double secondsPerHour = 3600;
constexpr double secondsPerDay = 86400;
constexpr int minutesPerHour = 60;

char lower(char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; }
bool digit(char c) { return c >= '0' && c <= '9'; }

/// Reads one part after the other off the front of a text.
class Reader {
public:
    explicit Reader(std::string_view text)
        : _rest(text)
    {
    }

    bool done() const { return _rest.empty(); }
    bool atDigit() const { return !_rest.empty() && digit(_rest.front()); }

    bool take(char c)
    {
        if (_rest.empty() || _rest.front() != c) return false;
        _rest.remove_prefix(1);
        return true;
    }
    /// One of several characters; what it was is remembered.
    bool takeOne(std::string_view of, char& taken)
    {
        if (_rest.empty() || of.find(_rest.front()) == of.npos) return false;
        taken = _rest.front();
        _rest.remove_prefix(1);
        return true;
    }
    /// A word, whatever its case.
    bool word(std::string_view expected)
    {
        if (_rest.size() < expected.size()) return false;
        for (std::size_t i = 0; i < expected.size(); ++i)
            if (lower(_rest[i]) != expected[i]) return false;
        _rest.remove_prefix(expected.size());
        return true;
    }
    void blanks()
    {
        while (take(' ')) { }
    }

    /// `least` to `most` digits.
    /// @return how many; 0 when there are fewer
    std::size_t number(std::size_t least, std::size_t most, int& value)
    {
        std::size_t count = 0;
        value = 0;
        while (count < most && count < _rest.size() && digit(_rest[count]))
            value = value * 10 + (_rest[count++] - '0');
        if (count < least) return 0;
        _rest.remove_prefix(count);
        return count;
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
    /// "Apr", "April"
    bool monthName(int& month)
    {
        for (std::size_t i = 0; i < months.size(); ++i) {
            if (!word(months[i])) continue;
            word(longMonths[i]);
            month = int(i) + 1;
            return true;
        }
        return false;
    }

private:
    std::string_view _rest;
};

/// What a date and a time of the day consist of.
struct Parts {
    int year = 1970, month = 1, day = 1;
    int hour = 0, minute = 0, second = 0;
    double fraction = 0;
    bool hasTime = false;
    std::optional<bool> afternoon; // of a clock with twelve hours
    std::optional<int> offset; // [minutes]

    bool clockOk() const
    {
        bool const hours = afternoon ? hour >= 1 && hour <= 12 : hour < 24;
        return hours && minute < 60 && second <= 60; // 60: a leap second
    }
    double clockSeconds() const
    {
        int const hours = afternoon ? hour % 12 + (*afternoon ? 12 : 0) : hour;
        return hours * secondsPerHour + minute * secondsPerMinute + second + fraction;
    }
    std::optional<fen::DateText> result() const
    {
        std::chrono::year_month_day const date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                               std::chrono::day(unsigned(day))};
        if (!date.ok() || !clockOk()) return {};
        double const days = double(std::chrono::sys_days(date).time_since_epoch().count());
        return fen::DateText{days * secondsPerDay + clockSeconds(), offset, hasTime};
    }
};

/// Four digits, or two of this century and the one before ("70" to "99" are 1970 to 1999).
bool readYear(Reader& reader, int& year)
{
    std::size_t const digits = reader.number(2, 4, year);
    if (digits == 2) year += year < 70 ? 2000 : 1900;
    return digits == 2 || digits == 4;
}

/// "2012-04" or "2012-04-15"
bool readIsoDay(Reader& reader, Parts& parts, bool& monthOnly)
{
    if (!reader.number(4, 4, parts.year) || !reader.take('-') || !reader.number(2, 2, parts.month))
        return false;
    monthOnly = !reader.take('-');
    return monthOnly || reader.number(2, 2, parts.day);
}

/// "15.04.2012", "04/15/2012", "2012/4/15": the same mark twice.
bool readNumericDay(Reader& reader, fen::DateOrder order, Parts& parts)
{
    char mark = 0;
    bool const yearFirst = order == fen::DateOrder::YearFirst;
    int& first = order == fen::DateOrder::DayFirst ? parts.day : parts.month;
    int& second = order == fen::DateOrder::DayFirst ? parts.month : parts.day;
    if (yearFirst && (!reader.number(4, 4, parts.year) || !reader.takeOne("/.", mark))) return false;
    if (!reader.number(1, 2, first)) return false;
    // Nobody puts points behind a month that comes first.
    std::string_view const marks = order == fen::DateOrder::MonthFirst ? "/-" : "/.-";
    if (yearFirst ? !reader.take(mark) : !reader.takeOne(marks, mark)) return false;
    if (!reader.number(1, 2, second)) return false;
    return yearFirst || (reader.take(mark) && readYear(reader, parts.year));
}

/// "15-Apr-2012", "15 April 2012", "Apr 15, 2012"
bool readNamedDay(Reader& reader, fen::DateOrder order, Parts& parts)
{
    char mark = 0;
    bool const dayFirst = order == fen::DateOrder::DayFirst;
    if (!(dayFirst ? reader.number(1, 2, parts.day) > 0 : reader.monthName(parts.month))) return false;
    reader.take('.');
    if (!reader.takeOne(" -/", mark)) return false;
    if (!(dayFirst ? reader.monthName(parts.month) : reader.number(1, 2, parts.day) > 0)) return false;
    reader.takeOne(",.", mark);
    reader.takeOne(" -/", mark);
    return readYear(reader, parts.year);
}

bool readDay(std::string_view text, Reader& reader, fen::DateOrder order, Parts& parts)
{
    if (readNumericDay(reader, order, parts)) return true;
    reader = Reader(text);
    return order != fen::DateOrder::YearFirst && readNamedDay(reader, order, parts);
}

/// "14:30", "14:30:05", "14:30:05.25", "2:30 pm"
bool readClock(Reader& reader, Parts& parts)
{
    parts.hasTime = true;
    if (!reader.number(1, 2, parts.hour) || !reader.take(':') || !reader.number(2, 2, parts.minute))
        return false;
    char mark = 0;
    if (reader.take(':')) {
        if (!reader.number(2, 2, parts.second)) return false;
        if (reader.takeOne(".,", mark) && !reader.fraction(parts.fraction)) return false;
    }
    reader.blanks();
    for (auto const& [word, afternoon] : {std::pair("am"sv, false), std::pair("pm"sv, true)})
        if (!parts.afternoon && reader.word(word)) parts.afternoon = afternoon;
    return true;
}

/// "", "Z", "UTC", "+02:00", "+0200", "+02"
bool readOffset(Reader& reader, Parts& parts)
{
    reader.blanks();
    if (reader.done()) return true;
    parts.offset = 0;
    if (reader.word("z") || reader.word("utc") || reader.word("gmt")) return true;
    bool const east = reader.take('+');
    int hours = 0;
    int minutes = 0;
    if ((!east && !reader.take('-')) || !reader.number(2, 2, hours)) return false;
    reader.take(':');
    if (!reader.done() && !reader.number(2, 2, minutes)) return false;
    parts.offset = (hours * minutesPerHour + minutes) * (east ? 1 : -1);
    return hours < 24 && minutes < 60;
}

/// Takes what one letter of a pattern, repeated `count` times, stands for.
bool takePart(Reader& reader, char letter, std::size_t count, Parts& parts)
{
    int value = 0;
    std::size_t const least = count > 1 ? 2 : 1;
    switch (letter) {
    case 'y':
        return count == 4 ? reader.number(4, 4, parts.year) > 0 : readYear(reader, parts.year);
    case 'M':
        return count > 2 ? reader.monthName(parts.month) : reader.number(least, 2, parts.month) > 0;
    case 'd':
        return reader.number(least, 2, parts.day) > 0;
    case 'z':
        return reader.fraction(parts.fraction);
    case 'A':
        parts.afternoon = reader.word("pm");
        return *parts.afternoon || reader.word("am");
    default:
        break;
    }
    parts.hasTime = true;
    if (!reader.number(least, 2, value)) return false;
    (letter == 'm' ? parts.minute : letter == 's' ? parts.second : parts.hour) = value;
    return true;
}

} // namespace

std::optional<fen::DateText> fen::readDate(std::string_view text, DateOrder order)
{
    Reader reader(text);
    Parts parts;
    bool monthOnly = false;
    bool const iso = order == DateOrder::Iso;
    if (iso ? !readIsoDay(reader, parts, monthOnly) : !readDay(text, reader, order, parts)) return {};
    if (!monthOnly && !reader.done()) {
        char mark = 0;
        if (!reader.takeOne(iso ? "T "sv : "T ,"sv, mark)) return {};
        reader.blanks();
        if (!readClock(reader, parts) || !readOffset(reader, parts)) return {};
    }
    return reader.done() ? parts.result() : std::nullopt;
}

std::optional<fen::DateText> fen::readDate(std::string_view text, std::string_view pattern)
{
    constexpr std::string_view letters = "yMdHhmsz";
    Reader reader(text);
    Parts parts;
    while (!pattern.empty()) {
        char const letter = pattern.front();
        bool const half = pattern.starts_with("AP");
        std::size_t const count = half ? 2 : std::min(pattern.find_first_not_of(letter), pattern.size());
        bool const part = half || letters.find(letter) != letters.npos;
        if (part ? !takePart(reader, letter, count, parts) : !reader.take(letter)) return {};
        pattern.remove_prefix(part ? count : 1);
    }
    return reader.done() ? parts.result() : std::nullopt;
}

std::optional<double> fen::readTimeOfDay(std::string_view text)
{
    Reader reader(text);
    Parts parts;
    if (!readClock(reader, parts) || !reader.done() || !parts.clockOk()) return {};
    return parts.clockSeconds();
}

std::optional<double> fen::secondsFromIsoDate(std::string_view text)
{
    std::optional<DateText> const date = readDate(text, DateOrder::Iso);
    return date ? std::optional(date->utc()) : std::nullopt;
}
