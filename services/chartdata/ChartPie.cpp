#include "services/chartdata/ChartPie.h"

QString const FenChartPie::typeString("chart.pie");

FenChartPie::FenChartPie(FenModifiedGroup& group)
    : FenChart(group)
    , variables(group)
    , showPercent(*this, "showPercent", false, QString())
{
    setType(typeString);
    insertNested(variables, "variables");
}

FenChartPie::FenChartPie(FenChartPie const& other)
    : FenChart(other)
    , variables(other.variables)
    , showPercent(*this, other.showPercent)
{
    insertNested(variables, "variables");
}

FenChartPie::~FenChartPie() = default;
