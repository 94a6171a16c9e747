#pragma once

#include "host/table/ReadOptions.h"

#include <QString>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fen {

/// Where the table stands in a CSV text.
struct CsvLayout {
    char separator = ',';
    std::size_t begin = 0; ///< [bytes] of the header, or of the first row
    std::size_t beginLine = 1; ///< its line, from 1
    std::string header; ///< names in a comment line above the first row; empty: the first row says
};

/// Finds the separator, and the first line of the table behind comments and lines of another width.
///
/// Looks at the first lines only, and at no more than they tell: the separator is the one that cuts most
/// of them into equally many fields.
CsvLayout findCsvLayout(std::string_view text, FenReadOptions const& options);

/// True when a name or a field below a name looks like a unit: "rpm", "m/s", "°C".
bool looksLikeUnit(QString const& text);
/// Takes a unit off a column's name: "speed [rpm]" gives "speed" and "rpm", "speed (rpm)" too.
/// @return the unit; empty, with `name` unchanged, when there is none
QString takeUnit(QString& name);

} // namespace fen
