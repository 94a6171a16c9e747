#pragma once

#include "host/table/DataTable.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

struct FenChartOptions;

namespace fen {

/// Columns of a table that chart options name.
struct ChartSelection {
    typedef FenDataTable::Column Column;

    Column const* x = nullptr; ///< null: row number
    Column const* group = nullptr; ///< null: no groups
    std::vector<Column const*> left;
    std::vector<Column const*> right;
};

/// Finds the columns and looks whether they fit.
/// @param selection  points into `table` afterwards
/// @return empty, or what is wrong
QString selectColumns(FenDataTable const& table, FenChartOptions const& options, ChartSelection& selection);

/// The column of that name; null, with `error` set unless it says something already, when there is none.
FenDataTable::Column const* findColumn(FenDataTable const& table, QString const& name, QString& error);
/// Takes lists apart at commas, but for columns whose names have commas.
QStringList singleNames(FenDataTable const& table, QStringList const& lists);

/// Row numbers of one group; null: all rows.
typedef FenTableRows::Numbers Rows;

/// A group of rows for each text of a column, one more for the rows without any.
struct RowGroups {
    QStringList names;
    std::vector<Rows> rows;
};

RowGroups groupRows(FenDataTable::Column const& column);

/// One variable to be.
struct ChartSeries {
    QString name;
    FenDataTable::Column const* column;
    bool right; ///< on the right axis
    Rows rows;
};

/// Column by column, and group by group within a column.
std::vector<ChartSeries> chartSeries(ChartSelection const& selection, RowGroups const& groups);

} // namespace fen
