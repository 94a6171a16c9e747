#include "picking/hits/VisHitQualifiers.h"

#include <utility>

FenVisHitDataPointQualifier::FenVisHitDataPointQualifier(quint32 dataPointIdx_,
                                                         boost::shared_ptr<IQualifier> inner_)
    : dataPointIdx(dataPointIdx_)
    , inner(std::move(inner_))
{
}
FenVisHitDataPointQualifier::~FenVisHitDataPointQualifier() = default;
QString FenVisHitDataPointQualifier::toString() const
{
    return QStringLiteral("dataPointIdx(%1)").arg(dataPointIdx);
}

FenVisHitVector1Qualifier::FenVisHitVector1Qualifier(double value_)
    : value(value_)
{
}
FenVisHitVector1Qualifier::~FenVisHitVector1Qualifier() = default;
QString FenVisHitVector1Qualifier::toString() const { return QStringLiteral("vector1(%1)").arg(value); }

FenVisHitVector2Qualifier::FenVisHitVector2Qualifier(double x_, double y_)
    : x(x_)
    , y(y_)
{
}
FenVisHitVector2Qualifier::~FenVisHitVector2Qualifier() = default;
QString FenVisHitVector2Qualifier::toString() const { return QStringLiteral("vector2(%1,%2)").arg(x).arg(y); }

FenVisHitVector3Qualifier::FenVisHitVector3Qualifier(double x_, double y_, double z_)
    : x(x_)
    , y(y_)
    , z(z_)
{
}
FenVisHitVector3Qualifier::~FenVisHitVector3Qualifier() = default;
QString FenVisHitVector3Qualifier::toString() const
{
    return QStringLiteral("vector3(%1,%2,%3)").arg(x).arg(y).arg(z);
}

FenVisHitNameQualifier::FenVisHitNameQualifier(QString const& name_)
    : name(name_)
{
}
FenVisHitNameQualifier::~FenVisHitNameQualifier() = default;
QString FenVisHitNameQualifier::toString() const { return QStringLiteral("name(%1)").arg(name); }

FenVisHitRangeMinQualifier::FenVisHitRangeMinQualifier(double value_)
    : value(value_)
{
}
FenVisHitRangeMinQualifier::~FenVisHitRangeMinQualifier() = default;
QString FenVisHitRangeMinQualifier::toString() const
{
    return QStringLiteral("filterRangeMin(%1)").arg(value);
}

FenVisHitRangeMaxQualifier::FenVisHitRangeMaxQualifier(double value_)
    : value(value_)
{
}
FenVisHitRangeMaxQualifier::~FenVisHitRangeMaxQualifier() = default;
QString FenVisHitRangeMaxQualifier::toString() const
{
    return QStringLiteral("filterRangeMax(%1)").arg(value);
}

FenVisHitLabelQualifier::FenVisHitLabelQualifier(QString const& label_)
    : label(label_)
{
}
FenVisHitLabelQualifier::~FenVisHitLabelQualifier() = default;
QString FenVisHitLabelQualifier::toString() const { return QStringLiteral("label(%1)").arg(label); }

FenVisHitMoveQualifier::FenVisHitMoveQualifier() = default;
FenVisHitMoveQualifier::~FenVisHitMoveQualifier() = default;
QString FenVisHitMoveQualifier::toString() const { return QStringLiteral("move()"); }

FenVisHitResizeQualifier::FenVisHitResizeQualifier(ResizeArea area_)
    : area(area_)
{
}
FenVisHitResizeQualifier::~FenVisHitResizeQualifier() = default;
QString FenVisHitResizeQualifier::toString() const { return QStringLiteral("resize()"); }
