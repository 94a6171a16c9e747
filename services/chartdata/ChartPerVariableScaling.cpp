#include "services/chartdata/ChartPerVariableScaling.h"

#include "services/chartdata/ChartAxisPairScale.h"
#include "services/chartdata/ChartVariableListCache.h"
#include "services/chartdata/FloatRange.h"
#include "services/chartdata/Placeholder.h"

#include <algorithm>

using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

FenChartPerVariableScaling::FenChartPerVariableScaling(FenChartAxisPairScale const& x,
                                                       FenChartAxisPairScale const& y,
                                                       FenChartVariableListCache const& variables)
{
    _entries.resize(variables.size());
    for (unsigned i = 0; i < variables.size(); ++i) {
        Entry& entry = _entries[i];
        entry.cache = variables.cache(i);
        FenChartVariable const& variable = entry.cache.variable();
        FenChartAxisScale const* const scales[2] = {x.find(variable.xAxis.get()),
                                                    y.find(variable.yAxis.get())};
        entry.resolved = scales[0] && scales[1];
        if (!entry.resolved) continue;
        for (unsigned k = 0; k < 2; ++k) {
            entry.mapping[k] = scales[k]->mapping();
            entry.discrete[k] = scales[k]->discrete();
        }
    }
}

FenChartPerVariableScaling::Entry const* FenChartPerVariableScaling::find(unsigned i) const
{
    return i < size() && _entries[i].resolved && _entries[i].cache.alive() ? &_entries[i] : nullptr;
}

bool FenChartPerVariableScaling::valid(unsigned i) const { return find(i) != nullptr; }

FenChartVariableCache const& FenChartPerVariableScaling::variable(unsigned i) const
{
    return i < size() ? _entries[i].cache : fen::noVariableCache();
}

Matrix FenChartPerVariableScaling::matrix(unsigned i) const
{
    Entry const* const entry = find(i);
    return entry ? makeMatrix(*entry, false) : Matrix();
}

Matrix FenChartPerVariableScaling::relativeMatrix(unsigned i) const
{
    Entry const* const entry = find(i);
    return entry ? makeMatrix(*entry, true) : Matrix();
}

Matrix FenChartPerVariableScaling::makeMatrix(Entry const& entry, bool relative)
{
    Matrix matrix;
    for (int k = 0; k < 2; ++k) {
        FenChartAxisMapping const& m = entry.mapping[k];
        double const low = m.logarithmic ? std::log10(m.min) : m.min;
        double const high = m.logarithmic ? std::log10(m.max) : m.max;
        double const origin = relative && !m.logarithmic ? entry.cache.origin(Comp(k)) : 0.0;
        double const unit = std::isfinite(high - low) ? 1.0 : 0.25; // lengths may be beyond double
        double const length = high * unit - low * unit;
        matrix(k, k) = fen::toFloat(2.0 * unit / length);
        matrix(k, 3) = fen::toFloat(2.0 * ((origin - low) * unit / length) - 1.0);
    }
    return matrix;
}

FenChartAxisMapping FenChartPerVariableScaling::mapping(unsigned i, Comp comp) const
{
    Entry const* const entry = find(i);
    if (!entry || comp == Vector3::CompZ) return FenChartAxisMapping(-1.0, 1.0, false);
    return entry->mapping[comp];
}

bool FenChartPerVariableScaling::isAxisDiscrete(Comp comp, unsigned i) const
{
    Entry const* const entry = find(i);
    return entry && comp != Vector3::CompZ && entry->discrete[comp];
}

bool FenChartPerVariableScaling::gradientExtents(unsigned i, Comp comp, Vector2& range, double& base) const
{
    FenChartRange exact;
    bool const known = gradientExtents(i, comp, exact, base);
    range = Vector2(fen::toFloat(exact.min), fen::toFloat(exact.max));
    return known;
}

bool FenChartPerVariableScaling::gradientExtents(unsigned i, Comp comp, FenChartRange& range,
                                                 double& base) const
{
    range = {0.0, 0.0};
    base = 0.0;
    Entry const* const entry = find(i);
    if (!entry) return false;
    FenChartAxisMapping const map = mapping(i, comp);
    FenChartRange const values =
        map.logarithmic ? entry->cache.positiveRange(comp) : entry->cache.range(comp);
    if (values.defined()) range = values;
    if (comp != Vector3::CompZ) base = std::clamp(0.0, map.min, map.max);
    return true;
}
