#pragma once

#include "host/table/DataTable.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace fen {

/// Makes the columns of a table out of a CSV text.
/// @param notes  gets "line: message" for what was left out or is not sure
/// @return empty, or an error as "line: message"
QString readTable(std::string_view text, FenReadOptions const& options, std::size_t& rows,
                  std::vector<FenDataTable::Column>& columns, QStringList& notes);

} // namespace fen
