#pragma once

#include "../../services/logging/Export.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

class FenDataTable;
class FenVisChart;
class FenVisScene;
struct FenTheme;

/// What a chart of a table shows and how; texts are those of the command's options. Which of them a
/// kind of chart takes `fenvis chart --help` tells; the others it leaves alone.
struct FENVIS_EXPORT FenChartOptions {
    typedef std::optional<std::pair<double, double>> Range;

    QString kind = QStringLiteral("2d"); ///< of the chart
    QString x; ///< column, or "row" for row numbers; empty: as `fen::chooseXAxis` says
    /// Columns on the left axis, each text a name or several joined by commas; empty, and none on
    /// the right: every number column but x.
    QStringList y;
    QStringList y2; ///< columns on the right axis
    QString z; ///< column upwards; empty: the first with numbers that is not used
    /// Text column: one variable for each of its texts, in a spider one item with the means of its rows;
    /// empty: none
    QString group;
    QString colorBy; ///< column that the records of parallel coordinates are coloured by; empty: none
    QStringList filters; ///< "column=10..20" or "column=text": records outside are drawn pale
    QString label; ///< of a pie: column of the slices' names; empty: the first one of texts
    QString value; ///< of a pie: column that is summed up for each name; empty: rows are counted
    QString ring; ///< of a pie: column with a ring for each of its values; empty: one ring
    QString method = QStringLiteral("pearson"); ///< of a correlation: pearson, spearman
    QString order = QStringLiteral("file"); ///< of the variables of a correlation: file, cluster
    QString style = QStringLiteral("line"); ///< none, line, spline, step, bar, surface
    /// none, rect, ellipse, triangle ...; empty: none, but for a single row, which has no line
    std::optional<QString> symbol;
    std::optional<QString> fill; ///< none, solid, sparse, gradient; empty: solid for bars, else none
    QString lineStyle = QStringLiteral("solid"); ///< solid, dash, dot, dashDot
    std::optional<double> lineWidth; ///< [px] empty: the theme's
    std::optional<int> symbolSize; ///< [px] empty: the theme's
    std::optional<bool> smooth; ///< empty: unless the table is long
    bool logX = false;
    bool logY = false; ///< both y axes
    Range xRange; ///< [data] empty: automatic
    Range yRange; ///< [data] of the left axis
    Range y2Range; ///< [data] of the right axis
    QString title;
    std::optional<QString> xTitle; ///< empty: the column's name
    std::optional<QString> yTitle; ///< empty: the column's name when there is one
    std::optional<QString> y2Title;
    std::optional<QString> zTitle;
    std::optional<bool> legend; ///< empty: with 2 to 12 variables

    static QStringList styles();
    static QStringList symbols();
    static QStringList fills();
    static QStringList lineStyles();
    static QStringList methods();
    static QStringList orders();
};

namespace fen {

/// Adds a chart of a table to a scene.
/// @param error  set to a message when the options do not fit the table (unknown columns, a
///     column of the wrong kind, nothing to show); the scene is then unchanged
/// @param remarks  gets a line on what was chosen where the options say nothing; may be null
/// @return the chart; it belongs to the scene. Null on failure.
FENVIS_EXPORT FenVisChart* addChart(FenVisScene& scene, FenDataTable const& table,
                                    FenChartOptions const& options, FenTheme const& theme, QString& error,
                                    QStringList* remarks = nullptr);

} // namespace fen
