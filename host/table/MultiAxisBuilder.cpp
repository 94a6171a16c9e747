#include "host/output/MessageText.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"
#include "host/table/ChartKinds.h"
#include "host/table/ChartSelection.h"
#include "host/table/DataTable.h"
#include "host/table/RecordFilter.h"

#include "charts/parallel/VisChartPCP.h"
#include "charts/spider/VisChartSpider.h"
#include "services/chartdata/ChartColumn.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/ColorSchemes.h"

#include <algorithm>
#include <cmath>

namespace {

typedef FenDataTable::Kind Kind;
typedef FenDataTable::Column Column;
typedef std::vector<Column const*> Columns;
typedef Kes::Math::Vector3 Vector3;

constexpr qsizetype axisCategories = 24; // columns with more texts have to be asked for
constexpr qsizetype legendEntries = 12; // a longer legend hides the chart, so it has to be asked for
constexpr std::size_t filledItems = 6; // areas of more hide each other

/// The columns that the options name, else those that `fits`.
template <class Fits>
Columns columnsFor(fen::ChartOrder const& order, Fits const& fits, QString& error)
{
    Columns columns;
    for (QString const& name : fen::singleNames(order.table, order.options.y))
        columns.push_back(fen::findColumn(order.table, name, error));
    if (columns.empty())
        for (std::size_t i = 0; i < order.table.columns(); ++i)
            if (fits(order.table.column(i))) columns.push_back(&order.table.column(i));
    if (columns.size() < 2 && error.isEmpty())
        error = QStringLiteral("at least two columns are needed, one for each axis");
    return columns;
}

FenChartVariable& addVariable(FenChartMultiAxis& chart, Column const& column)
{
    FenChartVariable& variable = chart.variables.append(column.name);
    variable.setColumn(Vector3::CompY, FenChartColumn::share(column.values));
    auto const listed = [&](FenPropertyAdaptor<QStringList>& names) {
        names.set(names.get() + QStringList(variable.name()));
    };
    if (column.kind == Kind::Date) listed(chart.dateAxes);
    if (column.kind != Kind::Text) return variable;
    listed(chart.categoryAxes);
    variable.labels.set(column.categories);
    return variable;
}

/// A colour per record: by text, or along a ramp by number.
void colorRecords(FenChartMultiAxis& chart, Column const& column, FenTheme const& theme)
{
    QList<QColor> colors;
    QStringList labels;
    std::vector<double> const& values = *column.values;
    QList<QColor> const ramp = fen::colorScheme(QLatin1String(fen::defaultAmountScheme));
    FenChartColumn const known(column.values);
    double const length = known.max() - known.min();
    for (double const value : values) {
        bool const missing = !std::isfinite(value);
        if (column.kind == Kind::Text) {
            colors += missing ? theme.axis : theme.color(unsigned(value));
            labels += missing ? QStringLiteral("(none)") : column.categories[qsizetype(value)];
        } else {
            colors += missing ? theme.axis
                              : fen::rampColor(ramp, length > 0 ? (value - known.min()) / length : 0.5);
        }
    }
    chart.itemColors.set(colors);
    chart.itemLabels.set(labels);
}

bool readFilters(fen::ChartOrder const& order, Columns const& columns,
                 std::vector<fen::RecordFilter>& filters, QString& error)
{
    for (QString const& text : order.options.filters) {
        fen::RecordFilter filter;
        if (!fen::readRecordFilter(order.table, text, filter, error)) return false;
        if (std::ranges::find(columns, filter.column) == columns.end()) {
            error = QStringLiteral("--filter %1: the column has no axis").arg(fen::quotedName(text));
            return false;
        }
        filters.push_back(filter);
    }
    return true;
}

double meanOf(std::vector<double> const& values, fen::Rows const& rows)
{
    double sum = 0, count = 0;
    for (std::uint32_t const row : *rows) {
        if (!std::isfinite(values[row])) continue;
        sum += values[row];
        count += 1;
    }
    return count > 0 ? sum / count : std::nan("");
}

} // namespace

FenVisChart* fen::buildParallel(ChartOrder const& order, QString& error)
{
    auto const fits = [](Column const& column) {
        return column.kind != Kind::Text || column.categories.size() <= axisCategories;
    };
    Columns const columns = columnsFor(order, fits, error);
    Column const* const color =
        order.options.colorBy.isEmpty() ? nullptr : findColumn(order.table, order.options.colorBy, error);
    std::vector<RecordFilter> filters;
    if (!error.isEmpty() || !readFilters(order, columns, filters, error)) return nullptr;
    if (!variablesFit(columns.size(), error)) return nullptr;

    FenVisChartPCP& node = order.scene.add<FenVisChartPCP>(QStringLiteral("chart"));
    for (Column const* const column : columns) {
        FenChartVariable& variable = addVariable(node.chart, *column);
        variable.filter.set(true); // with sliders
        for (RecordFilter const& filter : filters) {
            if (filter.column != column) continue;
            variable.filterRangeMin.set(filter.min);
            variable.filterRangeMax.set(filter.max);
        }
    }
    order.scene.tableRows().set(node.chart, order.table.id(), nullptr);
    bool const groups = color && color->kind == Kind::Text;
    if (color)
        colorRecords(node.chart, *color, order.theme);
    else
        node.chart.itemColors.set({order.theme.color(0)});
    finishChart(order, node, groups && color->categories.size() <= legendEntries);
    return &node;
}

FenVisChart* fen::buildSpider(ChartOrder const& order, QString& error)
{
    Column const* const group =
        order.options.group.isEmpty() ? nullptr : findColumn(order.table, order.options.group, error);
    if (group && group->kind != Kind::Text)
        error =
            QStringLiteral("column %1 holds no texts; groups are made of texts").arg(quotedName(group->name));
    Columns const columns = columnsFor(
        order, [](Column const& column) { return column.kind == Kind::Number; }, error);
    if (!error.isEmpty() || !variablesFit(columns.size(), error)) return nullptr;
    RowGroups const groups = group ? groupRows(*group) : RowGroups();

    FenVisChartSpider& node = order.scene.add<FenVisChartSpider>(QStringLiteral("chart"));
    for (Column const* const column : columns) {
        FenChartVariable& variable = addVariable(node.chart, *column);
        if (!group) continue;
        std::vector<double> means;
        for (Rows const& rows : groups.rows) means.push_back(meanOf(*column->values, rows));
        variable.setData(Vector3::CompY, std::move(means));
    }
    if (!group) order.scene.tableRows().set(node.chart, order.table.id(), nullptr);
    std::size_t const items = group ? groups.rows.size() : order.table.rows();
    if (group) node.chart.itemLabels.set(groups.names);
    node.chart.fillMode.set(
        order.options.fill.value_or(items <= filledItems ? FenChart::fillSolid : FenChart::fillNone));
    finishChart(order, node, items > 1 && qsizetype(items) <= legendEntries);
    return &node;
}
