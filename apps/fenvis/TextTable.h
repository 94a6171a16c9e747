#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace command {

/// Rows of equally many cells; the first row names the columns.
typedef std::vector<QStringList> TextTable;

/// The rows as lines with aligned columns, two blanks between them.
QString textTable(TextTable const& rows);

} // namespace command
