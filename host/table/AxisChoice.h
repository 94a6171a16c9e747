#pragma once

#include "../../services/logging/Export.h"
#include "DataTable.h"

namespace fen {

/// What a chart of a table has along x when nobody says, and why.
struct AxisChoice {
    FenDataTable::Column const* column = nullptr; ///< null: row numbers
    QString reason; ///< "strictly rising", "dates"; for row numbers too
};

/// The first column when it holds dates, times, rising numbers, numbers that are named like a time or a
/// frequency, or a text of its own for nearly every row; else the first column of dates; else row numbers.
FENVIS_EXPORT AxisChoice chooseXAxis(FenDataTable const& table);

} // namespace fen
