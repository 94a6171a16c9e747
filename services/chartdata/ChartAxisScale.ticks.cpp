#include "services/chartdata/ChartAxisScale.h"

#include "services/chartdata/DateTicks.h"
#include "services/math/NiceIntervals.h"
#include "services/properties/Labels.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <string>

using Kes::Math::NiceIntervals;
using Kes::Math::NumberFormat;

namespace {

/// Labels of categories: so many may be measured and thinned by whoever draws them.
constexpr unsigned fewCategories = 48;
constexpr unsigned categoriesPerDivision = 16;
constexpr unsigned manyCategories = 2000;
/// Beyond it there is no category.
constexpr double mostCategories = 1e9;

/// A digit times a power of ten, the double nearest to it.
double decimal(int digit, int exponent)
{
    return (QByteArray::number(digit) + 'e' + QByteArray::number(exponent)).toDouble();
}

/// "1.5e9" for "1.5e+09".
QString shortExponent(std::string const& text)
{
    std::size_t const e = text.find_first_of("eE");
    if (e == std::string::npos) return QString::fromStdString(text);
    bool const negative = text[e + 1] == '-';
    std::size_t const digits = std::min(text.find_first_not_of("+-0", e + 1), text.size());
    return QString::fromStdString(text.substr(0, e + 1) + (negative ? "-" : "") + text.substr(digits));
}

/// "5e5" for "500000", "1.2e-3" for "0.0012"; a zero and what has an exponent stay as they are.
QString withExponent(QString const& text)
{
    if (text.contains(u'e', Qt::CaseInsensitive)) return text;
    QString digits;
    QChar point = u'.';
    qsizetype whole = -1; // digits before the point
    for (QChar const c : text) {
        if (c.isDigit()) {
            digits += c;
        } else if (c != u'-') {
            point = c;
            whole = digits.size();
        }
    }
    if (whole < 0) whole = digits.size();
    qsizetype first = 0;
    while (first < digits.size() && digits[first] == u'0') ++first;
    if (first == digits.size()) return text;
    while (digits.back() == u'0') digits.chop(1);
    QString mantissa = digits.mid(first, 1);
    if (first + 1 < digits.size()) mantissa += point + digits.mid(first + 1);
    QString const sign = text.startsWith(u'-') ? QStringLiteral("-") : QString();
    return sign + mantissa + u'e' + QString::number(whole - first - 1);
}

/// Values 1 (or 1, 2 and 5) times those powers of ten whose exponent is a multiple of `stride`.
std::vector<double> decadeValues(double min, double max, bool between, int stride)
{
    std::vector<double> values;
    int const first = int(std::floor(std::log10(min))) - 1, last = int(std::ceil(std::log10(max)));
    for (int e = first; e <= last; ++e) {
        if (e % stride != 0) continue;
        for (int const digit : {1, 2, 5}) {
            double const value = decimal(digit, e);
            if (value >= min && value <= max && value > 0.0 && (digit == 1 || between))
                values.push_back(value);
        }
    }
    return values;
}

} // namespace

void FenChartAxisScale::update(unsigned divisions, NumberFormat const& numberFormat)
{
    divisions = std::clamp(divisions, 1U, 1000U);
    _ticks.clear();
    if (_discrete)
        updateDiscrete(divisions);
    else if (_logarithmic)
        updateLogarithmic(divisions, numberFormat);
    else if (_date)
        updateDate(divisions);
    if (_ticks.empty() && !_discrete) updateLinear(divisions, numberFormat);
    // A negative factor runs against the axis.
    if (_ticks.size() > 1 && _ticks.front().position > _ticks.back().position)
        std::reverse(_ticks.begin(), _ticks.end());
}

void FenChartAxisScale::addTick(double value, QString const& label)
{
    double const position = (mapping().chart(value) + 1.0) / 2.0;
    if (std::isfinite(position)) _ticks.push_back({std::clamp(position, 0.0, 1.0), label});
}

/// One way of writing for the whole axis: all labels have an exponent when one needs it.
void FenChartAxisScale::matchNotation()
{
    auto const needsExponent = [](Tick const& tick) {
        return tick.label.contains(u'e', Qt::CaseInsensitive);
    };
    if (std::none_of(_ticks.begin(), _ticks.end(), needsExponent)) return;
    for (Tick& tick : _ticks) tick.label = withExponent(tick.label);
}

/// Values that are round in the unit of the labels; at least two where the step allows.
void FenChartAxisScale::updateLinear(unsigned divisions, NumberFormat const& numberFormat)
{
    double const low = _min / _factor, high = _max / _factor;
    NiceIntervals nice(low, high, divisions, true, false, numberFormat);
    for (unsigned more = 1; nice.size() < 2 && more <= divisions + 2; ++more)
        nice = NiceIntervals(low, high, divisions + more, true, false, numberFormat);
    for (unsigned i = 0; i < nice.size(); ++i) addTick(nice.value(i) * _factor, shortExponent(nice.label(i)));
    matchNotation();
}

/// Decades, with their 2 and 5 between them when there is room; every n-th decade when there are many;
/// round values as on a linear axis within less than a decade.
void FenChartAxisScale::updateLogarithmic(unsigned divisions, NumberFormat const& numberFormat)
{
    std::vector<double> values = decadeValues(_min, _max, true, 1);
    if (values.size() < 2) return updateLinear(divisions, numberFormat);
    if (values.size() > divisions + 2) {
        std::vector<double> const decades = decadeValues(_min, _max, false, 1);
        if (decades.size() > 1) values = decades;
        for (int stride = 2; values.size() > divisions + 2 && decades.size() > 2; ++stride)
            values = decadeValues(_min, _max, false, stride);
    }
    for (double const value : values) addTick(value, fen::tidyExponent(value / _factor));
    matchNotation();
}

void FenChartAxisScale::updateDate(unsigned divisions)
{
    for (fen::DateTick const& tick : fen::dateTicks(_min, _max, divisions)) addTick(tick.seconds, tick.label);
}

/// Ticks behind every n-th category, n odd, so that the label in the middle is that of one category.
void FenChartAxisScale::updateDiscrete(unsigned divisions)
{
    double const first = std::max(0.0, std::ceil(_min));
    double const last = std::min(std::floor(_max - 0.5), mostCategories);
    double const most = std::clamp(categoriesPerDivision * divisions, fewCategories, manyCategories);
    double stride = std::max(1.0, std::ceil((last - first + 1.0) / most));
    if (std::fmod(stride, 2.0) == 0.0) stride += 1.0;
    for (double begin = first; begin + stride - 1.0 <= last; begin += stride) {
        double const middle = begin + (stride - 1.0) / 2.0;
        bool const counted = _labels.isEmpty();
        bool const named = middle < double(_labels.size());
        addTick(begin + stride - 0.5,
                counted     ? QString::number(qint64(middle))
                    : named ? _labels[qsizetype(middle)]
                            : QString());
    }
}
