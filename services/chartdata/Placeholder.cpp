#include "services/chartdata/Placeholder.h"

#include "services/chartdata/ChartVariableCache.h"

namespace fen {

FenChartVariable const& noVariable()
{
    static FenModifiedGroup& group = *new FenModifiedGroup;
    static FenChartVariable const& variable = *new FenChartVariable(group);
    return variable;
}

FenChartVariableCache const& noVariableCache()
{
    static FenChartVariableCache const& cache = *new FenChartVariableCache;
    return cache;
}

} // namespace fen
