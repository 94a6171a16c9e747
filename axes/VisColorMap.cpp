#include "axes/VisColorMap.h"

QString const FenVisColorMap::typeString = QStringLiteral("visualization.colorMap");

FenVisColorMap::FenVisColorMap(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , colorMap(*this, "colorMap", QString(), QString())
    , autoRange(*this, "autoRange", true, QString())
    , min(*this, "min", 0.0, QString())
    , max(*this, "max", 1.0, QString())
{
    rename(typeString);
    setType(typeString);
}

FenVisColorMap::FenVisColorMap(FenVisColorMap const& other)
    : FenVisPassiveNode(other)
    , colorMap(*this, other.colorMap)
    , autoRange(*this, other.autoRange)
    , min(*this, other.min)
    , max(*this, other.max)
{
}

FenVisColorMap::~FenVisColorMap() = default;

QColor FenVisColorMap::color(double) const { return Qt::black; }

QPixmap FenVisColorMap::pixmap(int, int) const { return QPixmap(); }
