#include "charts/painting/CurveData.h"

#include "services/chartdata/ChartColumn.h"
#include "services/chartdata/ChartVariableCache.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace fen {

namespace {

/// [px] where positions end: far outside any picture, yet exact enough as a number to be clipped.
constexpr double farAway = 1e9;
/// [px] Positions that should be whole numbers must not fall short of them by rounding.
constexpr double rounding = 1e-7;

double position(double chart, double extent)
{
    if (std::isnan(chart)) return chart;
    return std::clamp((chart + 1) * 0.5 * extent + rounding, -farAway, farAway);
}

double valueAt(FenChartColumn const* column, std::size_t i)
{
    return i < column->size() ? column->value(i) : std::numeric_limits<double>::quiet_NaN();
}

/// First index for which `reached` holds, which must be false up to it and true from it on. Looks near
/// `from` first.
template <class Reached>
std::size_t search(std::size_t from, std::size_t count, Reached const& reached)
{
    std::size_t step = 1, low = from, high = from;
    if (from < count && !reached(from)) {
        while (high < count && !reached(high)) {
            low = high + 1;
            high = std::min(count, high + step);
            step *= 2;
        }
    } else {
        low = 0;
    }
    while (low < high) {
        std::size_t const middle = low + (high - low) / 2;
        if (reached(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

} // namespace

CurveData::CurveData(FenChartVariableCache const& cache, FenChartAxisMapping const& x,
                     FenChartAxisMapping const& y, QSize const& rectangle)
    : xColumn(cache.xColumn())
    , yColumn(cache.yColumn())
    , count(yColumn ? yColumn->size() : 0)
    , xMapping(x)
    , yMapping(y)
    , size(rectangle)
{
    if (xColumn) count = std::min(count, xColumn->size());
}

double CurveData::xValue(std::size_t i) const { return xColumn ? valueAt(xColumn.get(), i) : double(i); }

double CurveData::yValue(std::size_t i) const { return valueAt(yColumn.get(), i); }

double CurveData::pixelX(double value) const
{
    return std::isfinite(value) ? position(xMapping.chart(value), size.width()) : std::nan("");
}

double CurveData::pixelY(double value) const
{
    return std::isfinite(value) ? position(yMapping.chart(value), size.height()) : std::nan("");
}

QPoint CurveData::pixel(std::size_t i) const
{
    constexpr double limit = 1e6; // keeps sums with sizes within int
    auto const whole = [&](double px) { return int(std::floor(std::clamp(px, -limit, limit))); };
    return QPoint(whole(x(i)), whole(y(i)));
}

bool CurveData::ascending() const { return !xColumn || xColumn->ascending(); }

bool CurveData::defined(std::size_t i) const { return !std::isnan(x(i)) && !std::isnan(y(i)); }

std::pair<std::size_t, std::size_t> CurveData::outermost() const
{
    std::size_t left = 0, right = count;
    while (left < count && !defined(left)) ++left;
    if (left == count) return {count, count};
    while (!defined(right - 1)) --right;
    --right;
    if (ascending()) return {left, right};
    for (std::size_t i = left, end = right + 1; i < end; ++i) {
        if (!defined(i)) continue;
        if (xValue(i) < xValue(left)) left = i;
        if (xValue(i) > xValue(right)) right = i;
    }
    return {left, right};
}

std::size_t CurveData::firstFrom(double px, std::size_t hint) const
{
    return search(hint, count, [&](std::size_t i) { return x(i) >= px; });
}

std::size_t CurveData::firstBeyond(double px, std::size_t hint) const
{
    return search(hint, count, [&](std::size_t i) { return x(i) > px; });
}

CurveData::Range CurveData::between(double from, double to) const
{
    std::size_t const first = firstFrom(from, 0);
    return {first, firstBeyond(to, first)};
}

CurveData::Range CurveData::visible(double margin) const
{
    if (!ascending()) return {0, count};
    Range range = between(-margin, size.width() + margin);
    // A spline needs one point more than the line that leaves the rectangle.
    range.first -= std::min<std::size_t>(range.first, 2);
    range.last = std::min(range.last + 2, count);
    return range;
}

bool CurveData::extremes(Range const& range, std::size_t& low, std::size_t& high) const
{
    if (range.size() == 0) return false;
    FenChartColumn const& column = *yColumn;
    if (column.hasGaps() || yMapping.logarithmic)
        for (std::size_t b = range.first / FenChartColumn::blockSize;
             b * FenChartColumn::blockSize < range.last; ++b)
            if (!blockDefined(b)) return false;
    low = high = range.first;
    double lowest = column.value(low), highest = lowest;
    auto const look = [&](std::size_t i) {
        double const v = column.value(i);
        if (v < lowest) lowest = v, low = i;
        if (v > highest) highest = v, high = i;
    };
    constexpr std::size_t block = FenChartColumn::blockSize;
    std::size_t i = range.first;
    for (; i < range.last && i % block != 0; ++i) look(i);
    std::size_t lowBlock = 0, highBlock = 0;
    for (; i + block <= range.last; i += block) {
        std::size_t const b = i / block;
        if (column.blockMin(b) < lowest) lowest = column.blockMin(b), lowBlock = b + 1;
        if (column.blockMax(b) > highest) highest = column.blockMax(b), highBlock = b + 1;
    }
    auto const find = [&](std::size_t b, double wanted) {
        std::size_t at = (b - 1) * block;
        while (at + 1 < b * block && column.value(at) != wanted) ++at;
        return at;
    };
    if (lowBlock) low = find(lowBlock, lowest);
    if (highBlock) high = find(highBlock, highest);
    for (; i < range.last; ++i) look(i);
    return true;
}

bool CurveData::blockDefined(std::size_t block) const
{
    return !yColumn->blockHasGap(block) && !(yMapping.logarithmic && yColumn->blockMin(block) <= 0);
}

std::size_t CurveData::firstGap(Range const& range) const
{
    constexpr std::size_t block = FenChartColumn::blockSize;
    for (std::size_t i = range.first; i < range.last;) {
        std::size_t const end = std::min((i / block + 1) * block, range.last);
        if (!blockDefined(i / block))
            for (; i < end; ++i)
                if (std::isnan(y(i))) return i;
        i = end;
    }
    return range.last;
}

bool CurveData::blockMissesX(std::size_t block, double from, double to) const
{
    if (!xColumn) {
        return x((block + 1) * FenChartColumn::blockSize - 1) < from
            || x(block * FenChartColumn::blockSize) > to;
    }
    return pixelX(xColumn->blockMax(block) + shift) < from || pixelX(xColumn->blockMin(block) + shift) > to;
}

bool CurveData::blockMissesY(std::size_t block, double from, double to) const
{
    // A NaN (no value above 0 on a logarithmic axis, say) tells nothing: such a block is looked through.
    return pixelY(yColumn->blockMax(block)) < from || pixelY(yColumn->blockMin(block)) > to;
}

} // namespace fen
