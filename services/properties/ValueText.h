#pragma once

#include "../logging/Export.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

namespace Kes::Math {
class Matrix;
class Vector2;
class Vector3;
} // namespace Kes::Math

/// Property values as texts and back; every value is read back exactly, colours with 8 bits per component.
///
/// Numbers are the shortest text that reads as the same number ("0.1",
/// "250000", "1e+20", "nan", "inf"), whatever the locale. bool is "true" or
/// "false", a colour "#aarrggbb" or empty when invalid, vectors and matrices are
/// blank-separated (matrices column by column), lists are JSON arrays (numbers
/// that JSON lacks are quoted: ["nan"]).
namespace fen {

FENVIS_EXPORT QString toText(bool value);
FENVIS_EXPORT QString toText(int value);
FENVIS_EXPORT QString toText(unsigned value);
FENVIS_EXPORT QString toText(float value);
FENVIS_EXPORT QString toText(double value);
FENVIS_EXPORT QString toText(QColor const& value);
FENVIS_EXPORT QString toText(Kes::Math::Vector2 const& value);
FENVIS_EXPORT QString toText(Kes::Math::Vector3 const& value);
FENVIS_EXPORT QString toText(Kes::Math::Matrix const& value);
FENVIS_EXPORT QString toText(QStringList const& value);
FENVIS_EXPORT QString toText(QList<QColor> const& value);
FENVIS_EXPORT QString toText(std::vector<double> const& value);
inline QString toText(QString const& value) { return value; }

/// A value as it reads back from its text, that is what a property answers once it was set.
template <class T>
T const& asReadBack(T const& value)
{
    return value;
}
FENVIS_EXPORT QColor asReadBack(QColor const& color);
FENVIS_EXPORT QList<QColor> asReadBack(QList<QColor> const& colors);

/// Reads a text; blanks around it do not matter.
///
/// Besides what `toText` writes: "1" and "0" for bool, every name that QColor
/// knows, and, behind numbers and vectors, a blank and a unit ("2.5 mm"). An
/// empty text is the invalid colour or the empty list.
/// @return false, with `value` as it was, when the text is of another kind
FENVIS_EXPORT bool fromText(QString const& text, bool& value);
FENVIS_EXPORT bool fromText(QString const& text, int& value);
FENVIS_EXPORT bool fromText(QString const& text, unsigned& value);
FENVIS_EXPORT bool fromText(QString const& text, float& value);
FENVIS_EXPORT bool fromText(QString const& text, double& value);
FENVIS_EXPORT bool fromText(QString const& text, QColor& value);
FENVIS_EXPORT bool fromText(QString const& text, Kes::Math::Vector2& value);
FENVIS_EXPORT bool fromText(QString const& text, Kes::Math::Vector3& value);
FENVIS_EXPORT bool fromText(QString const& text, Kes::Math::Matrix& value);
FENVIS_EXPORT bool fromText(QString const& text, QStringList& value);
FENVIS_EXPORT bool fromText(QString const& text, QList<QColor>& value);
FENVIS_EXPORT bool fromText(QString const& text, std::vector<double>& value);
FENVIS_EXPORT bool fromText(QString const& text, std::vector<int>& value);
FENVIS_EXPORT bool fromText(QString const& text, std::vector<bool>& value);
inline bool fromText(QString const& text, QString& value)
{
    value = text;
    return true;
}

} // namespace fen
