#include "services/properties/Labels.h"

#include "services/math/NumberFormat.h"

#include <cmath>

namespace {

bool isFactor(double value) { return std::isfinite(value) && value != 0.0 && value != 1.0; }

} // namespace

QString fen::tidyExponent(double value)
{
    QString text = QString::fromStdString(Kes::Math::NumberFormat().format(value));
    qsizetype const exponent = text.indexOf(u'e') + 1;
    if (exponent == 0) return text;
    qsizetype digits = exponent;
    if (text[digits] == u'-') ++digits;
    qsizetype first = digits;
    while (first + 1 < text.size() && (text[first] == u'+' || text[first] == u'0')) ++first;
    return text.remove(digits, first - digits);
}

QString fen::toFactorLabel(double factor) { return isFactor(factor) ? tidyExponent(factor) : QString(); }

QString fen::toLogLabel(QString const& base, double factor)
{
    if (!isFactor(factor)) return QString();
    bool isNumber = false;
    double const number = base.toDouble(&isNumber);
    double const power = isNumber && number > 1.0 && factor > 0.0 ? std::log(factor) / std::log(number) : NAN;
    double const whole = std::round(power);
    double const tolerance = 1e-9;
    if (!(std::abs(power - whole) < tolerance)) return tidyExponent(factor);
    return (number == 10.0 ? QStringLiteral("1e") : base + u'^') + QString::number(int(whole));
}
