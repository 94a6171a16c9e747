#include "host/table/ChartBuilder.h"
#include "host/table/ChartKinds.h"
#include "host/table/ChartSelection.h"
#include "host/table/Correlation.h"
#include "host/table/DataTable.h"

#include "host/scene/Scene.h"

#include "charts/correlation/VisChartCorrelation.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/ColorSchemes.h"

#include <numeric>

namespace {

constexpr int binsPerSide = 10; // of 0.1 each, below and above 0
constexpr std::size_t readableNumbers = 12; // variables; with more the numbers have no room

std::vector<double> symmetricBins()
{
    std::vector<double> edges;
    for (int i = -binsPerSide; i <= binsPerSide; ++i) edges.push_back(double(i) / binsPerSide);
    return edges;
}

} // namespace

FenVisChart* fen::buildCorrelation(ChartOrder const& order, QString& error)
{
    fen::ChartSelection selection;
    error = fen::selectColumns(order.table, order.options, selection);
    if (!error.isEmpty() || !variablesFit(selection.left.size(), error)) return nullptr;

    std::size_t const count = selection.left.size();
    std::vector<std::span<double const>> columns;
    for (FenDataTable::Column const* column : selection.left) columns.emplace_back(*column->values);
    bool const ranks = order.options.method == QLatin1String("spearman");
    std::vector<double> const matrix =
        correlationMatrix(columns, ranks ? CorrelationMethod::Spearman : CorrelationMethod::Pearson);
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), std::size_t(0));
    if (order.options.order == QLatin1String("cluster")) places = clusterOrder(matrix, count);

    FenVisChartCorrelation& node = order.scene.add<FenVisChartCorrelation>(QStringLiteral("chart"));
    node.chart.bins.set(symmetricBins());
    node.chart.colors.set(colorScheme(QString::fromLatin1(defaultDivergingScheme)));
    for (std::size_t const place : places) {
        std::vector<double> row;
        for (std::size_t const other : places) row.push_back(matrix[place * count + other]);
        node.chart.variables.append(selection.left[place]->name)
            .setData(Kes::Math::Vector3::CompY, std::move(row));
    }
    finishChart(order, node, count > readableNumbers);
    return &node;
}
