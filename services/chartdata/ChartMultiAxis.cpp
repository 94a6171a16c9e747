#include "services/chartdata/ChartMultiAxis.h"

#include "services/properties/SiblingName.h"

QString const FenChartMultiAxis::typeString("chart.multiAxis");

FenChartMultiAxis::FenChartMultiAxis(FenModifiedGroup& group)
    : FenChart(group)
    , variables(group)
    , firstAxis(*this, "firstAxis", QString(), QString())
{
    setType(typeString);
    insertNested(variables, "variables");
}

FenChartMultiAxis::FenChartMultiAxis(FenChartMultiAxis const& other)
    : FenChart(other)
    , variables(other.variables)
    , unitSystem(other.unitSystem)
    , firstAxis(*this, other.firstAxis)
{
    insertNested(variables, "variables");
}

FenChartMultiAxis::~FenChartMultiAxis() = default;

void FenChartMultiAxis::onItemRename(FenProperties const&, QString const& oldName, QString const& newName)
{
    fen::followRename(firstAxis, oldName, newName);
}
