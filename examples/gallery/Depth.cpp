#include "examples/gallery/Gallery.h"

#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/DataTable.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/chart3d/VisChart3D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/ColorSchemes.h"

#include <QDate>

#include <algorithm>
#include <cmath>
#include <map>

using Kes::Math::Vector3;

namespace {

std::vector<double> const& values(FenDataTable const& table, char const* name)
{
    return *table.column(std::size_t(table.find(QString::fromLatin1(name)))).values;
}

QDate dateOf(double seconds) { return QDate(1970, 1, 1).addDays(qint64(std::floor(seconds / 86400))); }

FenVisChart3D& addChart3D(FenVisScene& scene, char const* title, char const* x, char const* y, char const* z)
{
    FenVisChart3D& node = scene.add<FenVisChart3D>(QStringLiteral("chart"));
    node.chart.title.set(QString::fromUtf8(title));
    node.chart.xAxes.first()->title.set(QString::fromUtf8(x));
    node.chart.yAxes.first()->title.set(QString::fromUtf8(y));
    node.chart.zAxes.first()->title.set(QString::fromUtf8(z));
    return node;
}

void setPoints(FenChartVariable& variable, std::vector<double> x, std::vector<double> y,
               std::vector<double> z)
{
    variable.setData(Vector3::CompX, std::move(x));
    variable.setData(Vector3::CompY, std::move(y));
    variable.setData(Vector3::CompZ, std::move(z));
}

} // namespace

/// Symbols in three measures, in the colours of one of them.
void gallery::buildEarthquakesInSpace(FenVisScene& scene)
{
    FenDataTable const quakes = sample(QStringLiteral("earthquakes.csv"));
    FenVisChart3D& node = addChart3D(scene, "Earthquakes of one week: when, how strong, how deep", "day",
                                     "magnitude", "height [km]");
    std::vector<double> day = values(quakes, "time"), height = values(quakes, "depth_km");
    double const start = *std::min_element(day.begin(), day.end());
    for (double& time : day) time = (time - start) / 86400;
    for (double& depth : height) depth = -depth;
    FenChartVariable& variable = node.chart.variables.append(QStringLiteral("height"));
    setPoints(variable, std::move(day), values(quakes, "magnitude"), std::move(height));
    variable.lineMode.set(FenChart::lineNone);
    variable.symbol.set(FenChart::symbolEllipse);
    variable.fillMode.set(FenChart::fillGradient);
    FenTheme::light().apply(scene);
    FenTheme::light().apply(node);
    variable.symbolSize.set(8);
    QList<QColor> colors = fen::colorScheme(QString::fromLatin1(fen::defaultAmountScheme));
    std::reverse(colors.begin(), colors.end()); // the many near the ground are dark
    variable.colors.set(colors);
}

/// Bars over two categories.
void gallery::buildRainOfMonths(FenVisScene& scene)
{
    FenDataTable const weather = sample(QStringLiteral("seattle-weather.csv"));
    std::map<std::pair<int, int>, double> rain; // [mm] by month and year
    std::vector<double> const &dates = values(weather, "date"), &fallen = values(weather, "precipitation");
    for (std::size_t i = 0; i < dates.size(); ++i)
        rain[{dateOf(dates[i]).year(), dateOf(dates[i]).month()}] += fallen[i];
    FenVisChart3D& node = addChart3D(scene, "Rain in Seattle", "month", "year", "rain [mm]");
    std::vector<double> month, year, sum;
    for (auto const& [when, amount] : rain) {
        year.push_back(when.first);
        month.push_back(when.second);
        sum.push_back(amount);
    }
    FenChartVariable& bars = node.chart.variables.append(QStringLiteral("rain"));
    setPoints(bars, std::move(month), std::move(year), std::move(sum));
    bars.style.set(FenChart::styleBar);
    bars.fillMode.set(FenChart::fillGradient);
    FenTheme::light().apply(scene);
    FenTheme::light().apply(node);
    bars.barWidth.set(0.7);
    bars.colors.set(fen::colorScheme(QString::fromLatin1(fen::defaultAmountScheme)));
    bars.lineColor.set(QColor(0, 0, 0, 90));
}

/// A family of lines, each in a plane of its own: the y axis is fixed.
void gallery::buildYearsOfCarbonDioxide(FenVisScene& scene)
{
    FenDataTable const air = sample(QStringLiteral("mauna-loa-co2.csv"));
    FenVisChart3D& node = addChart3D(scene, "The year's breath of the northern forests", "day of the year",
                                     "year", "CO\u2082 [ppm]");
    static_cast<FenChartAxisContinuous*>(node.chart.yAxes.first())->fixed.set(true);
    std::map<int, std::array<std::vector<double>, 2>> years;
    std::vector<double> const &dates = values(air, "date"), &amounts = values(air, "co2");
    for (std::size_t i = 0; i < dates.size(); ++i) {
        QDate const date = dateOf(dates[i]);
        if (date.year() % 4 != 0) continue;
        years[date.year()][0].push_back(date.dayOfYear());
        years[date.year()][1].push_back(amounts[i]);
    }
    QList<QColor> const colors = fen::colorScheme(QString::fromLatin1(fen::defaultAmountScheme));
    FenTheme::light().apply(scene);
    double place = 0;
    for (auto& [year, columns] : years) {
        FenChartVariable& line = node.chart.variables.append(QString::number(year));
        std::vector<double> const same(columns[0].size(), year);
        setPoints(line, std::move(columns[0]), same, std::move(columns[1]));
        line.style.set(FenChart::styleSpline);
        line.fillMode.set(FenChart::fillSolid);
    }
    FenTheme::light().apply(node);
    for (unsigned i = 0; i < node.chart.variables.size(); ++i) {
        QColor color = fen::rampColor(colors, place++ / double(years.size() - 1));
        node.chart.variables[i].lineColor.set(color);
        color.setAlpha(90);
        node.chart.variables[i].fillColor.set(color);
    }
}

/// A 2D chart in depth.
void gallery::buildIowaInDepth(FenVisScene& scene)
{
    FenDataTable const iowa = sample(QStringLiteral("iowa-electricity.csv"));
    FenDataTable::Column const& source = iowa.column(std::size_t(iowa.find(QStringLiteral("source"))));
    FenVisChart2D& node = scene.add<FenVisChart2D>(QStringLiteral("chart"));
    node.chart.title.set(QStringLiteral("Electricity in Iowa by source, one behind the other"));
    node.chart.xAxes.first()->title.set(QStringLiteral("year"));
    node.chart.yAxes.first()->title.set(QStringLiteral("generation [GWh]"));
    node.chart.view3D.set(true);
    for (int kind = 0; kind < source.categories.size(); ++kind) {
        std::vector<double> year, power;
        for (std::size_t row = 0; row < iowa.rows(); ++row) {
            if (int((*source.values)[row]) != kind) continue;
            year.push_back(dateOf(values(iowa, "year")[row]).year());
            power.push_back(values(iowa, "net_generation")[row]);
        }
        FenChartVariable& area = node.chart.variables.append(source.categories[kind]);
        area.setData(Vector3::CompX, std::move(year));
        area.setData(Vector3::CompY, std::move(power));
        area.fillMode.set(FenChart::fillSolid);
    }
    FenTheme::light().apply(scene);
    FenTheme::light().apply(node);
}
