#include "services/chartdata/AxisValueText.h"

#include <algorithm>
#include <cmath>
#include <string>

using Kes::Math::NumberFormat;

namespace fen {

namespace {

/// Parts of an axis that are told apart: finer than the pixels of any picture.
constexpr double partsOfAxis = 1e5;
/// Digits of a number that somebody has written, not of one that came out of a division.
constexpr int mostOwnDigits = 12;
constexpr int mostDigits = 17; // of a double

/// Exponent of the first digit.
int magnitude(double value) { return int(std::floor(std::log10(std::abs(value)))); }

int significantDigits(std::string const& text)
{
    std::string digits;
    for (char const c : text.substr(0, text.find('e')))
        if (c >= '0' && c <= '9') digits += c;
    std::size_t const first = digits.find_first_not_of('0'), last = digits.find_last_not_of('0');
    return first == std::string::npos ? 1 : int(last - first) + 1;
}

} // namespace

QString axisValueText(double value, double min, double max, NumberFormat const& format)
{
    bool const general = format.format() == 'g' || format.format() == 'G';
    if (!general || !std::isfinite(value) || value == 0) return QString::fromStdString(format.format(value));
    int digits = format.precision();
    int const own = significantDigits(Kes::Math::shortestText(value));
    double const step = max / partsOfAxis - min / partsOfAxis;
    if (own <= mostOwnDigits)
        digits = std::max(digits, own);
    else if (std::isfinite(step) && step > 0)
        digits = std::clamp(magnitude(value) - magnitude(step) + 1, digits, mostDigits);
    return QString::fromStdString(NumberFormat(format.format(), format.decimalPoint(), digits).format(value));
}

} // namespace fen
