#pragma once

#include "../logging/Export.h"

#include <string>

namespace Kes::Math {

/// How numbers are printed in labels and tooltips; the same in every locale.
class FENVIS_EXPORT NumberFormat {
public:
    /// @param format        'g' (shortest of the other two), 'f' (fixed), 'e' (exponent), or 'G', 'F', 'E'
    /// for
    ///                      capital letters; anything else is 'g'
    /// @param decimalPoint  stands between whole and fraction; 0 is '.'
    /// @param precision     'g': significant digits; 'f', 'e': digits after the point. Kept within 0..99,
    ///                      negative is 6
    NumberFormat(char format, char decimalPoint, int precision);
    /// 'g', '.', 6.
    NumberFormat() = default;

    char format() const { return _format; }
    char decimalPoint() const { return _decimalPoint; }
    int precision() const { return _precision; }

    /// The number as text; never "-0". Not a number is "nan", infinities are "inf" and "-inf".
    std::string format(double value) const;

    bool operator==(NumberFormat const&) const = default;

private:
    char _format = 'g';
    char _decimalPoint = '.';
    int _precision = 6;
};

/// The shortest text that reads back as exactly the same number; '.' is the decimal point.
FENVIS_EXPORT std::string shortestText(double value);
FENVIS_EXPORT std::string shortestText(float value);

} // namespace Kes::Math
