#include "axes/VisAxesXY.h"

QString const FenVisAxesXY::typeString = QStringLiteral("visualization.axesXY");

FenVisAxesXY::FenVisAxesXY(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
{
    rename(typeString);
    setType(typeString);
}

FenVisAxesXY::FenVisAxesXY(FenVisAxesXY const& other)
    : FenVisPassiveNode(other)
{
    rename(typeString);
    setType(typeString);
}

FenVisAxesXY::~FenVisAxesXY() = default;
