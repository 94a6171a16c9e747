#include "services/chartdata/ChartLegend.h"

QString const FenChartLegend::typeString("chart.legend");

FenChartLegend::FenChartLegend(FenModifiedGroup& group)
    : FenChart(group)
    , chart(*this, "chart", QString(), QString())
    , orientation(*this, "orientation", legendVertical, QString())
    , viewport(group)
{
    setType(typeString);
    insertNested(viewport, "viewport");
}

FenChartLegend::FenChartLegend(FenChartLegend const& other)
    : FenChart(other)
    , chart(*this, other.chart)
    , orientation(*this, other.orientation)
    , viewport(other.viewport)
{
    insertNested(viewport, "viewport");
}

FenChartLegend::~FenChartLegend() = default;
