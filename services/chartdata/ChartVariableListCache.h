#pragma once

#include "ChartVariableCache.h"
#include "ChartVariableList.h"

#include <QStringList>

/// The variables of a chart that are to be drawn, as they were at the last update.
class FENVIS_EXPORT FenChartVariableListCache {
public:
    FenChartVariableListCache() = default;
    /// The visible variables of a list, in its order.
    explicit FenChartVariableListCache(FenChartVariableList const& variables);
    /// All variables given, in their order; null ones are left out.
    /// @param xAxes  names of the x axes that are honoured; empty: any. A variable that names another one
    ///               is cached, but has nothing to draw and no part in the bounds.
    FenChartVariableListCache(std::vector<FenChartVariable const*> const& variables,
                              QStringList const& xAxes);

    unsigned size() const { return unsigned(_caches.size()); }
    /// i below size(); an empty cache beyond.
    FenChartVariableCache const& cache(unsigned i) const;
    /// [data] box of all points.
    Kes::Math::BoundingBox bounds() const;
    /// The largest number of points of any variable.
    std::size_t maxScalarLen() const;
    void clear() { _caches.clear(); }

private:
    std::vector<FenChartVariableCache> _caches;
};
