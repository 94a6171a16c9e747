#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <vector>

/// What somebody says about a CSV file; all that is left open is found out from the file.
struct FenReadOptions {
    /// What a column may be read as.
    enum class As { Number, Date, Category };

    std::optional<char> delimiter; ///< between fields; empty: ',', ';', tab or '|', whichever fits
    std::optional<char> decimal; ///< '.' or ','; empty: whichever the numbers of a column fit
    QString dateFormat; ///< "dd.MM.yyyy HH:mm"; empty: as in `fen::DateOrder`, told apart by the data
    std::optional<int> skipRows; ///< lines before the header; empty: lines that cannot belong to the table
    std::optional<bool> unitsRow; ///< whether units stand below the header; empty: when they look so
    QString comment = QStringLiteral("#"); ///< lines that begin with it are left out; empty: none are
    std::vector<std::pair<QString, As>> columns; ///< by name, "" for the first; others are found out
};
