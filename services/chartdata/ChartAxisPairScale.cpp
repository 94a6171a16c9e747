#include "services/chartdata/ChartAxisPairScale.h"

#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisPair.h"
#include "services/chartdata/ChartVariableListCache.h"
#include "services/logging/Checks.h"

#include <cmath>
#include <utility>

using Kes::Math::Vector3;

namespace {

/// Air around the data, as parts of its extent: curves need more above and below than at their ends.
constexpr double airAlongX = 0.02;
constexpr double airElsewhere = 0.05;

bool isBar(FenChartVariable const& variable) { return variable.style.get() == FenChart::styleBar; }

bool isFilled(FenChartVariable const& variable)
{
    QString const& mode = variable.fillMode.get();
    return mode == FenChart::fillSolid || mode == FenChart::fillSparse || mode == FenChart::fillGradient;
}

/// Half of a bar's width stands out beyond the first and the last x; intervals of categories have room for
/// it.
void insertBars(FenChartAxisData& data, FenChartVariableCache const& cache)
{
    FenChartRange const& x = cache.range(Vector3::CompX);
    double const half = 0.5 * cache.minXDelta() * std::abs(cache.variable().barWidth.get());
    if (!std::isfinite(x.min - half) || !std::isfinite(x.max + half)) return;
    data.all.insert(x.min - half);
    data.all.insert(x.max + half);
}

struct Gathered {
    FenChartAxisData data;
    std::size_t undefined = 0; ///< values that a logarithmic axis cannot show
};

Gathered gather(FenChartAxisPair const& pair, FenChartAxis const& axis,
                FenChartVariableListCache const& variables, bool logarithmic)
{
    bool const continuous = dynamic_cast<FenChartAxisContinuous const*>(&axis) != nullptr;
    Gathered gathered;
    FenChartAxisData& data = gathered.data;
    for (unsigned i = 0; i < variables.size(); ++i) {
        FenChartVariableCache const& cache = variables.cache(i);
        if (cache.empty() || !cache.alive()) continue;
        FenChartVariable const& variable = cache.variable();
        if (pair.resolve(variable.axisName(pair.comp()).get()) != &axis) continue;
        data.all.insert(cache.range(pair.comp()));
        bool const filled = isBar(variable) || isFilled(variable);
        if (pair.comp() == Vector3::CompX && isBar(variable) && continuous) insertBars(data, cache);
        if (pair.comp() != Vector3::CompX && filled) data.base = true;
        if (!logarithmic) continue;
        data.positive.insert(cache.positiveRange(pair.comp()));
        gathered.undefined += cache.nonPositive(pair.comp());
    }
    return gathered;
}

void reportUndefined(QString const& axis, std::size_t count)
{
    std::string const text = '"' + axis.toStdString() + "\" is logarithmic: " + std::to_string(count)
        + " values that are not above 0 are left out";
    fen::debug_logger::debuglogger().derr << fen::warningText(text, __PRETTY_FUNCTION__, "@line 71") << '\n';
}

} // namespace

FenChartAxisPairScale::FenChartAxisPairScale(FenChartAxisPair const& pair,
                                             FenChartVariableListCache const& variables)
{
    FenChartAxis const* const axes[2] = {pair.first(), pair.second()};
    double const air = pair.comp() == Vector3::CompX ? airAlongX : airElsewhere;
    for (unsigned slot = 0; slot < 2; ++slot) {
        if (!axes[slot]) continue;
        FenChartAxis const& axis = *axes[slot];
        auto const* const continuous = dynamic_cast<FenChartAxisContinuous const*>(&axis);
        bool const logarithmic = continuous && continuous->logarithmic.get() && !continuous->date();
        Gathered const gathered = gather(pair, axis, variables, logarithmic);
        if (continuous && gathered.undefined > 0 && !continuous->_reportedUndefined)
            reportUndefined(axis.name(), gathered.undefined);
        if (continuous) continuous->_reportedUndefined = gathered.undefined > 0;
        _scales[slot] = FenChartAxisScale(axis, gathered.data, air);
        _names[slot] = axis.name();
        _has[slot] = true;
    }
}

FenChartAxisScale const* FenChartAxisPairScale::find(QString const& axisName) const
{
    for (unsigned slot = 0; slot < 2; ++slot)
        if (_has[slot] && (axisName.isEmpty() || _names[slot] == axisName)) return &_scales[slot];
    return nullptr;
}

FenChartAxisScale* FenChartAxisPairScale::find(QString const& axisName)
{
    return const_cast<FenChartAxisScale*>(std::as_const(*this).find(axisName));
}

void FenChartAxisPairScale::update(unsigned divisions, Kes::Math::NumberFormat const& numberFormat)
{
    for (unsigned slot = 0; slot < 2; ++slot)
        if (_has[slot]) _scales[slot].update(divisions, numberFormat);
}
