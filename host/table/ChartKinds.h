#pragma once

#include "services/logging/Export.h"

#include <QString>
#include <QStringList>

#include <vector>

class FenChart;
class FenChartAxis;
class FenChartAxisScale;
class FenDataTable;
class FenVisChart;
class FenVisScene;
class FenVisualization;
struct FenChartOptions;
struct FenTheme;

namespace fen {

/// A chart of a table that somebody asks for.
struct ChartOrder {
    FenVisScene& scene; ///< the chart is added to it
    FenDataTable const& table;
    FenChartOptions const& options;
    FenTheme const& theme;
    QStringList* remarks = nullptr; ///< gets what was chosen where the options say nothing; null: not asked
};

/// The axes of a chart whose ranges the user may choose, by the side where they are drawn.
struct ChartSides {
    struct Side {
        FenChartAxis* axis = nullptr; ///< null: none on this side
        FenChartAxisScale const* scale = nullptr; ///< as it is shown; null: what the axis says
    };
    Side bottom, top, left, right;

    /// The axes that there are.
    std::vector<FenChartAxis*> axes() const;
};

/// All that the host knows of one kind of chart; whatever else it wants to know it asks the node.
struct ChartKind {
    QString name; ///< word of the command's option --kind
    QString type; ///< type string of the node
    /// Options of the command that this kind takes, beside those of every kind.
    QStringList options;
    /// Gives a new node without which nothing would be drawn (axes); null: nothing is needed.
    void (*prepare)(FenVisualization& node);
    /// Adds a chart of a table. Null, with `error` set and nothing added, when they do not fit.
    FenVisChart* (*build)(ChartOrder const& order, QString& error);
    /// Axes that can be zoomed and moved at present; null: never any.
    ChartSides (*sides)(FenVisualization& node);
    /// Writes what a theme means for this kind beside title, axes and variables; null: nothing.
    void (*dress)(FenVisualization& node, FenTheme const& theme);
};

/// Every kind, the default first. The one place in the host that knows them.
FENVIS_EXPORT std::vector<ChartKind> const& chartKinds();
/// The kind of that name, or null.
FENVIS_EXPORT ChartKind const* chartKind(QString const& name);
/// The kind of a node, or null.
ChartKind const* chartKindOf(FenVisualization const& node);

/// The content of a chart node, its child "chart".
FenChart* contentOf(FenVisualization& node);

// === For those who build charts: each kind has a file of its own, <Kind>Builder.cpp

/// Looks whether a chart can show so many variables; `error` is set otherwise.
bool variablesFit(std::size_t count, QString& error);
/// Gives a chart that has all its variables title and theme, and adds a legend when the options ask
/// for one or say nothing and `legend` is true.
void finishChart(ChartOrder const& order, FenVisChart& node, bool legend);

FenVisChart* buildChart2D(ChartOrder const& order, QString& error);
FenVisChart* buildParallel(ChartOrder const& order, QString& error);
FenVisChart* buildSpider(ChartOrder const& order, QString& error);
FenVisChart* buildCorrelation(ChartOrder const& order, QString& error);
FenVisChart* buildPie(ChartOrder const& order, QString& error);
void dressPie(FenVisualization& node, FenTheme const& theme);
FenVisChart* buildChart3D(ChartOrder const& order, QString& error);

} // namespace fen
