#include "host/table/ColumnBuilder.h"

#include "host/table/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using fen::DateOrder;

constexpr double missing = std::numeric_limits<double>::quiet_NaN();
constexpr std::array orders{DateOrder::Iso, DateOrder::YearFirst, DateOrder::DayFirst, DateOrder::MonthFirst};
constexpr std::size_t keptBad = 5; // fields that are remembered word by word
constexpr qsizetype shownBad = 40; // [characters] of each
constexpr int secondsPerMinute = 60;
constexpr double secondsPerDay = 86400;

QString fromUtf8(std::string_view text) { return QString::fromUtf8(text.data(), qsizetype(text.size())); }

std::string_view trimmed(std::string_view text)
{
    std::size_t const first = text.find_first_not_of(" \t");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Names of columns that hold seconds or milliseconds since 1970 when their numbers allow it.
bool soundsLikeTime(QString const& name)
{
    QString const lower = name.toLower();
    for (char const* word : {"time", "date", "epoch", "unix", "utc"})
        if (lower.contains(QLatin1String(word))) return true;
    return lower == QLatin1String("ts") || lower == QLatin1String("t");
}

} // namespace

bool fen::isMissing(std::string_view text)
{
    constexpr std::array<std::string_view, 9> words{"NA",   "N/A",  "n/a", "NaN", "nan",
                                                    "null", "NULL", "-",   "--"};
    return text.empty() || (text.size() <= 4 && std::ranges::find(words, text) != words.end());
}

fen::ColumnBuilder::ColumnBuilder(FenReadOptions const& options, std::optional<FenReadOptions::As> as)
    : _options(options)
    , _as(as)
    , _pattern(options.dateFormat.toStdString())
{
}

void fen::ColumnBuilder::add(std::string_view field, std::size_t line)
{
    std::string_view const text = trimmed(field);
    if (_phase == Phase::Filling)
        fill(text, line);
    else if (_phase == Phase::Counting && !isMissing(text))
        count(text);
}

void fen::ColumnBuilder::count(std::string_view text)
{
    ++_fits.fields;
    bool const point = readNumber(text, '.').has_value();
    bool const comma = readNumber(text, ',').has_value();
    _fits.numbers += point || comma;
    _fits.point += point && !comma;
    _fits.comma += comma && !point;
    if (!_pattern.empty()) {
        _fits.pattern += readDate(text, _pattern).has_value();
    } else {
        for (std::size_t i = 0; i < orders.size(); ++i)
            _fits.dates[i] += readDate(text, orders[i]).has_value();
    }
    _fits.times += readTimeOfDay(text).has_value();
}

void fen::ColumnBuilder::choose(bool comma)
{
    typedef FenReadOptions::As As;
    int const votes = decimalVotes();
    _decimal = _options.decimal.value_or((votes == 0 ? comma : votes > 0) ? ',' : '.');
    std::size_t const dates = std::max(_fits.pattern, *std::ranges::max_element(_fits.dates));
    if (_as)
        _kind = *_as == As::Number ? Kind::Number : *_as == As::Category ? Kind::Text : Kind::Date;
    else if (_fits.numbers > 0 && _fits.numbers >= dates)
        _kind = Kind::Number;
    else if (dates > 0 || _fits.times > 0)
        _kind = dates >= _fits.times ? Kind::Date : Kind::Time;
    else
        _kind = _fits.fields > 0 ? Kind::Text : Kind::Number;
    std::size_t const fitting = _kind == Kind::Number ? _fits.numbers
        : _kind == Kind::Date                         ? dates
                                                      : _fits.times;
    if (!_as && _fits.fields > 0 && !tolerable(_fits.fields - fitting, _fits.fields)) _kind = Kind::Text;
    if (_kind == Kind::Date) chooseDate();
    startFilling();
}

void fen::ColumnBuilder::chooseDate()
{
    auto const best = std::ranges::max_element(_fits.dates);
    _order = orders[std::size_t(best - _fits.dates.begin())];
    auto const fitsOf = [&](DateOrder order) { return _fits.dates[std::size_t(order)]; };
    _unclear = _pattern.empty() && (_order == DateOrder::DayFirst || _order == DateOrder::MonthFirst)
        && fitsOf(DateOrder::DayFirst) > 0 && fitsOf(DateOrder::DayFirst) == fitsOf(DateOrder::MonthFirst);
}

/// One odd field, or a tenth of all, does not make another kind of column.
bool fen::ColumnBuilder::tolerable(std::size_t bad, std::size_t fields)
{
    constexpr std::size_t share = 10;
    return bad <= std::max<std::size_t>(1, fields / share) && 2 * bad < fields;
}

void fen::ColumnBuilder::startFilling()
{
    _phase = Phase::Filling;
    _values.clear();
    _offsets.clear();
    _bad.clear();
    _orders = {};
    _badCount = _fields = 0;
    _sign.clear();
    _sameSign = _sameOffset = true;
    _offset.reset();
    _hasTime = false;
}

void fen::ColumnBuilder::fill(std::string_view text, std::size_t line)
{
    double value = missing;
    if (!isMissing(text)) {
        if (!convert(text, value)) {
            value = missing;
            if (++_badCount <= keptBad)
                _bad.push_back({line, fromUtf8(text.substr(0, std::size_t(shownBad)))});
        }
        ++_fields;
    }
    _values.push_back(value);
    if (!_offsets.empty()) _offsets.resize(_values.size(), _offsets.back());
}

bool fen::ColumnBuilder::convert(std::string_view text, double& value)
{
    switch (_kind) {
    case Kind::Text:
        value = category(text);
        return true;
    case Kind::Date:
        return convertDate(text, value);
    case Kind::Time: {
        std::optional<double> const seconds = readTimeOfDay(text);
        value = seconds.value_or(missing);
        return seconds.has_value();
    }
    case Kind::Number:
        break;
    }
    std::optional<NumberText> const number = readNumber(text, _decimal);
    if (!number) return false;
    value = number->value;
    if (_fields == _badCount) _sign = number->sign; // the first that could be read
    _sameSign = _sameSign && number->sign == _sign;
    return true;
}

void fen::ColumnBuilder::Order::see(std::optional<DateText> const& date)
{
    if (!date) {
        ++bad;
        return;
    }
    falling += date->seconds < last;
    last = date->seconds;
}

bool fen::ColumnBuilder::convertDate(std::string_view text, double& value)
{
    std::optional<DateText> const date = _pattern.empty() ? readDate(text, _order) : readDate(text, _pattern);
    if (_unclear) {
        _orders[0].see(readDate(text, DateOrder::DayFirst));
        _orders[1].see(readDate(text, DateOrder::MonthFirst));
    }
    if (!date) return false;
    value = date->seconds;
    _hasTime = _hasTime || date->hasTime;
    if (_fields == _badCount) _offset = date->offset; // the first that could be read
    if (_sameOffset && date->offset != _offset) { // from here on each row has its own
        _sameOffset = false;
        _offsets.assign(_values.size() + 1, double(_offset.value_or(0)) * secondsPerMinute);
    }
    if (!_sameOffset) {
        _offsets.resize(_values.size() + 1);
        _offsets.back() = double(date->offset.value_or(0)) * secondsPerMinute;
    }
    return true;
}

bool fen::ColumnBuilder::reads(std::string_view text) const
{
    std::string_view const bare = trimmed(text);
    switch (_kind) {
    case Kind::Number:
        return readNumber(bare, _decimal).has_value();
    case Kind::Date:
        return (_pattern.empty() ? readDate(bare, _order) : readDate(bare, _pattern)).has_value();
    case Kind::Time:
        return readTimeOfDay(bare).has_value();
    case Kind::Text:
        break;
    }
    return true;
}

bool fen::ColumnBuilder::settle()
{
    if (_phase != Phase::Filling) return false;
    if (_unclear) {
        // The order that reads more of it, else the one in which time goes on.
        auto const worse = [](Order const& a, Order const& b) {
            return a.bad != b.bad ? a.bad > b.bad : a.falling > b.falling;
        };
        DateOrder const first = _order;
        if (worse(_orders[0], _orders[1])) _order = DateOrder::MonthFirst;
        if (worse(_orders[1], _orders[0])) _order = DateOrder::DayFirst;
        _unclear = _orders[0].bad == _orders[1].bad && _orders[0].falling == _orders[1].falling;
        if (_order != first) {
            startFilling();
            return true;
        }
    }
    if (!_as && _kind != Kind::Text && _fields > 0 && !tolerable(_badCount, _fields)) {
        if (_countedAll) {
            _kind = Kind::Text;
            startFilling();
        } else { // the first rows have misled us
            _countedAll = true;
            _fits = {};
            _phase = Phase::Counting;
        }
        return true;
    }
    _phase = Phase::Done;
    return false;
}

double fen::ColumnBuilder::category(std::string_view text)
{
    auto const [entry, fresh] = _index.try_emplace(std::string(text), _categories.size());
    if (fresh) _categories.append(fromUtf8(text));
    return double(entry->second);
}

/// Dates of one clock stay as that clock shows them; of several clocks they become UTC.
void fen::ColumnBuilder::finishDates(FenDataTable::Column& column)
{
    if (!_sameOffset) {
        for (std::size_t i = 0; i < _values.size(); ++i) _values[i] -= _offsets[i];
        _offset = 0;
    }
    column.hasTime = _hasTime;
    if (!_offset) return;
    int const minutes = std::abs(*_offset);
    column.zone = QStringLiteral("UTC");
    if (minutes != 0)
        column.zone += QStringLiteral("%1%2:%3")
                           .arg(*_offset < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                           .arg(minutes / secondsPerMinute, 2, 10, QLatin1Char('0'))
                           .arg(minutes % secondsPerMinute, 2, 10, QLatin1Char('0'));
}

/// Numbers that are seconds or milliseconds since 1970, by name and size.
void fen::ColumnBuilder::finishEpoch(FenDataTable::Column& column, QString const& name)
{
    constexpr double from = 315532800; // [s] 1980
    constexpr double to = 4102444800; // [s] 2100
    constexpr double milli = 1000;
    if (_as || !soundsLikeTime(name) || _fields == 0) return;
    auto const all = [&](double factor) {
        return std::ranges::all_of(
            _values, [=](double v) { return std::isnan(v) || (v >= from * factor && v <= to * factor); });
    };
    bool const seconds = all(1);
    if (!seconds && !all(milli)) return;
    if (!seconds)
        for (double& value : _values) value /= milli;
    column.kind = Kind::Date;
    column.zone = QStringLiteral("UTC");
    column.hasTime = std::ranges::any_of(_values, [](double v) { return std::fmod(v, secondsPerDay) > 0; });
}

FenDataTable::Column fen::ColumnBuilder::take(QString const& name)
{
    FenDataTable::Column column;
    column.name = name;
    column.kind = _kind;
    column.hasTime = _kind == Kind::Time;
    if (_kind == Kind::Date) finishDates(column);
    if (_kind == Kind::Number) {
        finishEpoch(column, name);
        if (_sameSign) column.unit = fromUtf8(_sign);
    }
    column.values = std::make_shared<std::vector<double> const>(std::move(_values));
    column.categories = std::move(_categories);
    return column;
}
