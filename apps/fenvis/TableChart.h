#pragma once

#include "apps/fenvis/Drawing.h"

#include "host/table/ChartBuilder.h"
#include "host/table/ReadOptions.h"

#include <optional>

class FenDataTable;

namespace command {

struct Call;
struct Command;

/// What `chart` and `pick` have in common: a CSV file and how it is shown.
class TableChart {
public:
    static QList<QCommandLineOption> options();

    /// Reads options, file and canvas, in this order.
    /// @param parser  has parsed the command line
    /// @return empty, or the exit status after something went wrong (said on standard error)
    std::optional<int> prepare(Call const& call, Command const& self, QCommandLineParser const& parser);
    /// Adds the chart to a scene.
    std::optional<int> build(FenVisScene& scene) const;
    /// Prints the rows that pass the filters of the scene's chart; false when it has none.
    bool printPassingRows(FenVisScene& scene) const;

    PictureOptions picture;
    std::unique_ptr<Canvas> canvas; ///< after `prepare`

    TableChart();
    ~TableChart();

private:
    QString _file;
    FenChartOptions _chart;
    FenReadOptions _reading;
    std::unique_ptr<FenDataTable> _table;
};

} // namespace command
