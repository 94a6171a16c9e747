#include "services/chartdata/ChartXYZ.h"

#include "services/properties/SiblingName.h"

using Kes::Math::Vector3;

FenChartXYZ::FenChartXYZ(FenModifiedGroup& group, QString const& type)
    : FenChart(group)
    , variables(group)
    , xAxes(group, Vector3::CompX)
    , yAxes(group, Vector3::CompY)
    , zAxes(group, Vector3::CompZ)
    , view3D(*this, "view3D", false, QString())
    , normalize(*this, "normalize", true, QString())
{
    setType(type);
    insertChildren();
}

FenChartXYZ::FenChartXYZ(FenChartXYZ const& other)
    : FenChart(other)
    , variables(other.variables)
    , xAxes(other.xAxes)
    , yAxes(other.yAxes)
    , zAxes(other.zAxes)
    , unitSystem(other.unitSystem)
    , view3D(*this, other.view3D)
    , normalize(*this, other.normalize)
{
    insertChildren();
}

FenChartXYZ::~FenChartXYZ() = default;

void FenChartXYZ::onItemRename(FenProperties const& list, QString const& oldName, QString const& newName)
{
    for (unsigned i = 0; i < variables.size(); ++i) {
        FenChartVariable& variable = variables[i];
        if (&list == &xAxes) fen::followRename(variable.xAxis, oldName, newName);
        if (&list == &yAxes) fen::followRename(variable.yAxis, oldName, newName);
        if (&list == &zAxes) fen::followRename(variable.zAxis, oldName, newName);
    }
}

void FenChartXYZ::insertChildren()
{
    insertNested(variables, "variables");
    insertNested(xAxes, "xAxes");
    insertNested(yAxes, "yAxes");
    insertNested(zAxes, "zAxes");
}
