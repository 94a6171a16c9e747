#include "host/table/ChartBuilder.h"
#include "host/table/ChartKinds.h"
#include "host/table/ChartSelection.h"
#include "host/table/DataTable.h"

#include "host/scene/Scene.h"
#include "host/scene/Theme.h"

#include "charts/pie/VisChartPie.h"
#include "services/chartdata/ChartVariable.h"
#include "services/math/NumberFormat.h"
#include "services/properties/ColorSchemes.h"

#include <QDateTime>
#include <QHash>

#include <cmath>

namespace {

typedef FenDataTable::Column Column;

constexpr int legendEntries = 12; // a longer legend hides the chart, so it has to be asked for

/// Rows of a column by their texts, numbered in the order in which they appear first.
struct Groups {
    QStringList names;
    std::vector<int> ofRow;

    int count() const { return int(names.size()); }
};

QString textOf(Column const& column, double value)
{
    if (std::isnan(value)) return QStringLiteral("(none)");
    if (column.kind == FenDataTable::Kind::Text) return column.categories[qsizetype(value)];
    if (column.kind == FenDataTable::Kind::Number)
        return QString::fromStdString(Kes::Math::shortestText(value));
    QDateTime const time = QDateTime::fromMSecsSinceEpoch(qint64(std::llround(value * 1000)), Qt::UTC);
    return time.time() == QTime(0, 0) ? time.date().toString(Qt::ISODate) : time.toString(Qt::ISODate);
}

/// @param column  null: all rows are one group without a name
Groups groupsOf(Column const* column, std::size_t rows)
{
    Groups groups;
    if (!column) return {{QString()}, std::vector<int>(rows, 0)};
    QHash<QString, int> numbers;
    for (double const value : *column->values) {
        QString const text = textOf(*column, value);
        auto const known = numbers.constFind(text);
        int const number = known == numbers.constEnd() ? groups.count() : *known;
        if (number == groups.count()) {
            numbers.insert(text, number);
            groups.names.append(text);
        }
        groups.ofRow.push_back(number);
    }
    return groups;
}

/// Every row is a slice of its own, named by its number.
Groups rowsAlone(std::size_t rows)
{
    Groups groups;
    for (std::size_t row = 0; row < rows; ++row) {
        groups.names.append(QString::number(row + 1));
        groups.ofRow.push_back(int(row));
    }
    return groups;
}

/// The columns that the options name.
struct Columns {
    Column const* label = nullptr; ///< null: each row is a slice
    Column const* value = nullptr; ///< null: rows are counted
    Column const* ring = nullptr; ///< null: one ring
};

bool find(fen::ChartOrder const& order, Columns& columns, QString& error)
{
    FenChartOptions const& options = order.options;
    auto const look = [&](QString const& name, Column const*& column) {
        if (!name.isEmpty()) column = fen::findColumn(order.table, name, error);
        return error.isEmpty();
    };
    if (!look(options.label, columns.label) || !look(options.value, columns.value)
        || !look(options.ring, columns.ring))
        return false;
    if (columns.value && columns.value->kind != FenDataTable::Kind::Number)
        error = QStringLiteral("expected a column of numbers for the values");
    for (std::size_t i = 0; !columns.label && i < order.table.columns(); ++i) {
        Column const& candidate = order.table.column(i);
        if (candidate.kind == FenDataTable::Kind::Text && &candidate != columns.ring)
            columns.label = &candidate;
    }
    return error.isEmpty();
}

/// Sum of each label in each ring, ring by ring; NaN where a ring has no row with the label.
std::vector<double> sums(Columns const& columns, Groups const& labels, Groups const& rings)
{
    std::vector<double> result(std::size_t(labels.count()) * std::size_t(rings.count()), std::nan(""));
    for (std::size_t row = 0; row < labels.ofRow.size(); ++row) {
        double const value = columns.value ? (*columns.value->values)[row] : 1.0;
        double& sum = result[std::size_t(rings.ofRow[row]) * std::size_t(labels.count())
                             + std::size_t(labels.ofRow[row])];
        if (!std::isnan(value)) sum = std::isnan(sum) ? value : sum + value;
    }
    return result;
}

} // namespace

FenVisChart* fen::buildPie(ChartOrder const& order, QString& error)
{
    Columns columns;
    error.clear();
    if (!find(order, columns, error)) return nullptr;
    std::size_t const rows = order.table.rows();
    Groups const labels = columns.label ? groupsOf(columns.label, rows) : rowsAlone(rows);
    Groups const rings = groupsOf(columns.ring, rows);
    auto const slices = std::size_t(labels.count()) * std::size_t(rings.count());
    if (!variablesFit(slices, error)) return nullptr;
    std::vector<double> const values = sums(columns, labels, rings);

    FenVisChartPie& node = order.scene.add<FenVisChartPie>(QStringLiteral("chart"));
    node.chart.showPercent.set(true);
    std::vector<bool> listed(std::size_t(labels.count()), false);
    for (std::size_t i = 0; i < slices; ++i) {
        auto const label = qsizetype(i % std::size_t(labels.count()));
        auto const ring = qsizetype(i / std::size_t(labels.count()));
        if (std::isnan(values[i])) continue;
        QString const name = rings.names[ring].isEmpty()
            ? labels.names[label]
            : QStringLiteral("%1 (%2)").arg(labels.names[label], rings.names[ring]);
        FenChartVariable& variable = node.chart.variables.append(name);
        variable.label.set(labels.names[label]);
        variable.ring.set(int(ring));
        variable.fillMode.set(FenChart::fillSolid);
        variable.setData(Kes::Math::Vector3::CompY, {values[i]});
        variable.legend.set(!listed[std::size_t(label)]);
        listed[std::size_t(label)] = true;
    }
    finishChart(order, node, labels.count() > 1 && labels.count() <= legendEntries);
    return &node;
}

/// Slices of one label share a colour; the background separates them.
void fen::dressPie(FenVisualization& node, FenTheme const& theme)
{
    auto* const pie = dynamic_cast<FenVisChartPie*>(&node);
    if (!pie) return;
    QHash<QString, unsigned> numbers;
    for (unsigned i = 0; i < pie->chart.variables.size(); ++i) {
        FenChartVariable& variable = pie->chart.variables[i];
        QString const label = variable.shownName();
        if (!numbers.contains(label)) numbers.insert(label, unsigned(numbers.size()));
        QColor const color = theme.color(numbers.value(label));
        variable.fillColor.set(color);
        variable.labelColor.set(readableOn(color));
        variable.lineColor.set(theme.background);
        variable.lineWidth.set(1.0F);
        variable.lineSmooth.set(true);
    }
}
