#pragma once

#include "../../services/logging/Export.h"

#include <optional>
#include <string_view>

namespace fen {

/// A number as a person or a spreadsheet writes it.
struct NumberText {
    double value = 0;
    std::string_view sign; ///< "%", "$", "EUR" ... as written beside the number; empty: none
};

/// Reads "12", "-1.5e3", "+2", "1,234.5", "1 234,5", "1'234", "(12.50)" for -12.5, "$ 5", "12 %".
///
/// Groups of digits may be parted by blanks or apostrophes, or by that of ',' and '.' which is not the
/// decimal mark; all groups but the first have three digits then.
/// @param decimal  '.' or ','
/// @return empty for anything else. Beyond the range of double the value is infinite or 0.
FENVIS_EXPORT std::optional<NumberText> readNumber(std::string_view text, char decimal);

} // namespace fen
