#include "services/chartdata/Chart2D.h"

QString const FenChart2D::typeString("chart.2d");

FenChart2D::FenChart2D(FenModifiedGroup& group)
    : FenChartXYZ(group, typeString)
{
}

FenChart2D::FenChart2D(FenChart2D const& other) = default;

FenChart2D::~FenChart2D() = default;
