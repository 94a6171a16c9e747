#include "services/chartdata/ChartMultiAxis.h"

#include "services/properties/SiblingName.h"

QString const FenChartMultiAxis::typeString("chart.multiAxis");

FenChartMultiAxis::FenChartMultiAxis(FenModifiedGroup& group)
    : FenChart(group)
    , variables(group)
    , firstAxis(*this, "firstAxis", QString(), QString())
    , itemColors(*this, "itemColors", QList<QColor>(), QString())
    , itemLabels(*this, "itemLabels", QStringList(), QString())
    , fillMode(*this, "fillMode", fillNone, QString())
    , axisOrder(*this, "axisOrder", QStringList(), QString())
    , invertedAxes(*this, "invertedAxes", QStringList(), QString())
    , logarithmicAxes(*this, "logarithmicAxes", QStringList(), QString())
    , dateAxes(*this, "dateAxes", QStringList(), QString())
    , categoryAxes(*this, "categoryAxes", QStringList(), QString())
{
    setType(typeString);
    insertNested(variables, "variables");
}

FenChartMultiAxis::FenChartMultiAxis(FenChartMultiAxis const& other)
    : FenChart(other)
    , variables(other.variables)
    , unitSystem(other.unitSystem)
    , firstAxis(*this, other.firstAxis)
    , itemColors(*this, other.itemColors)
    , itemLabels(*this, other.itemLabels)
    , fillMode(*this, other.fillMode)
    , axisOrder(*this, other.axisOrder)
    , invertedAxes(*this, other.invertedAxes)
    , logarithmicAxes(*this, other.logarithmicAxes)
    , dateAxes(*this, other.dateAxes)
    , categoryAxes(*this, other.categoryAxes)
{
    insertNested(variables, "variables");
}

FenChartMultiAxis::~FenChartMultiAxis() = default;

void FenChartMultiAxis::onItemRename(FenProperties const&, QString const& oldName, QString const& newName)
{
    fen::followRename(firstAxis, oldName, newName);
    for (auto* const names : {&axisOrder, &invertedAxes, &logarithmicAxes, &dateAxes, &categoryAxes})
        fen::followRename(*names, oldName, newName);
}
