#include "host/output/MessageText.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"
#include "host/table/ChartKinds.h"
#include "host/table/ChartSelection.h"
#include "host/table/DataTable.h"

#include "charts/chart3d/VisChart3D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartColumn.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/ColorSchemes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

typedef FenDataTable::Kind Kind;
typedef FenDataTable::Column Column;
typedef Kes::Math::Vector3 Vector3;

constexpr std::size_t smoothRows = 20'000; // longer curves are drawn without smoothing, which is slow

/// The points of a chart and what its axes are called.
struct Points {
    std::array<FenChartColumn::Ptr, 3> columns;
    std::array<QString, 3> titles;
    std::array<bool, 3> dates{false, false, false};
};

/// The numbers that the columns behind the first are called by; empty when they are no numbers.
std::vector<double> headings(FenDataTable const& table)
{
    std::vector<double> numbers;
    for (std::size_t i = 1; i < table.columns(); ++i) {
        bool good = false;
        numbers.push_back(table.column(i).name.toDouble(&good));
        if (!good) return {};
    }
    return numbers;
}

/// A table of z whose first row and first column tell x and y, as points row by row.
/// @return false when the table is no such thing
bool readMatrix(FenDataTable const& table, Points& points)
{
    std::vector<double> const across = headings(table);
    bool const numbers = table.columns() > 2 && table.column(0).kind == Kind::Number
        && std::ranges::all_of(across, [](double value) { return std::isfinite(value); });
    if (across.empty() || !numbers) return false;
    std::array<std::vector<double>, 3> values;
    for (std::size_t row = 0; row < table.rows(); ++row)
        for (std::size_t i = 1; i < table.columns(); ++i) {
            if (table.column(i).kind != Kind::Number) return false;
            values[0].push_back(across[i - 1]);
            values[1].push_back((*table.column(0).values)[row]);
            values[2].push_back((*table.column(i).values)[row]);
        }
    for (std::size_t k = 0; k < 3; ++k) points.columns[k] = FenChartColumn::make(std::move(values[k]));
    points.titles = {QString(), table.column(0).name, QString()};
    return true;
}

/// Looks for the columns of x, y and z: those that were named, then the first others with numbers.
/// @return empty, or what is wrong
QString readColumns(fen::ChartOrder const& order, Points& points)
{
    FenDataTable const& table = order.table;
    std::array<Column const*, 3> found{};
    QString const names[] = {order.options.x, order.options.y.value(0), order.options.z};
    if (order.options.y.size() > 1 || (table.find(names[1]) < 0 && names[1].contains(QLatin1Char(','))))
        return QStringLiteral("a 3D chart has one column along y");
    for (std::size_t k = 0; k < 3; ++k) {
        if (names[k].isEmpty()) continue;
        int const index = table.find(names[k]);
        QString const shown = QLatin1Char('"') + fen::messageText(names[k], 80) + QLatin1Char('"');
        if (index < 0) return QStringLiteral("no column %1").arg(shown);
        found[k] = &table.column(std::size_t(index));
        if (found[k]->kind == Kind::Text)
            return QStringLiteral("column %1 holds texts, not numbers").arg(shown);
    }
    for (std::size_t i = 0; i < table.columns(); ++i) {
        Column const* const column = &table.column(i);
        bool const taken = std::ranges::find(found, column) != found.end();
        auto const open = std::ranges::find(found, nullptr);
        if (column->kind == Kind::Number && !taken && open != found.end()) *open = column;
    }
    for (std::size_t k = 0; k < 3; ++k) {
        if (!found[k]) return QStringLiteral("a 3D chart needs three columns of numbers");
        points.columns[k] = FenChartColumn::share(found[k]->values);
        points.titles[k] = found[k]->name;
        points.dates[k] = found[k]->kind == Kind::Date;
    }
    return {};
}

std::vector<double> valuesAt(FenChartColumn const& column, fen::Rows const& rows)
{
    std::vector<double> chosen;
    for (std::size_t const row : *rows) chosen.push_back(column[row]);
    return chosen;
}

void styleVariable(FenChartVariable& variable, FenChartOptions const& options, std::size_t rows, bool single)
{
    bool const bars = options.style == FenChart::styleBar,
               surface = options.style == QLatin1String("surface");
    bool const line = !bars && !surface && options.style != FenChart::styleNone;
    variable.style.set(line || bars ? options.style : FenChart::styleLine);
    variable.surface.set(surface);
    // One variable shows its values in colours; of several each has its own.
    QString const byValue = single && !line ? FenChart::fillGradient : FenChart::fillNone;
    variable.fillMode.set(options.fill.value_or(
        surface || bars ? (single && surface ? byValue : FenChart::fillSolid) : byValue));
    variable.lineMode.set(line || (bars && rows < 2000) ? FenChart::lineSolid : FenChart::lineNone);
    bool const marks = options.style == FenChart::styleNone;
    variable.symbol.set(options.symbol.value_or(marks ? FenChart::symbolEllipse : FenChart::symbolNone));
    variable.lineStyle.set(options.lineStyle);
    variable.lineSmooth.set(options.smooth.value_or(line && rows <= smoothRows));
}

/// Whether every variable has one value there: lines then lie in planes.
bool constant(FenChart3D& chart, Vector3::Comp comp)
{
    for (unsigned i = 0; i < chart.variables.size(); ++i) {
        FenChartColumn::Ptr const& column = chart.variables[i].sourceColumn(comp);
        if (!column || !(column->min() == column->max())) return false;
    }
    return chart.variables.size() > 1;
}

void makeAxes(FenChart3D& chart, Points const& points, FenChartOptions const& options)
{
    FenChartAxisPair* const pairs[] = {&chart.xAxes, &chart.yAxes, &chart.zAxes};
    char const* const names[] = {"x", "y", "z"};
    std::optional<QString> const titles[] = {options.xTitle, options.yTitle, options.zTitle};
    for (std::size_t k = 0; k < 3; ++k) {
        auto* const axis = static_cast<FenChartAxisContinuous*>(
            pairs[k]->setFirst(QString::fromLatin1(names[k]), FenChartAxisContinuous::typeString));
        axis->title.set(titles[k].value_or(points.titles[k]));
        if (points.dates[k]) axis->format.set(QStringLiteral("date"));
    }
}

} // namespace

FenVisChart* fen::buildChart3D(ChartOrder const& order, QString& error)
{
    FenChartOptions const& options = order.options;
    Points points;
    bool const named = !options.x.isEmpty() || !options.y.isEmpty() || !options.z.isEmpty();
    bool const grid = options.style == QLatin1String("surface") || options.style == FenChart::styleBar;
    bool const matrix = grid && !named && options.group.isEmpty() && readMatrix(order.table, points);
    if (!matrix) error = readColumns(order, points);
    RowGroups groups;
    if (!options.group.isEmpty() && error.isEmpty()) {
        int const index = order.table.find(options.group);
        if (index < 0 || order.table.column(std::size_t(index)).kind != Kind::Text)
            error = QStringLiteral("groups are made of a column of texts");
        else
            groups = groupRows(order.table.column(std::size_t(index)));
    }
    if (!error.isEmpty() || !variablesFit(std::max<std::size_t>(1, groups.rows.size()), error))
        return nullptr;

    FenVisChart3D& node = order.scene.add<FenVisChart3D>(QStringLiteral("chart"));
    makeAxes(node.chart, points, options);
    bool const single = groups.rows.empty();
    for (std::size_t i = 0; i < std::max<std::size_t>(1, groups.rows.size()); ++i) {
        QString const title = options.zTitle.value_or(points.titles[2]);
        QString const fallback = title.isEmpty() ? QStringLiteral("z") : title;
        FenChartVariable& variable =
            node.chart.variables.append(single ? fallback : groups.names[qsizetype(i)]);
        for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
            if (single)
                variable.setColumn(comp, points.columns[comp]);
            else
                variable.setData(comp, valuesAt(*points.columns[comp], groups.rows[i]));
        }
        styleVariable(variable, options, points.columns[0]->size(), single);
        if (!matrix)
            order.scene.tableRows().set(variable, order.table.id(), single ? nullptr : groups.rows[i]);
    }
    bool const line = options.style == FenChart::styleLine || options.style == FenChart::styleSpline;
    auto* const y = dynamic_cast<FenChartAxisContinuous*>(node.chart.yAxes.first());
    if (y && line && constant(node.chart, Vector3::CompY)) y->fixed.set(true);
    bool const ramp = single && node.chart.variables[0].fillMode.get() == FenChart::fillGradient;
    finishChart(order, node, ramp || !single);
    for (unsigned i = 0; i < node.chart.variables.size(); ++i) {
        // The theme's ramps are for areas under curves: they fade out.
        if (node.chart.variables[i].fillMode.get() == FenChart::fillGradient)
            node.chart.variables[i].colors.set(
                fen::colorScheme(QString::fromLatin1(fen::defaultAmountScheme)));
        if (options.lineWidth) node.chart.variables[i].lineWidth.set(float(*options.lineWidth));
        if (options.symbolSize) node.chart.variables[i].symbolSize.set(*options.symbolSize);
    }
    return &node;
}
