#pragma once

#include "../../services/logging/Export.h"
#include "TableRows.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

/// A table of named columns, all of the same length, as read from a CSV file.
///
/// Values are doubles whatever the kind of a column, shared and immutable, so
/// that charts use them without copying. A copy of a table shares its columns.
class FENVIS_EXPORT FenDataTable {
public:
    enum class Kind {
        Number, ///< plain numbers
        Date, ///< seconds since 1970-01-01 UTC
        Text ///< index into `categories`
    };
    struct Column {
        QString name;
        Kind kind = Kind::Number;
        /// NaN where a value is missing
        std::shared_ptr<std::vector<double> const> values;
        /// The different texts in order of first appearance; empty unless of kind Text.
        QStringList categories;
    };

    /// Reads a CSV file: header row, then data; separator ',', ';' or tab.
    ///
    /// A column is one of numbers, of ISO dates or else of texts; empty fields and "NA",
    /// "N/A", "NaN" and "null" are missing values. With another separator than ',' numbers
    /// may have decimal commas. A first row of nothing but numbers is data: the columns are
    /// named "column 1" ... then. A name that occurs again gets the suffix ".2", ".3" ...
    /// @param error  set to "file:line: message" on failure
    /// @return false when the file cannot be read or is no table; `table` is then unchanged
    static bool read(QString const& path, FenDataTable& table, QString& error);
    /// The same from memory.
    /// @param name  stands for the file in error messages
    static bool parse(std::string_view text, QString const& name, FenDataTable& table, QString& error);

    /// What the table is known by.
    std::shared_ptr<FenTableId const> const& id() const { return _id; }
    std::size_t rows() const { return _rows; }
    std::size_t columns() const { return _columns.size(); }
    Column const& column(std::size_t index) const { return _columns[index]; }
    /// Index of a column; -1 when there is none of that name.
    int find(QString const& name) const;
    QStringList names() const;

    /// Appends a column of numbers or dates; false when it has another length than those
    /// before it or its name is taken.
    bool append(QString const& name, Kind kind, std::vector<double> values);

private:
    std::shared_ptr<FenTableId const> _id = std::make_shared<FenTableId>();
    std::size_t _rows = 0;
    std::vector<Column> _columns;
};
