#include "services/chartdata/ChartColumn.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <utility>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

std::shared_ptr<std::vector<double> const> const& noValues()
{
    static auto const& none = *new auto(std::make_shared<std::vector<double> const>());
    return none;
}

/// Two numbers that the processor handles at once. Written out because compilers leave minima alone as
/// long as NaN may be among the numbers.
typedef double Pair __attribute__((vector_size(16)));

/// Sums and minima that do not wait for each other.
constexpr std::size_t chains = 4;

Pair load(double const* v)
{
    Pair pair;
    std::memcpy(&pair, v, sizeof pair);
    return pair;
}

double lowest(Pair const (&pairs)[chains])
{
    double least = pairs[0][0];
    for (Pair const& pair : pairs) least = std::min({least, pair[0], pair[1]});
    return least;
}

/// True when no value is smaller than the one before it and none is NaN; v[-1] must exist.
bool continuesAscending(double const* v, std::size_t count)
{
    constexpr std::size_t stretch = 64;
    std::size_t i = 0;
    for (; i + stretch <= count; i += stretch) {
        Pair least[chains] = {};
        Pair sum[chains] = {}; // NaN when a step was
        for (double const* p = v + i; p != v + i + stretch; p += 2 * chains) {
#pragma GCC unroll 4
            for (std::size_t k = 0; k < chains; ++k) {
                Pair const step = load(p + 2 * k) - load(p + 2 * k - 1);
                least[k] = step < least[k] ? step : least[k];
                sum[k] += step;
            }
        }
        Pair const total = (sum[0] + sum[1]) + (sum[2] + sum[3]);
        if (std::isnan(total[0] + total[1]) || lowest(least) < 0.0) return false;
    }
    for (; i < count; ++i)
        if (!(v[i] >= *(v + i - 1))) return false;
    return true;
}

struct Summary {
    double min = infinity, max = -infinity;
    bool gap = false;
};

/// Extremes of the finite values.
Summary summaryWithGaps(double const* v, std::size_t count)
{
    Summary s;
    for (std::size_t i = 0; i < count; ++i) {
        if (!std::isfinite(v[i])) {
            s.gap = true;
            continue;
        }
        s.min = std::min(s.min, v[i]);
        s.max = std::max(s.max, v[i]);
    }
    return s;
}

/// The same, fast for values without gaps.
Summary summary(double const* v, std::size_t count)
{
    constexpr Pair beyond = {infinity, infinity};
    Pair lo[chains] = {beyond, beyond, beyond, beyond};
    Pair hi[chains] = {-beyond, -beyond, -beyond, -beyond};
    Pair defect[chains] = {}; // NaN once a value was not finite
    std::size_t const whole = count - count % (2 * chains);
    for (std::size_t i = 0; i < whole; i += 2 * chains) {
#pragma GCC unroll 4
        for (std::size_t k = 0; k < chains; ++k) {
            Pair const value = load(v + i + 2 * k);
            lo[k] = value < lo[k] ? value : lo[k];
            hi[k] = value > hi[k] ? value : hi[k];
            defect[k] += value - value;
        }
    }
    Pair const defects = (defect[0] + defect[1]) + (defect[2] + defect[3]);
    if (std::isnan(defects[0] + defects[1])) return summaryWithGaps(v, count);
    for (Pair& pair : hi) pair = -pair;
    Summary rest = summaryWithGaps(v + whole, count - whole);
    rest.min = std::min(rest.min, lowest(lo));
    rest.max = std::max(rest.max, -lowest(hi));
    return rest;
}

} // namespace

FenChartColumn::FenChartColumn(std::vector<double> values)
    : FenChartColumn(std::make_shared<std::vector<double> const>(std::move(values)))
{
}

FenChartColumn::FenChartColumn(std::shared_ptr<std::vector<double> const> values)
    : _values(values ? std::move(values) : noValues())
    , _size(_values->size())
{
    build(0);
}

FenChartColumn::FenChartColumn(std::shared_ptr<std::vector<double>> values, FenChartColumn const& head)
    : _values(values)
    , _size(values->size())
    , _growing(std::move(values))
    , _ascending(head._ascending)
{
    std::size_t const known = head.size() / blockSize;
    if (!head._extremes.empty()) {
        _extremes.reserve(blocks());
        _extremes.assign(head._extremes.begin(), head._extremes.begin() + std::ptrdiff_t(known));
    }
    if (!head._gaps.empty()) _gaps.assign(head._gaps.begin(), head._gaps.begin() + std::ptrdiff_t(known));
    build(known);
}

FenChartColumn::Ptr FenChartColumn::make(std::vector<double> values)
{
    return std::make_shared<FenChartColumn const>(std::move(values));
}

FenChartColumn::Ptr FenChartColumn::share(std::shared_ptr<std::vector<double> const> values)
{
    return std::make_shared<FenChartColumn const>(std::move(values));
}

FenChartColumn::Ptr FenChartColumn::appended(Ptr const& column, std::vector<double> const& more)
{
    if (!column || column->empty()) return make(more);
    if (more.empty()) return column;
    auto all = column->_growing;
    std::size_t const needed = column->size() + more.size();
    if (!all || all->size() != column->size()) { // not ours to grow, or grown by somebody else
        double const* const old = column->_values->data();
        all = std::make_shared<std::vector<double>>();
        all->reserve(needed + needed / 4);
        all->assign(old, old + column->size());
    }
    if (needed > all->capacity()) all->reserve(needed + needed / 4);
    all->insert(all->end(), more.begin(), more.end());
    return Ptr(new FenChartColumn(std::move(all), *column));
}

std::vector<double> const& FenChartColumn::values() const
{
    if (_values->size() != _size) {
        double const* const own = _values->data();
        _values = std::make_shared<std::vector<double> const>(own, own + _size);
    }
    return *_values;
}

FenChartColumn::Ptr FenChartColumn::scaled(FenChartColumn const& column, double factor)
{
    std::vector<double> values(column.values());
    for (double& value : values) value *= factor;
    return make(std::move(values));
}

/// Walks over the values from `firstBlock` on; what lies before it is known.
void FenChartColumn::build(std::size_t firstBlock)
{
    double const* const v = _values->data();
    std::size_t const first = firstBlock * blockSize;
    if (_ascending && !empty()) {
        std::size_t const from = std::max<std::size_t>(first, 1);
        // Between finite ends an ascending column holds no infinity.
        _ascending = std::isfinite(v[0]) && std::isfinite(v[size() - 1])
            && continuesAscending(v + from, size() - from);
        // Blocks of an ascending column are not stored.
        if (!_ascending) firstBlock = 0;
    }
    if (!_ascending) {
        _extremes.resize(blocks());
        for (std::size_t b = firstBlock; b < blocks(); ++b) {
            Summary const s = summary(v + b * blockSize, end(b) - b * blockSize);
            _extremes[b] = {s.min, s.max};
            if (!s.gap) continue;
            _gaps.resize(blocks(), 0);
            _gaps[b] = 1;
        }
        if (!_gaps.empty()) _gaps.resize(blocks(), 0);
    }
    summarise();
}

void FenChartColumn::summarise()
{
    if (empty()) return;
    if (_ascending) {
        _all = {value(0), value(_size - 1), false, true};
        return;
    }
    Summary s;
    for (Extremes const& e : _extremes) {
        s.min = std::min(s.min, e.min);
        s.max = std::max(s.max, e.max);
    }
    _all.any = s.min <= s.max;
    _all.gap = !_gaps.empty();
    if (_all.any) _all.min = s.min, _all.max = s.max;
}

FenChartColumn::Range FenChartColumn::range(std::size_t first, std::size_t last) const
{
    last = std::min(last, size());
    if (first >= last) return {};
    if (first == 0 && last == size()) return _all;
    if (_ascending) return {(*_values)[first], (*_values)[last - 1], false, true};
    Summary s;
    auto const add = [&s](Summary const& part) {
        s.min = std::min(s.min, part.min);
        s.max = std::max(s.max, part.max);
        s.gap = s.gap || part.gap;
    };
    double const* const v = _values->data();
    std::size_t const head = std::min(last, (first + blockSize - 1) / blockSize * blockSize);
    add(summary(v + first, head - first));
    std::size_t i = head;
    for (; i + blockSize <= last; i += blockSize) {
        std::size_t const b = i / blockSize;
        add({_extremes[b].min, _extremes[b].max, blockHasGap(b)});
    }
    add(summary(v + i, last - i));
    if (s.min > s.max) return {0.0, 0.0, s.gap, false};
    return {s.min, s.max, s.gap, true};
}

std::size_t FenChartColumn::lowerBound(double value) const
{
    return std::size_t(std::lower_bound(_values->data(), _values->data() + _size, value) - _values->data());
}

std::size_t FenChartColumn::upperBound(double value) const
{
    return std::size_t(std::upper_bound(_values->data(), _values->data() + _size, value) - _values->data());
}

double FenChartColumn::minDelta() const
{
    if (_minDelta >= 0.0) return _minDelta;
    std::vector<double> sorted;
    if (!_ascending) {
        sorted.reserve(size());
        std::copy_if(_values->data(), _values->data() + _size, std::back_inserter(sorted),
                     [](double value) { return std::isfinite(value); });
        std::sort(sorted.begin(), sorted.end());
    }
    std::vector<double> const& v = _ascending ? values() : sorted;
    double smallest = infinity;
    for (std::size_t i = 1; i < v.size(); ++i) {
        double const delta = v[i] - v[i - 1];
        if (delta > 0.0 && delta < smallest) smallest = delta;
    }
    return _minDelta = std::isfinite(smallest) ? smallest : 1.0;
}

double FenChartColumn::minPositive() const
{
    if (_minPositive >= 0.0) return _minPositive;
    double smallest = infinity;
    if (_all.min > 0.0) {
        smallest = _all.min;
    } else if (_ascending) {
        std::size_t const i = upperBound(0.0);
        if (i < size()) smallest = value(i);
    } else {
        for (std::size_t b = 0; b < blocks(); ++b) {
            if (blockMax(b) <= 0.0) continue;
            if (blockMin(b) > 0.0) {
                smallest = std::min(smallest, blockMin(b));
                continue;
            }
            for (std::size_t i = b * blockSize; i < end(b); ++i)
                if (value(i) > 0.0) smallest = std::min(smallest, value(i));
        }
    }
    return _minPositive = std::isfinite(smallest) ? smallest : 0.0;
}

std::size_t FenChartColumn::nonPositive() const
{
    if (!_all.any || _all.min > 0.0) return 0;
    if (_ascending) return upperBound(0.0);
    return std::size_t(std::count_if(_values->data(), _values->data() + _size,
                                     [](double value) { return value <= 0.0 && std::isfinite(value); }));
}
