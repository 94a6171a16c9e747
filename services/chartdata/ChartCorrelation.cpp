#include "services/chartdata/ChartCorrelation.h"

QString const FenChartCorrelation::typeString("chart.correlation");

FenChartCorrelation::FenChartCorrelation(FenModifiedGroup& group)
    : FenChart(group)
    , variables(group)
    , bins(*this, "bins", std::vector<double>(), QString())
    , colors(*this, "colors", QList<QColor>(), QString())
{
    setType(typeString);
    insertNested(variables, "variables");
}

FenChartCorrelation::FenChartCorrelation(FenChartCorrelation const& other)
    : FenChart(other)
    , variables(other.variables)
    , bins(*this, other.bins)
    , colors(*this, other.colors)
{
    insertNested(variables, "variables");
}

FenChartCorrelation::~FenChartCorrelation() = default;
