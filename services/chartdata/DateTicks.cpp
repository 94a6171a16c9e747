#include "services/chartdata/DateTicks.h"

#include <QDateTime>
#include <QStringList>
#include <QTimeZone>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

typedef std::vector<fen::DateTick> Ticks;

constexpr double minuteLength = 60.0, hourLength = 3600.0, dayLength = 86400.0, yearLength = 31556952.0;
constexpr double monthLength = yearLength / 12.0;
constexpr double firstSecond = -62167219200.0; // of the year 0
constexpr double lastSecond = 253402300799.0; // of the year 9999
constexpr double lastTextSecond = 8.5e12; // about the years -270000 to 270000
/// Half of it is about what a double around the present tells apart.
constexpr double smallestStep = 1e-6;

enum class Unit { Part, Second, Minute, Hour, Day, Month, Year };

struct Step {
    Unit unit;
    int count;
    double length; ///< [seconds], on average
};

/// From seconds to months; smaller and larger ones are 1, 2 or 5 times a power of ten.
constexpr Step steps[] = {
    {Unit::Second, 1, 1.0},
    {Unit::Second, 2, 2.0},
    {Unit::Second, 5, 5.0},
    {Unit::Second, 10, 10.0},
    {Unit::Second, 15, 15.0},
    {Unit::Second, 30, 30.0},
    {Unit::Minute, 1, minuteLength},
    {Unit::Minute, 2, 2 * minuteLength},
    {Unit::Minute, 5, 5 * minuteLength},
    {Unit::Minute, 10, 10 * minuteLength},
    {Unit::Minute, 15, 15 * minuteLength},
    {Unit::Minute, 30, 30 * minuteLength},
    {Unit::Hour, 1, hourLength},
    {Unit::Hour, 2, 2 * hourLength},
    {Unit::Hour, 3, 3 * hourLength},
    {Unit::Hour, 6, 6 * hourLength},
    {Unit::Hour, 12, 12 * hourLength},
    {Unit::Day, 1, dayLength},
    {Unit::Day, 2, 2 * dayLength},
    {Unit::Day, 5, 5 * dayLength},
    {Unit::Day, 10, 10 * dayLength},
    {Unit::Day, 15, 15 * dayLength},
    {Unit::Month, 1, monthLength},
    {Unit::Month, 2, 2 * monthLength},
    {Unit::Month, 3, 3 * monthLength},
    {Unit::Month, 6, 6 * monthLength},
};

/// The smallest of 1, 2, 5, 10, 20 ... that is not below `wanted`.
double roundStep(double wanted)
{
    double const power = std::pow(10.0, std::floor(std::log10(wanted)));
    for (double const times : {1.0, 2.0, 5.0})
        if (times * power >= wanted * (1.0 - 1e-9)) return times * power;
    return 10.0 * power;
}

Step chooseStep(double length, unsigned divisions)
{
    double const wanted = length / (divisions + 0.5);
    if (wanted <= 0.5) {
        double const part = roundStep(wanted);
        return {Unit::Part, 1, part};
    }
    for (Step const& step : steps)
        if (step.length >= wanted) return step;
    int const years = int(std::max(1.0, roundStep(wanted / yearLength)));
    return {Unit::Year, years, years * yearLength};
}

QString monthName(month m)
{
    static QStringList const names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return names.value(int(unsigned(m)) - 1);
}

QString dayText(year_month_day const& date)
{
    return QString::number(unsigned(date.day())) + ' ' + monthName(date.month());
}

QString yearText(year_month_day const& date) { return QString::number(int(date.year())); }

year_month_day dateOf(double seconds)
{
    return year_month_day(sys_days(days(std::int64_t(std::floor(seconds / dayLength)))));
}

double secondsOf(year_month_day const& date)
{
    return double(sys_days(date).time_since_epoch().count()) * dayLength;
}

QString twoDigits(int number) { return QString("%1").arg(number, 2, 10, QChar('0')); }

/// "14:30", or with seconds "14:30:05".
QString clockText(double seconds, bool withSeconds)
{
    int const within = int(seconds - std::floor(seconds / dayLength) * dayLength);
    QString const text = twoDigits(within / 3600) + ':' + twoDigits(within / 60 % 60);
    return withSeconds ? text + ':' + twoDigits(within % 60) : text;
}

void addYears(Ticks& ticks, Step const& step, double min, double max)
{
    int const from = int(dateOf(min).year());
    for (int y = int(std::floor(double(from) / step.count)) * step.count;; y += step.count) {
        year_month_day const date{year(y), month(1), day(1)};
        double const at = secondsOf(date);
        if (at > max) return;
        if (at >= min) ticks.push_back({at, yearText(date)});
    }
}

void addMonths(Ticks& ticks, Step const& step, double min, double max)
{
    for (year_month_day date{dateOf(min).year(), month(1), day(1)};;
         date += std::chrono::months(step.count)) {
        double const at = secondsOf(date);
        if (at > max) return;
        if (at < min) continue;
        bool const tellsYear = ticks.empty() || date.month() == month(1);
        ticks.push_back({at, monthName(date.month()) + (tellsYear ? ' ' + yearText(date) : QString())});
    }
}

/// Days 1, 1 + n, 1 + 2n ... of each month; none shortly before the next month begins.
void addDays(Ticks& ticks, Step const& step, double min, double max)
{
    for (double at = std::floor(min / dayLength) * dayLength; at <= max; at += dayLength) {
        year_month_day const date = dateOf(at);
        int const before = int(unsigned(date.day())) - 1;
        int const left = int(unsigned((date.year() / date.month() / std::chrono::last).day())) - before;
        if (at < min || before % step.count != 0 || (before > 0 && 2 * left <= step.count)) continue;
        bool const tellsYear = ticks.empty() || (before == 0 && date.month() == month(1));
        ticks.push_back({at, dayText(date) + (tellsYear ? ' ' + yearText(date) : QString())});
    }
}

/// Hours, minutes or whole seconds.
void addTimes(Ticks& ticks, Step const& step, double min, double max)
{
    bool const tellsSeconds = step.unit == Unit::Second;
    double const first = std::ceil(min / step.length);
    for (double k = first; k * step.length <= max; ++k) {
        double const at = k * step.length;
        bool const midnight = std::fmod(at, dayLength) == 0.0;
        QString const text = clockText(at, tellsSeconds);
        year_month_day const date = dateOf(at);
        bool const tellsYear =
            ticks.empty() || (date.month() == month(1) && date.day() == std::chrono::day(1));
        QString const day = dayText(date) + (tellsYear ? ' ' + yearText(date) : QString());
        ticks.push_back({at, midnight ? day : ticks.empty() ? day + ' ' + text : text});
    }
}

void addParts(Ticks& ticks, double step, double min, double max)
{
    int const digits = int(std::ceil(-std::log10(step) - 1e-9));
    double const base = std::floor(min); // whole seconds are exact, so parts are counted from one
    for (double k = std::ceil((min - base) / step); base + k * step <= max; ++k) {
        double const at = base + k * step;
        double const whole = std::floor(at + 0.5 * smallestStep);
        QString const part = QString::number(std::max(at - whole, 0.0), 'f', digits).mid(1);
        QString const day = dayText(dateOf(at)) + ' ' + yearText(dateOf(at)) + ' ';
        ticks.push_back({at, (ticks.empty() ? day : QString()) + clockText(whole, true) + part});
    }
}

} // namespace

std::vector<fen::DateTick> fen::dateTicks(double min, double max, unsigned divisions)
{
    Ticks ticks;
    if (!(min >= firstSecond && max <= lastSecond && min < max)) return ticks;
    Step const step = chooseStep(max - min, std::max(divisions, 1U));
    switch (step.unit) {
    case Unit::Year:
        addYears(ticks, step, min, max);
        break;
    case Unit::Month:
        addMonths(ticks, step, min, max);
        break;
    case Unit::Day:
        addDays(ticks, step, min, max);
        break;
    case Unit::Hour:
    case Unit::Minute:
    case Unit::Second:
        addTimes(ticks, step, min, max);
        break;
    case Unit::Part:
        if (step.length >= smallestStep) addParts(ticks, step.length, min, max);
        break;
    }
    return ticks;
}

QString fen::dateText(double seconds)
{
    if (!(std::abs(seconds) <= lastTextSecond)) return QString();
    QDateTime const time = QDateTime::fromMSecsSinceEpoch(qint64(std::llround(seconds * 1000)), Qt::UTC);
    if (time.time().msec() != 0) return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
    if (time.time() != QTime(0, 0)) return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return time.toString(QStringLiteral("yyyy-MM-dd"));
}
