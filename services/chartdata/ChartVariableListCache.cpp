#include "services/chartdata/ChartVariableListCache.h"

#include "services/chartdata/Placeholder.h"

#include <algorithm>

FenChartVariableListCache::FenChartVariableListCache(FenChartVariableList const& variables)
{
    _caches.reserve(variables.size());
    for (unsigned i = 0; i < variables.size(); ++i)
        if (variables[i].visible.get()) _caches.emplace_back(variables[i]);
}

FenChartVariableListCache::FenChartVariableListCache(std::vector<FenChartVariable const*> const& variables,
                                                     QStringList const& xAxes)
{
    _caches.reserve(variables.size());
    for (FenChartVariable const* const variable : variables) {
        if (!variable) continue;
        QString const& axis = variable->xAxis.get();
        _caches.emplace_back(*variable, axis.isEmpty() || xAxes.isEmpty() || xAxes.contains(axis));
    }
}

FenChartVariableCache const& FenChartVariableListCache::cache(unsigned i) const
{
    return i < size() ? _caches[i] : fen::noVariableCache();
}

Kes::Math::BoundingBox FenChartVariableListCache::bounds() const
{
    Kes::Math::BoundingBox box;
    for (FenChartVariableCache const& cache : _caches) box.insert(cache.boundingBox());
    return box;
}

std::size_t FenChartVariableListCache::maxScalarLen() const
{
    std::size_t longest = 0;
    for (FenChartVariableCache const& cache : _caches) longest = std::max(longest, cache.count());
    return longest;
}
