#include "services/chartdata/ChartAxisScale.h"

#include "services/chartdata/AxisValueText.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/DateTicks.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double tiniest = std::numeric_limits<double>::denorm_min();
constexpr double halfDay = 43200.0;
/// Categories beyond it are no index that anybody meant.
constexpr double mostCategories = 1e9;

/// A range around one value, wide enough to be told from it.
FenChartRange around(double value, double half)
{
    return {std::max(std::min(value - half, std::nextafter(value, -largest)), -largest),
            std::min(std::max(value + half, std::nextafter(value, largest)), largest)};
}

FenChartRange aroundOnAxis(double value, bool date)
{
    return around(value, date ? halfDay : value == 0.0 ? 1.0 : std::abs(value) * 0.1);
}

FenChartRange linearRange(FenChartAxisData const& data, double air, bool date)
{
    FenChartRange range = data.all;
    if (!range.defined()) return {0.0, date ? 2 * halfDay : 1.0};
    if (data.base) range.insert(0.0);
    if (range.min == range.max) return data.base ? FenChartRange{0.0, 1.0} : aroundOnAxis(range.min, date);
    double const margin = range.max * air - range.min * air;
    if (!data.base || range.min != 0.0) range.min = std::max(range.min - margin, -largest);
    if (!data.base || range.max != 0.0) range.max = std::min(range.max + margin, largest);
    return range;
}

FenChartRange logarithmicRange(FenChartAxisData const& data, double air)
{
    FenChartRange range = data.positive;
    if (!range.defined()) return {1.0, 10.0};
    double const decades = std::log10(range.max) - std::log10(range.min);
    double const margin = decades > 0.0 ? std::pow(10.0, decades * air) : 10.0;
    // Bars and fills begin in the decade below the smallest value: there is no 0.
    range.min = data.base ? std::pow(10.0, std::ceil(std::log10(range.min)) - 1.0) : range.min / margin;
    range.max *= margin;
    return {std::clamp(range.min, tiniest, largest / 2), std::min(range.max, largest)};
}

/// The range that was fixed, if it makes sense.
bool fixedRange(FenChartAxis const& axis, FenChartRange& range)
{
    double const a = axis.min.get(), b = axis.max.get();
    if (axis.autoRange.get() || !std::isfinite(a) || !std::isfinite(b)) return false;
    range = {std::min(a, b), std::max(a, b)};
    return true;
}

} // namespace

FenChartAxisScale::FenChartAxisScale(FenChartAxis const& axis, FenChartAxisData const& data, double air)
    : _axis(&axis)
    , _shown(axis.shown.get())
{
    if (auto const* const discrete = dynamic_cast<FenChartAxisDiscrete const*>(&axis))
        resolveDiscrete(*discrete, data);
    else if (auto const* const continuous = dynamic_cast<FenChartAxisContinuous const*>(&axis))
        resolveContinuous(*continuous, data, air);
}

void FenChartAxisScale::resolveContinuous(FenChartAxisContinuous const& axis, FenChartAxisData const& data,
                                          double air)
{
    _date = axis.date();
    _logarithmic = axis.logarithmic.get() && !_date;
    _factor = axis.shownFactor();
    FenChartRange range;
    bool fixed = fixedRange(axis, range);
    if (fixed && _logarithmic) {
        fixed = range.max > 0.0;
        if (range.min <= 0.0) range.min = data.positive.min < range.max ? data.positive.min : range.max / 1e3;
        if (fixed && !(range.min > 0.0)) range.min = range.max;
        if (fixed && range.min == range.max) range = {std::max(range.min / 10.0, tiniest), range.max * 10.0};
        range.max = std::min(range.max, largest);
    } else if (fixed && range.min == range.max) {
        range = aroundOnAxis(range.min, _date);
    }
    if (!fixed) range = _logarithmic ? logarithmicRange(data, air) : linearRange(data, air, _date);
    _min = range.min;
    _max = range.max;
    // Equal once more: a range so short that no double lies between its ends.
    if (!(_min < _max)) _max = std::nextafter(_min, std::numeric_limits<double>::infinity());
}

void FenChartAxisScale::resolveDiscrete(FenChartAxisDiscrete const& axis, FenChartAxisData const& data)
{
    _discrete = true;
    _labels = axis.labels.get();
    double count = std::max(1.0, double(_labels.size()));
    if (data.all.defined() && data.all.max < mostCategories)
        count = std::max(count, std::floor(data.all.max + 0.5) + 1.0);
    FenChartRange range{-0.5, count - 0.5};
    if (fixedRange(axis, range) && range.min == range.max) range = around(range.min, 0.5);
    _min = range.min;
    _max = range.max;
}

QString FenChartAxisScale::label(unsigned i) const { return i < size() ? _ticks[i].label : QString(); }

double FenChartAxisScale::percentage(unsigned i) const { return i < size() ? _ticks[i].position : 0.0; }

QString FenChartAxisScale::valueText(double value, Kes::Math::NumberFormat const& format) const
{
    double const category = std::round(value);
    if (_discrete && category >= 0 && category < double(_labels.size())
        && !_labels.at(qsizetype(category)).isEmpty())
        return _labels.at(qsizetype(category));
    QString const day = _date ? fen::dateText(value) : QString();
    return day.isEmpty() ? fen::axisValueText(value, _min, _max, format) : day;
}

unsigned FenChartAxisScale::labelStride(std::vector<double> const& extents, double length, double gap) const
{
    auto const fits = [&](unsigned stride) {
        double end = -std::numeric_limits<double>::infinity();
        for (unsigned i = 0; i < size(); i += stride) {
            double const extent = i < extents.size() ? extents[i] : 0.0;
            if (extent <= 0.0) continue;
            double const centre = _ticks[i].position * length;
            if (centre - extent / 2 < end) return false;
            end = centre + extent / 2 + gap;
        }
        return true;
    };
    unsigned stride = 1;
    while (stride < size() && !fits(stride)) ++stride;
    return stride;
}
