#pragma once

#include "../../services/logging/Export.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>

class QCommandLineParser;
struct FenChartOptions;

namespace fen {

/// The command line options that describe a chart of a table, with their help texts.
FENVIS_EXPORT QList<QCommandLineOption> chartArguments();

/// Reads them.
/// @param parser  has parsed a command line with `chartArguments` among its options
/// @param error   set to what is wrong on failure
/// @return false for a word that no option knows and a number that is none
FENVIS_EXPORT bool readChartArguments(QCommandLineParser const& parser, FenChartOptions& options,
                                      QString& error);

} // namespace fen
