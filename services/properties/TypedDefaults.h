#pragma once

#include "../logging/Export.h"

#include <QColor>
#include <QList>
#include <QStringList>

#include <vector>

namespace Kes::Math {
class Matrix;
}

/// Empty values, for properties that have no default of their own.
extern FENVIS_EXPORT QColor const QColor0; ///< the invalid colour
extern FENVIS_EXPORT QList<QColor> const QColorList0;
extern FENVIS_EXPORT QStringList const QStringList0;
extern FENVIS_EXPORT std::vector<bool> const FenBoolList0;
extern FENVIS_EXPORT std::vector<double> const FenDoubleList0;
extern FENVIS_EXPORT std::vector<int> const FenIntList0;
extern FENVIS_EXPORT Kes::Math::Matrix const FenMatrix0; ///< the identity
