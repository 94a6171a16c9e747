#include "services/chartdata/ChartValidVariableList.h"

#include "services/chartdata/ChartVariableCache.h"
#include "services/chartdata/FloatRange.h"
#include "services/chartdata/Placeholder.h"

#include <algorithm>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

void FenChartValidVariableList::push_back(FenChartVariable const& variable, Vector2 const& minmax)
{
    _entries.push_back({&variable, {double(minmax.x()), double(minmax.y())}});
}

void FenChartValidVariableList::push_back(FenChartVariableCache const& cache)
{
    FenChartRange const range = cache.range(Vector3::CompY);
    _entries.push_back({&cache.variable(), range.defined() ? range : FenChartRange{0.0, 0.0}});
}

bool FenChartValidVariableList::alive(unsigned i) const { return i < size() && _entries[i].variable; }

FenChartVariable const& FenChartValidVariableList::variable(unsigned i) const
{
    return alive(i) ? *_entries[i].variable : fen::noVariable();
}

Vector2 FenChartValidVariableList::minmax(unsigned i) const
{
    FenChartRange const r = range(i);
    return Vector2(fen::toFloat(r.min), fen::toFloat(r.max));
}

FenChartRange FenChartValidVariableList::range(unsigned i) const
{
    return i < size() ? _entries[i].range : FenChartRange{0.0, 0.0};
}

double FenChartValidVariableList::fillBaseLine(unsigned i) const
{
    if (i >= size()) return 0.0;
    FenChartRange common;
    for (Entry const& entry : _entries) common.insert(entry.range);
    return common.defined() ? std::clamp(0.0, common.min, common.max) : 0.0;
}

int FenChartValidVariableList::findIndexByName(QString const& name) const
{
    for (unsigned i = 0; i < size(); ++i)
        if (alive(i) && variable(i).name() == name) return int(i);
    return -1;
}
