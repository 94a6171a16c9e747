#pragma once

#include "host/table/DataTable.h"

#include <QByteArray>
#include <QString>

#include <vector>

class FenVisChartPCP;
class FenVisScene;

namespace fen {

/// Records of a table from one value to another.
struct RecordFilter {
    FenDataTable::Column const* column = nullptr;
    double min = 0; ///< [data]
    double max = 0; ///< [data]
};

/// Reads "column=10..20", with numbers or ISO dates, either of which may be left out, or "column=text".
/// @return false with `error` set when it is none, or the table has no such column
bool readRecordFilter(FenDataTable const& table, QString const& text, RecordFilter& filter, QString& error);

/// The rows that pass as JSON: "total", "passing", and "rows" with number ("row", from 0) and values.
/// @param valid  one flag per row; rows without one do not pass
FENVIS_EXPORT QByteArray passingRows(FenDataTable const& table, std::vector<bool> const& valid);

} // namespace fen
