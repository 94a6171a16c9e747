#pragma once

#include "services/chartdata/Chart2D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisPairScale.h"
#include "services/chartdata/ChartPerVariableScaling.h"
#include "services/chartdata/ChartVariableListCache.h"

#include <cmath>
#include <limits>

/// A chart with one axis "x" and one axis "y", and what an update makes of it.
struct ChartDataBuilder {
    typedef Kes::Math::Vector3 Vector3;
    static constexpr double infinity = std::numeric_limits<double>::infinity();
    static constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

    explicit ChartDataBuilder(std::vector<double> y = {},
                              QString const& xType = FenChartAxisContinuous::typeString)
        : chart(group)
    {
        chart.xAxes.setFirst("x", xType);
        chart.yAxes.setFirst("y", FenChartAxisContinuous::typeString);
        if (!y.empty()) add("v", std::move(y));
    }

    FenChartVariable& add(QString const& name, std::vector<double> y, std::vector<double> x = {})
    {
        FenChartVariable& variable = chart.variables.append(name);
        variable.setData(Vector3::CompX, std::move(x));
        variable.setData(Vector3::CompY, std::move(y));
        return variable;
    }

    FenChartVariable& variable() { return chart.variables[0]; }
    FenChartAxisContinuous& y() { return static_cast<FenChartAxisContinuous&>(*chart.yAxes.first()); }
    FenChartAxis& x() { return *chart.xAxes.first(); }
    void fix(FenChartAxis& axis, double min, double max)
    {
        axis.autoRange.set(false);
        axis.min.set(min);
        axis.max.set(max);
    }

    FenChartVariableListCache cache() const { return FenChartVariableListCache(chart.variables); }
    FenChartAxisPairScale xScales() const { return FenChartAxisPairScale(chart.xAxes, cache()); }
    FenChartAxisPairScale yScales() const { return FenChartAxisPairScale(chart.yAxes, cache()); }
    FenChartAxisScale xScale(unsigned divisions = 5) const { return updated(xScales(), divisions); }
    FenChartAxisScale yScale(unsigned divisions = 5) const { return updated(yScales(), divisions); }
    FenChartPerVariableScaling scaling() const { return {xScales(), yScales(), cache()}; }

    static FenChartAxisScale updated(FenChartAxisPairScale scales, unsigned divisions)
    {
        scales.update(divisions, Kes::Math::NumberFormat());
        return *scales.first();
    }
    static QStringList labels(FenChartAxisScale const& scale)
    {
        QStringList texts;
        for (unsigned i = 0; i < scale.size(); ++i) texts += scale.label(i);
        return texts;
    }

    FenModifiedGroup group;
    FenChart2D chart;
};
