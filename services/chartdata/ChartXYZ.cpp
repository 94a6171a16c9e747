#include "services/chartdata/ChartXYZ.h"

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

void FenChartXYZ::insertChildren()
{
    insertNested(variables, "variables");
    insertNested(xAxes, "xAxes");
    insertNested(yAxes, "yAxes");
    insertNested(zAxes, "zAxes");
}
