#include "services/math/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

namespace Kes::Math {

namespace {

constexpr int defaultPrecision = 6;
constexpr int maxPrecision = 99;
// 309 digits before the point of the largest double, the point, the sign and the precision.
constexpr size_t longestText = 309 + 2 + maxPrecision;

bool isZero(std::string_view digits) { return digits.find_first_not_of("-0.") == std::string_view::npos; }

std::chars_format notation(char format)
{
    switch (format) {
    case 'f':
    case 'F':
        return std::chars_format::fixed;
    case 'e':
    case 'E':
        return std::chars_format::scientific;
    default:
        return std::chars_format::general;
    }
}

char toUpper(char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; }

template <class Float>
std::string shortest(Float value)
{
    std::array<char, 64> text;
    auto const end = std::to_chars(text.data(), text.data() + text.size(), value);
    return std::string(text.data(), end.ptr);
}

} // namespace

NumberFormat::NumberFormat(char format, char decimalPoint, int precision)
    : _format(std::string_view("gfeGFE").find(format) == std::string_view::npos ? 'g' : format)
    , _decimalPoint(decimalPoint == '\0' ? '.' : decimalPoint)
    , _precision(precision < 0 ? defaultPrecision : std::min(precision, maxPrecision))
{
}

std::string NumberFormat::format(double value) const
{
    if (std::isnan(value)) value = std::fabs(value); // the sign of a NaN says nothing
    std::array<char, longestText> buffer;
    auto const end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, notation(_format), _precision);
    std::string text(buffer.data(), end.ptr);
    if (text.front() == '-' && isZero(std::string_view(text).substr(0, text.find('e')))) text.erase(0, 1);
    std::replace(text.begin(), text.end(), '.', _decimalPoint);
    bool const capitals = _format == 'G' || _format == 'F' || _format == 'E';
    if (capitals) std::transform(text.begin(), text.end(), text.begin(), toUpper);
    return text;
}

std::string shortestText(double value) { return shortest(value); }

std::string shortestText(float value) { return shortest(value); }

} // namespace Kes::Math
