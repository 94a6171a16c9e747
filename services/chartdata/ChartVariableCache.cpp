#include "services/chartdata/ChartVariableCache.h"

#include "services/chartdata/FloatRange.h"
#include "services/chartdata/Placeholder.h"
#include "services/math/Vector3.h"

#include <algorithm>

using Kes::Math::BoundingBox;
using Kes::Math::Vector3;

namespace {

constexpr std::array<Vector3::Comp, 3> allComps = {Vector3::CompX, Vector3::CompY, Vector3::CompZ};

/// What float numbers of a range are relative to: where it is short against the distance from 0, its
/// beginning.
double originFor(FenChartRange const& range)
{
    if (!range.defined()) return 0.0;
    double const magnitude = std::max(std::abs(range.min), std::abs(range.max));
    return range.max - range.min < magnitude / 64.0 ? range.min : 0.0;
}

} // namespace

FenChartVariableCache::FenChartVariableCache(FenChartVariable const& variable, bool honoured)
    : _variable(&variable)
{
    for (Vector3::Comp const comp : allComps) _columns[comp] = variable.column(comp);
    _count = variable.count();
    if (honoured) findRanges();
    for (Vector3::Comp const comp : allComps) _origin[comp] = originFor(_range[comp]);
}

FenChartVariable const& FenChartVariableCache::variable() const
{
    FenChartVariable const* const variable = _variable.get();
    return variable ? *variable : fen::noVariable();
}

double FenChartVariableCache::value(Comp comp, std::size_t i) const
{
    return comp == Vector3::CompX ? x(i) : comp == Vector3::CompY ? y(i) : z(i);
}

/// Through the blocks of the columns, unless a gap may take the extremes of another column away.
void FenChartVariableCache::findRanges()
{
    if (!_columns[1]) return;
    if ((_columns[0] && _columns[0]->hasGaps()) || (_columns[2] && _columns[2]->hasGaps()))
        return findRangesPointwise();
    std::size_t common = _columns[1]->size();
    for (FenChartColumn::Ptr const& column : _columns)
        if (column) common = std::min(common, column->size());
    FenChartColumn::Range const y = _columns[1]->range(0, common);
    if (!y.any) return;
    // Where x ascends only gaps at the ends of y matter.
    bool const ascends = !_columns[0] || _columns[0]->ascending();
    if (y.gap && (!ascends || _columns[2])) return findRangesPointwise();
    std::size_t first = 0;
    while (!std::isfinite(_columns[1]->value(first))) ++first;
    while (!std::isfinite(_columns[1]->value(common - 1))) --common;
    _range[1] = {y.min, y.max};
    _range[0] = {double(first), double(common - 1)};
    _range[2] = {0.0, 0.0};
    for (std::size_t const i : {0U, 2U}) {
        if (!_columns[i]) continue;
        FenChartColumn::Range const r = _columns[i]->range(first, common);
        _range[i] = {r.min, r.max};
    }
}

void FenChartVariableCache::findRangesPointwise()
{
    for (std::size_t i = 0; i < _count; ++i) {
        double const point[3] = {x(i), y(i), z(i)};
        if (!std::isfinite(point[0]) || !std::isfinite(point[1]) || !std::isfinite(point[2])) continue;
        for (std::size_t k = 0; k < 3; ++k) _range[k].insert(point[k]);
    }
}

FenChartRange FenChartVariableCache::positiveRange(Comp comp) const
{
    FenChartRange const& all = _range[comp];
    FenChartRange positive;
    if (!all.defined() || all.max <= 0.0) return positive;
    double least = all.min;
    if (least <= 0.0) least = _columns[comp] ? _columns[comp]->minPositive() : 1.0;
    positive.insert(std::min(least, all.max));
    positive.insert(all.max);
    return positive;
}

std::size_t FenChartVariableCache::nonPositive(Comp comp) const
{
    if (!_range[comp].defined() || _range[comp].min > 0.0) return 0;
    return _columns[comp] ? _columns[comp]->nonPositive() : std::size_t(comp == Vector3::CompX ? 1 : 0);
}

BoundingBox FenChartVariableCache::boundingBox() const
{
    BoundingBox box;
    if (empty()) return box;
    using fen::toFloat;
    box.insert(toFloat(_range[0].min), toFloat(_range[1].min), toFloat(_range[2].min));
    box.insert(toFloat(_range[0].max), toFloat(_range[1].max), toFloat(_range[2].max));
    return box;
}

double FenChartVariableCache::minXDelta() const { return _columns[0] ? _columns[0]->minDelta() : 1.0; }

std::vector<Vector3> FenChartVariableCache::points() const { return makePoints({0.0, 0.0, 0.0}); }

std::vector<Vector3> FenChartVariableCache::relativePoints() const { return makePoints(_origin); }

std::vector<Vector3> FenChartVariableCache::makePoints(std::array<double, 3> const& origin) const
{
    std::vector<Vector3> points;
    points.reserve(_count);
    for (std::size_t i = 0; i < _count; ++i)
        points.emplace_back(float(x(i) - origin[0]), float(y(i) - origin[1]), float(z(i) - origin[2]));
    return points;
}
