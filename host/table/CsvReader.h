#pragma once

#include "../../services/logging/Export.h"

#include <QString>

#include <cstddef>
#include <string_view>
#include <vector>

namespace fen {

/// Receives the rows of a CSV text.
class FENVIS_EXPORT ICsvRows {
public:
    /// One row.
    /// @param fields  without quotes and surrounding blanks; valid during the call only
    /// @param line    line of the file on which the row begins, from 1
    /// @return empty to go on; a message ends the reading and becomes its error
    virtual QString row(std::vector<std::string_view> const& fields, std::size_t line) = 0;

protected:
    ~ICsvRows() = default;
};

/// Splits a CSV text (RFC 4180; LF, CRLF or CR) into rows. Blank lines are left out.
/// @param text  UTF-8; a byte order mark is skipped
/// @return empty, or the first error as "line: message". Errors are invalid UTF-8, control
///     characters (binary files), stray or unclosed quotes, fields above the limit, and what
///     `rows` refused.
/// @param firstLine  line of the file on which `text` begins
FENVIS_EXPORT QString readCsv(std::string_view text, char separator, ICsvRows& rows,
                              std::size_t firstLine = 1);

} // namespace fen
