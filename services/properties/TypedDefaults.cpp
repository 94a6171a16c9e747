#include "services/properties/TypedDefaults.h"

#include "services/math/Matrix.h"

QColor const QColor0;
QList<QColor> const QColorList0;
QStringList const QStringList0;
std::vector<bool> const FenBoolList0;
std::vector<double> const FenDoubleList0;
std::vector<int> const FenIntList0;
Kes::Math::Matrix const FenMatrix0;
