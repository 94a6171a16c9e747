#include "services/math/NiceIntervals.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <system_error>
#include <utility>

namespace Kes::Math {

namespace {

typedef std::numeric_limits<double> Limits;

constexpr unsigned maxCount = 1000;
// A value that misses the range by less than this share of it, as ends that went through floats do, counts
// as inside and is moved to the end.
constexpr double tolerance = 1e-6;
// Values are whole multiples of the step, and differ: so many of them fit between 0 and the farther end.
constexpr double maxMultiple = 1e15;
constexpr int minExponent = -305; // smaller numbers lose digits, and with them the place of a multiple
// Labels of numbers outside get a factor, if one is allowed.
constexpr double smallestPlain = 1e-3;
constexpr double largestPlain = 1e5;
constexpr int minFactorExponent = -306;
constexpr int maxDigits = 17;

// The double nearest to mantissa * 10^exponent: reading text rounds once, arithmetic would round twice.
double decimal(std::int64_t mantissa, int exponent)
{
    std::string const text = std::to_string(mantissa) + 'e' + std::to_string(exponent);
    double value = 0.0;
    auto const read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc()) return value;
    double const lost = exponent > 0 ? Limits::infinity() : 0.0;
    return mantissa < 0 ? -lost : lost;
}

int exponentOf(double value) { return int(std::floor(std::log10(std::fabs(value)))); }

struct Range {
    double min, max;

    double slack() const { return max * tolerance - min * tolerance; }
    double magnitude() const { return std::max(std::fabs(min), std::fabs(max)); }
};

// The number of digits a label needs to tell neighbours apart, in terms of the format's own precision.
int neededPrecision(char format, int largestExponent, int stepExponent)
{
    int const significant = largestExponent - stepExponent + 1;
    switch (format) {
    case 'f':
    case 'F':
        return std::clamp(-stepExponent, 0, maxDigits);
    case 'e':
    case 'E':
        return std::clamp(significant - 1, 0, maxDigits);
    default:
        return std::clamp(significant, 0, maxDigits);
    }
}

int factorExponent(double magnitude, int stepExponent, NumberFormat const& format)
{
    if (magnitude >= smallestPlain && magnitude < largestPlain) return 0;
    int const exponent = exponentOf(magnitude);
    bool const crowded = exponent - stepExponent + 1 > std::max(format.precision(), 1);
    if (crowded) return 0; // the digits tell more than the size
    return std::max(int(std::floor(exponent / 3.0)) * 3, minFactorExponent);
}

} // namespace

// Multiples of mantissa * 10^exponent from `first` to `last`; none when last is less than first.
struct NiceIntervals::Step {
    std::int64_t mantissa;
    int exponent;
    std::int64_t first = 0;
    std::int64_t last = -1;

    std::int64_t count() const { return last - first + 1; }
    double value(std::int64_t multiple) const { return decimal(multiple * mantissa, exponent); }

    // 1, 2, 5, 10, ...
    Step next() const
    {
        if (mantissa == 5) return {1, exponent + 1};
        return {mantissa == 1 ? 2 : 5, exponent};
    }

    // Finds the multiples in a range, or those that just hold it.
    void span(Range const& range, bool clip)
    {
        double const size = value(1);
        double const slack = range.slack();
        double const low = std::max(range.min - slack, Limits::lowest());
        double const high = std::min(range.max + slack, Limits::max());
        // Beyond both sides at first; the quotients may be off by one.
        first = std::int64_t(std::floor(range.min / size)) - 1;
        last = std::int64_t(std::ceil(range.max / size)) + 1;
        while (value(first) < low) ++first;
        while (value(last) > high) --last;
        if (!clip && value(first) > range.min + slack) --first;
        if (!clip && value(last) < range.max - slack) ++last;
    }

    // The smallest step with at most count + 1 values; one smaller if that left less than two.
    static Step choose(Range const& range, unsigned count, bool clip)
    {
        double const rough = std::max(range.max / count - range.min / count, range.magnitude() / maxMultiple);
        double const bounded = std::clamp(rough, Limits::denorm_min(), Limits::max());
        Step step{1, std::max(exponentOf(bounded) - 1, minExponent)};
        while (step.value(1) < range.magnitude() / maxMultiple) step = step.next();
        auto const limit = std::int64_t(std::max(count + 1, clip ? 2u : 3u));
        step.span(range, clip);
        Step before = step;
        while (step.count() > limit) {
            before = std::exchange(step, step.next());
            step.span(range, clip);
        }
        return step.count() < 2 ? before : step;
    }
};

NiceIntervals::NiceIntervals(double min, double max, unsigned count, bool clip, bool useFactor,
                             NumberFormat const& numberFormat)
{
    if (!std::isfinite(min) || !std::isfinite(max)) return;
    Range range{std::min(min, max), std::max(min, max)};
    _min = range.min;
    _max = range.max;
    if (range.min == range.max) {
        if (clip) {
            makeSingle(numberFormat);
            return;
        }
        double const share = range.magnitude() / 10.0;
        double const margin = range.min == 0.0 ? 1.0 : std::max(share, Limits::min());
        range.min = std::max(range.min - margin, Limits::lowest());
        range.max = std::min(range.max + margin, Limits::max());
    }
    makeTicks(Step::choose(range, std::clamp(count, 1u, maxCount), clip), clip, useFactor, numberFormat);
    if (_ticks.empty()) makeSingle(numberFormat); // too narrow for round values
}

void NiceIntervals::makeSingle(NumberFormat const& numberFormat)
{
    _ticks.push_back({_min, numberFormat.format(_min)});
}

void NiceIntervals::makeTicks(Step const& step, bool clip, bool useFactor, NumberFormat const& numberFormat)
{
    double const farthest = Range{step.value(step.first), step.value(step.last)}.magnitude();
    double const magnitude = std::min(farthest, Limits::max());
    if (magnitude == 0.0) useFactor = false;
    int const shift = useFactor ? factorExponent(magnitude, step.exponent, numberFormat) : 0;
    _factor = decimal(1, shift);
    int const largest = magnitude > 0.0 ? exponentOf(magnitude) : step.exponent;
    int const needed = neededPrecision(numberFormat.format(), largest - shift, step.exponent - shift);
    NumberFormat const format(numberFormat.format(), numberFormat.decimalPoint(),
                              std::max(needed, numberFormat.precision()));
    for (std::int64_t i = step.first; i <= step.last; ++i) {
        double const value = step.value(i);
        if (!std::isfinite(value)) continue; // whole steps beyond the largest number
        double const shown = decimal(i * step.mantissa, step.exponent - shift);
        _ticks.push_back({clip ? std::clamp(value, _min, _max) : value, format.format(shown)});
    }
    if (_ticks.empty()) return;
    _min = std::min(_min, _ticks.front().value);
    _max = std::max(_max, _ticks.back().value);
}

double NiceIntervals::value(unsigned i) const { return i < size() ? _ticks[i].value : 0.0; }

std::string const& NiceIntervals::label(unsigned i) const
{
    static std::string const none;
    return i < size() ? _ticks[i].label : none;
}

double NiceIntervals::fraction(unsigned i, bool inside) const
{
    // Halves, since the difference of two large numbers may overflow.
    double const length = _max / 2.0 - _min / 2.0;
    if (!(length > 0.0)) return 0.0;
    double const share = (value(i) / 2.0 - _min / 2.0) / length;
    return inside ? std::clamp(share, 0.0, 1.0) : share;
}

} // namespace Kes::Math
