#include "examples/gallery/Gallery.h"

#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/DataTable.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/legend/VisLegend.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"

#include <map>

using Kes::Math::Vector3;

namespace {

/// Half way from a colour to white.
QColor pale(QColor const& color)
{
    auto const half = [](int channel) { return (channel + 255) / 2; };
    return QColor(half(color.red()), half(color.green()), half(color.blue()));
}

} // namespace

/// Areas that add up: each variable is the sum of itself and those below it. Variables are drawn
/// from the last to the first, so the largest sum comes last and lies behind the others.
void gallery::buildStackedSources(FenVisScene& scene)
{
    FenDataTable const table = sample(QStringLiteral("iowa-electricity.csv"));
    auto const column = [&](char const* name) -> FenDataTable::Column const& {
        return table.column(std::size_t(table.find(QString::fromLatin1(name))));
    };
    FenDataTable::Column const& source = column("source");
    std::vector<double> const& years = *column("year").values;
    std::vector<double> const& generation = *column("net_generation").values;

    FenVisChart2D& node = scene.add<FenVisChart2D>(QStringLiteral("chart"));
    FenChart2D& chart = node.chart;
    chart.title.set(QStringLiteral("Electricity in Iowa, one source upon the other"));
    static_cast<FenChartAxisContinuous*>(chart.xAxes.first())->format.set(QStringLiteral("date"));
    chart.yAxes.first()->title.set(QStringLiteral("net generation [GWh]"));

    std::map<double, double> sums; // by year
    for (qsizetype i = 0; i < source.categories.size(); ++i) {
        for (std::size_t row = 0; row < table.rows(); ++row)
            if ((*source.values)[row] == double(i)) sums[years[row]] += generation[row];
        std::vector<double> x;
        std::vector<double> y;
        for (auto const& [year, sum] : sums) {
            x.push_back(year);
            y.push_back(sum);
        }
        FenChartVariable& area = chart.variables.append(source.categories[i]);
        area.setData(Vector3::CompX, std::move(x));
        area.setData(Vector3::CompY, std::move(y));
        area.fillMode.set(FenChart::fillSolid);
        area.lineSmooth.set(true);
    }

    FenVisLegend& legend = scene.add<FenVisLegend>(QStringLiteral("legend"));
    legend.legend.chart.set(node.name());
    FenTheme const& theme = FenTheme::light();
    theme.apply(scene);
    theme.apply(node);
    theme.apply(legend);
    for (unsigned i = 0; i < chart.variables.size(); ++i) {
        // Opaque, or the sums behind would shine through.
        QColor const own = theme.color(i);
        chart.variables[i].fillColor.set(pale(own));
        chart.variables[i].lineColor.set(own);
    }
}
