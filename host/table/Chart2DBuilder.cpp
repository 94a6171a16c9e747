#include "host/output/MessageText.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/AxisChoice.h"
#include "host/table/ChartBuilder.h"
#include "host/table/ChartKinds.h"
#include "host/table/ChartSelection.h"
#include "host/table/DataTable.h"

#include "charts/chart2d/VisChart2D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartColumn.h"
#include "services/chartdata/ChartVariable.h"

#include <algorithm>

namespace {

typedef FenDataTable::Kind Kind;
typedef FenDataTable::Column Column;
typedef Kes::Math::Vector3 Vector3;

constexpr std::size_t smoothRows = 20'000; // longer curves are drawn without smoothing, which is slow
constexpr qsizetype titleNames = 3; // more columns than this are left to the legend
constexpr std::size_t legendEntries = 12; // a longer legend hides the chart, so it has to be asked for
constexpr char const leftAxis[] = "y";
constexpr char const rightAxis[] = "y2";

std::vector<double> valuesAt(std::vector<double> const& values, std::vector<std::uint32_t> const& rows)
{
    std::vector<double> chosen;
    chosen.reserve(rows.size());
    for (std::size_t const row : rows) chosen.push_back(values[row]);
    return chosen;
}

/// Makes the nodes of a chart whose options were checked.
class Builder {
public:
    explicit Builder(fen::ChartOrder const& order)
        : _order(order)
        , _options(order.options)
    {
    }

    FenVisChart2D& build(fen::ChartSelection const& selection, std::vector<fen::ChartSeries> const& series)
    {
        FenVisChart2D& node = _order.scene.add<FenVisChart2D>(QStringLiteral("chart"));
        FenChart2D& chart = node.chart;
        makeXAxis(chart, selection.x);
        makeYAxis(chart.yAxes.setFirst(QString::fromLatin1(leftAxis), FenChartAxisContinuous::typeString),
                  selection.left, _options.yTitle, _options.yRange);
        if (!selection.right.empty())
            makeYAxis(
                chart.yAxes.setSecond(QString::fromLatin1(rightAxis), FenChartAxisContinuous::typeString),
                selection.right, _options.y2Title, _options.y2Range);
        for (fen::ChartSeries const& one : series)
            makeVariable(chart.variables.append(one.name), selection, one);
        fen::finishChart(_order, node, series.size() > 1 && series.size() <= legendEntries);
        for (unsigned i = 0; i < chart.variables.size(); ++i) override(chart.variables[i]);
        colourAxes(chart, series);
        return node;
    }

private:
    void makeXAxis(FenChart2D& chart, Column const* x)
    {
        bool const texts = x && x->kind == Kind::Text;
        FenChartAxis* const axis = chart.xAxes.setFirst(QStringLiteral("x"),
                                                        texts ? FenChartAxisDiscrete::typeString
                                                              : FenChartAxisContinuous::typeString);
        bool const dates = x && (x->kind == Kind::Date || x->kind == Kind::Time);
        // Dates need no explanation but their zone, a row number does.
        axis->title.set(_options.xTitle.value_or(dates ? x->zone : x ? x->name : QStringLiteral("row")));
        setRange(*axis, _options.xRange);
        if (auto* const discrete = dynamic_cast<FenChartAxisDiscrete*>(axis))
            discrete->labels.set(x->categories);
        if (auto* const continuous = dynamic_cast<FenChartAxisContinuous*>(axis)) {
            continuous->logarithmic.set(_options.logX);
            if (x && !dates) continuous->unit.set(x->unit);
            if (dates) continuous->format.set(QStringLiteral("date"));
        }
    }

    void makeYAxis(FenChartAxis* axis, std::vector<Column const*> const& columns,
                   std::optional<QString> const& title, FenChartOptions::Range const& range)
    {
        auto const sameUnit = [&](Column const* column) { return column->unit == columns.front()->unit; };
        bool const oneUnit = std::ranges::all_of(columns, sameUnit);
        QStringList names;
        for (Column const* column : columns) names.append(oneUnit ? column->name : withUnit(*column));
        axis->title.set(
            title.value_or(names.size() > titleNames ? QString() : names.join(QStringLiteral(", "))));
        setRange(*axis, range);
        auto* const continuous = static_cast<FenChartAxisContinuous*>(axis);
        continuous->logarithmic.set(_options.logY);
        if (!columns.empty() && oneUnit) continuous->unit.set(columns.front()->unit);
    }

    static QString withUnit(Column const& column)
    {
        return column.unit.isEmpty() ? column.name : QStringLiteral("%1 [%2]").arg(column.name, column.unit);
    }

    static void setRange(FenChartAxis& axis, FenChartOptions::Range const& range)
    {
        if (!range) return;
        axis.autoRange.set(false);
        axis.min.set(range->first);
        axis.max.set(range->second);
    }

    void makeVariable(FenChartVariable& variable, fen::ChartSelection const& selection,
                      fen::ChartSeries const& series)
    {
        if (series.rows) {
            std::vector<double> const numbers(series.rows->begin(), series.rows->end());
            variable.setData(Vector3::CompX,
                             selection.x ? valuesAt(*selection.x->values, *series.rows) : numbers);
            variable.setData(Vector3::CompY, valuesAt(*series.column->values, *series.rows));
        } else {
            if (selection.x) variable.setColumn(Vector3::CompX, FenChartColumn::share(selection.x->values));
            variable.setColumn(Vector3::CompY, FenChartColumn::share(series.column->values));
        }
        _order.scene.tableRows().set(variable, _order.table.id(), series.rows);
        variable.yAxis.set(QString::fromLatin1(series.right ? rightAxis : leftAxis));
        // Style "none" leaves out points too, so no line is a line that is not drawn.
        bool const noLine = _options.style == FenChart::styleNone;
        variable.style.set(noLine ? FenChart::styleLine : _options.style);

        bool const bars = _options.style == FenChart::styleBar;
        variable.fillMode.set(_options.fill.value_or(bars ? FenChart::fillSolid : FenChart::fillNone));
        // Bars that their fill shows well need no outline, which would join neighbours.
        QString const fill = variable.fillMode.get();
        bool const plainBars = bars && (fill == FenChart::fillSolid || fill == FenChart::fillGradient);
        variable.lineMode.set(noLine || plainBars ? FenChart::lineNone : FenChart::lineSolid);
        variable.symbol.set(_options.symbol.value_or(_order.table.rows() == 1 ? FenChart::symbolEllipse
                                                                              : FenChart::symbolNone));
        variable.lineStyle.set(_options.lineStyle);
        variable.lineSmooth.set(_options.smooth.value_or(!bars && _order.table.rows() <= smoothRows));
    }

    /// What the options ask for in place of the theme's.
    void override(FenChartVariable& variable)
    {
        if (_options.lineWidth) variable.lineWidth.set(float(*_options.lineWidth));
        if (_options.symbolSize) variable.symbolSize.set(*_options.symbolSize);
    }

    /// With two y axes the labels of each have the colour of its variable, where there is but one.
    void colourAxes(FenChart2D& chart, std::vector<fen::ChartSeries> const& series) const
    {
        if (!chart.yAxes.second()) return;
        for (FenChartAxis* axis : {chart.yAxes.first(), chart.yAxes.second()}) {
            bool const right = axis == chart.yAxes.second();
            auto const onAxis = [&](fen::ChartSeries const& one) { return one.right == right; };
            auto const first = std::ranges::find_if(series, onAxis);
            if (std::ranges::count_if(series, onAxis) == 1)
                axis->labelColor.set(_order.theme.color(unsigned(first - series.begin())));
        }
    }

    fen::ChartOrder const& _order;
    FenChartOptions const& _options;
};

/// What was chosen in place of --x and --y, in one line; empty when both were given.
QString choiceText(fen::ChartOrder const& order, fen::ChartSelection const& selection)
{
    constexpr qsizetype mostNames = 6;
    QStringList parts;
    QStringList given;
    if (order.options.x.isEmpty()) {
        fen::AxisChoice const choice = fen::chooseXAxis(order.table);
        parts.append(
            QStringLiteral("x is %1 (%2)")
                .arg(choice.column ? fen::messageText(choice.column->name) : QStringLiteral("the row number"),
                     choice.reason));
        given.append(QStringLiteral("--x"));
    }
    if (order.options.y.isEmpty() && order.options.y2.isEmpty()) {
        QStringList names;
        for (Column const* column : selection.left) names.append(fen::messageText(column->name));
        QString const more = names.size() > mostNames
            ? QStringLiteral(" and %1 more").arg(names.size() - mostNames)
            : QString();
        parts.append(QStringLiteral("y is ") + names.mid(0, mostNames).join(QStringLiteral(", ")) + more);
        given.append(QStringLiteral("--y"));
    }
    if (parts.isEmpty()) return {};
    return parts.join(QStringLiteral("; "))
        + QStringLiteral("; %1 %2 otherwise")
              .arg(given.join(QStringLiteral(" and ")),
                   given.size() > 1 ? QStringLiteral("say") : QStringLiteral("says"));
}

} // namespace

FenVisChart* fen::buildChart2D(ChartOrder const& order, QString& error)
{
    if (order.options.style == QLatin1String("surface")) {
        error = QStringLiteral("surfaces need a chart of kind 3d");
        return nullptr;
    }
    fen::ChartSelection selection;
    error = fen::selectColumns(order.table, order.options, selection);
    if (!error.isEmpty()) return nullptr;
    fen::RowGroups const groups = selection.group ? fen::groupRows(*selection.group) : fen::RowGroups();
    std::size_t const columns = selection.left.size() + selection.right.size();
    if (!variablesFit(columns * (selection.group ? groups.rows.size() : 1), error)) return nullptr;
    std::vector<fen::ChartSeries> const series = fen::chartSeries(selection, groups);
    QString const choice = choiceText(order, selection);
    if (order.remarks && !choice.isEmpty()) order.remarks->append(choice);
    return &Builder(order).build(selection, series);
}
