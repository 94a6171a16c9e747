#pragma once

#include "../../services/logging/Export.h"
#include "ReadOptions.h"
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
        Date, ///< seconds since 1970-01-01 of the clock that `zone` names
        Time, ///< seconds since midnight
        Text ///< index into `categories`
    };
    struct Column {
        QString name; ///< without a unit
        Kind kind = Kind::Number;
        /// NaN where a value is missing
        std::shared_ptr<std::vector<double> const> values;
        /// The different texts in order of first appearance; empty unless of kind Text.
        QStringList categories;
        QString header = {}; ///< the name as the file has it, "speed [rpm]"; empty: `name`
        QString unit = {}; ///< from the name, the row below it, or beside every number
        QString zone = {}; ///< "UTC", "UTC+02:00"; empty: dates that name none
        bool hasTime = false; ///< dates with a time of the day
    };

    /// Reads a CSV file: header row, then data.
    ///
    /// A column is one of numbers, dates, times of the day or else of texts; empty fields and "NA",
    /// "N/A", "NaN", "null" and "-" are missing values. A few fields that cannot be read so are missing
    /// values as well, and `notes` names them. Separator, decimal mark, order of day and month, lines
    /// above the table and a row of units are found out unless `options` tell. Short rows end in missing
    /// values. A first row without any name is data: the columns are named "column 1" ... then. A name
    /// that occurs again gets the suffix ".2", ".3" ...
    /// @param error  set to "file:line: message" on failure
    /// @return false when the file cannot be read or is no table; `table` is then unchanged
    static bool read(QString const& path, FenDataTable& table, QString& error,
                     FenReadOptions const& options = {});
    /// The same from memory.
    /// @param name  stands for the file in error messages
    static bool parse(std::string_view text, QString const& name, FenDataTable& table, QString& error,
                      FenReadOptions const& options = {});

    /// What was left out or is not sure, each "file:line: message" in plain words.
    QStringList const& notes() const { return _notes; }

    /// What the table is known by.
    std::shared_ptr<FenTableId const> const& id() const { return _id; }
    std::size_t rows() const { return _rows; }
    std::size_t columns() const { return _columns.size(); }
    Column const& column(std::size_t index) const { return _columns[index]; }
    /// Index of a column by its name or the header of the file; -1 when there is none.
    int find(QString const& name) const;
    QStringList names() const;

    /// Appends a column of numbers or dates; false when it has another length than those
    /// before it or its name is taken.
    bool append(QString const& name, Kind kind, std::vector<double> values);

private:
    std::shared_ptr<FenTableId const> _id = std::make_shared<FenTableId>();
    std::size_t _rows = 0;
    std::vector<Column> _columns;
    QStringList _notes;
};
