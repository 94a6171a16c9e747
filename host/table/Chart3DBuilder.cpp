#include "host/output/MessageText.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"
#include "host/table/ChartKinds.h"
#include "host/table/ChartSelection.h"
#include "host/table/DataTable.h"

#include "charts/chart3d/VisChart3D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/ColorSchemes.h"

namespace {

typedef FenDataTable::Column Column;
typedef FenDataTable::Kind Kind;
typedef Kes::Math::Vector3 Vector3;

constexpr unsigned most = 12; // variables for which a legend has room

/// The columns along x, y and z, and the one that makes groups.
struct Columns {
    Column const* along[3] = {nullptr, nullptr, nullptr};
    Column const* group = nullptr;
};

/// Columns of numbers or dates that the options name, else the first three of numbers.
QString find(fen::ChartOrder const& order, Columns& columns)
{
    FenChartOptions const& options = order.options;
    QString error;
    QStringList const y = fen::singleNames(order.table, options.y);
    if (y.size() > 1) return QStringLiteral("a 3D chart has one column along y");
    QString const names[] = {options.x, y.value(0), options.z};
    std::size_t next = 0; // column that may be taken where none is named
    for (std::size_t i = 0; i < 3; ++i) {
        if (!names[i].isEmpty()) {
            columns.along[i] = fen::findColumn(order.table, names[i], error);
            if (!error.isEmpty()) return error;
            if (columns.along[i]->kind == Kind::Text)
                return QStringLiteral("column %1 holds texts, not numbers").arg(fen::quotedName(names[i]));
            continue;
        }
        while (next < order.table.columns() && order.table.column(next).kind != Kind::Number) ++next;
        if (next == order.table.columns())
            return QStringLiteral(
                "a 3D chart needs three columns of numbers; name them with --x, --y and --z");
        columns.along[i] = &order.table.column(next++);
    }
    if (options.group.isEmpty()) return {};
    columns.group = fen::findColumn(order.table, options.group, error);
    if (error.isEmpty() && columns.group->kind != Kind::Text)
        error = QStringLiteral("column %1 holds no texts; groups are made of texts")
                    .arg(fen::quotedName(options.group));
    return error;
}

void makeAxis(FenChartAxisPair& pair, char const* name, Column const& column)
{
    auto* const axis = dynamic_cast<FenChartAxisContinuous*>(
        pair.setFirst(QString::fromLatin1(name), FenChartAxisContinuous::typeString));
    if (!axis) return;
    axis->title.set(column.name);
    axis->unit.set(column.unit);
    if (column.kind == Kind::Date) axis->format.set(QStringLiteral("date"));
}

void setData(FenChartVariable& variable, Columns const& columns, fen::Rows const& rows)
{
    for (int i = 0; i < 3; ++i) {
        std::vector<double> const& all = *columns.along[i]->values;
        std::vector<double> chosen;
        if (rows)
            for (auto const row : *rows) chosen.push_back(all[row]);
        variable.setData(Vector3::Comp(i), rows ? std::move(chosen) : all);
    }
}

/// What the options ask for; colours come from the theme.
void setStyle(FenChartVariable& variable, FenChartOptions const& options)
{
    bool const surface = options.style == FenChartOptions::surfaceStyle();
    bool const noLine = options.style == FenChart::styleNone;
    bool const bars = options.style == FenChart::styleBar;
    variable.style.set(surface || noLine ? FenChart::styleLine : options.style);
    variable.surface.set(surface);
    variable.lineMode.set(noLine || bars ? FenChart::lineNone : FenChart::lineSolid);
    variable.fillMode.set(options.fill.value_or(surface    ? FenChart::fillGradient
                                                    : bars ? FenChart::fillSolid
                                                           : FenChart::fillNone));
    // Symbols with a list of colours are coloured by their height.
    variable.colors.set(surface ? fen::colorScheme(QStringLiteral("viridis")) : QList<QColor>());
    variable.symbol.set(options.symbol.value_or(noLine ? FenChart::symbolEllipse : FenChart::symbolNone));
    if (options.lineWidth) variable.lineWidth.set(float(*options.lineWidth));
    if (options.symbolSize) variable.symbolSize.set(*options.symbolSize);
}

} // namespace

FenVisChart* fen::buildChart3D(ChartOrder const& order, QString& error)
{
    Columns columns;
    error = find(order, columns);
    if (!error.isEmpty()) return nullptr;
    RowGroups groups;
    if (columns.group) groups = groupRows(*columns.group);
    if (!variablesFit(groups.rows.size(), error)) return nullptr;
    FenVisChart3D& node = order.scene.add<FenVisChart3D>(QStringLiteral("chart"));
    FenChart3D& chart = node.chart;
    makeAxis(chart.xAxes, "x", *columns.along[0]);
    makeAxis(chart.yAxes, "y", *columns.along[1]);
    makeAxis(chart.zAxes, "z", *columns.along[2]);
    auto const add = [&](QString const& name, Rows const& rows) {
        FenChartVariable& variable = chart.variables.append(name);
        setData(variable, columns, rows);
        order.scene.tableRows().set(variable, order.table.id(), rows);
    };
    if (!columns.group) add(columns.along[2]->name, nullptr);
    for (qsizetype i = 0; i < qsizetype(groups.rows.size()); ++i)
        add(groups.names[i], groups.rows[std::size_t(i)]);
    finishChart(order, node, chart.variables.size() > 1 && chart.variables.size() <= most);
    for (unsigned i = 0; i < chart.variables.size(); ++i) setStyle(chart.variables[i], order.options);
    return &node;
}
