#pragma once

#include "../../services/logging/Export.h"
#include "ReadOptions.h"

#include <QCommandLineOption>
#include <QList>

class QCommandLineParser;

namespace fen {

/// The command's options for reading a CSV file: --delimiter, --decimal, --date-format, --skip-rows,
/// --units-row, --comment and --x-type.
FENVIS_EXPORT QList<QCommandLineOption> readArguments();
/// @param x      column that --x-type speaks of; empty: the first
/// @param error  set to what is wrong, on failure
FENVIS_EXPORT bool readReadArguments(QCommandLineParser const& parser, QString const& x,
                                     FenReadOptions& options, QString& error);

} // namespace fen
