#include "services/chartdata/Chart3D.h"

QString const FenChart3D::typeString("chart.3d");

FenChart3D::FenChart3D(FenModifiedGroup& group)
    : FenChartXYZ(group, typeString)
{
}

FenChart3D::FenChart3D(FenChart3D const& other) = default;

FenChart3D::~FenChart3D() = default;
