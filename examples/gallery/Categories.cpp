#include "examples/gallery/Gallery.h"

#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/DataTable.h"

#include "charts/chart2d/VisChart2D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartColumn.h"
#include "services/chartdata/ChartVariable.h"

using Kes::Math::Vector3;

/// Bars over a discrete axis: one bar and one value label for each category.
void gallery::buildWeatherKinds(FenVisScene& scene)
{
    FenDataTable const weather = sample(QStringLiteral("seattle-weather.csv"));
    FenDataTable::Column const& kind = weather.column(std::size_t(weather.find(QStringLiteral("weather"))));
    std::vector<double> days(std::size_t(kind.categories.size()), 0.0);
    for (double const category : *kind.values) days[std::size_t(category)] += 1;

    FenVisChart2D& node = scene.add<FenVisChart2D>(QStringLiteral("chart"));
    node.chart.title.set(QStringLiteral("Seattle, 2012 to 2015: days of each kind of weather"));
    FenChartAxis* const x = node.chart.xAxes.setFirst(QStringLiteral("x"), FenChartAxisDiscrete::typeString);
    static_cast<FenChartAxisDiscrete*>(x)->labels.set(kind.categories);
    node.chart.yAxes.first()->title.set(QStringLiteral("days"));

    FenChartVariable& bars = node.chart.variables.append(QStringLiteral("days"));
    QStringList labels;
    for (double const count : days) labels.append(QString::number(count));
    bars.labels.set(labels);
    bars.setData(Vector3::CompY, std::move(days));
    bars.style.set(FenChart::styleBar);
    bars.fillMode.set(FenChart::fillSolid);
    bars.lineMode.set(FenChart::lineNone);
    FenTheme::light().apply(scene);
    FenTheme::light().apply(node);
}

/// Two styles in one chart, each on an axis of its own.
void gallery::buildBarsAndLine(FenVisScene& scene)
{
    FenDataTable const weather = sample(QStringLiteral("seattle-weather.csv"));
    auto const values = [&](char const* name) {
        return FenChartColumn::share(
            weather.column(std::size_t(weather.find(QString::fromLatin1(name)))).values);
    };

    FenVisChart2D& node = scene.add<FenVisChart2D>(QStringLiteral("chart"));
    FenChart2D& chart = node.chart;
    chart.title.set(QStringLiteral("A winter of rain: precipitation and highest temperature"));
    auto* const dates = static_cast<FenChartAxisContinuous*>(chart.xAxes.first());
    dates->format.set(QStringLiteral("date"));
    dates->autoRange.set(false);
    dates->min.set(1'414'800'000); // 2014-11-01, in seconds since 1970
    dates->max.set(1'425'168'000); // 2015-03-01
    chart.yAxes.first()->title.set(QStringLiteral("temperature [°C]"));
    FenChartAxis* const right =
        chart.yAxes.setSecond(QStringLiteral("rain"), FenChartAxisContinuous::typeString);
    right->title.set(QStringLiteral("precipitation [mm]"));
    right->autoRange.set(false);
    right->min.set(0);
    right->max.set(40);

    FenChartVariable& line = chart.variables.append(QStringLiteral("temp_max"));
    line.setColumn(Vector3::CompX, values("date"));
    line.setColumn(Vector3::CompY, values("temp_max"));
    line.style.set(FenChart::styleSpline);
    line.lineSmooth.set(true);
    FenChartVariable& bars = chart.variables.append(QStringLiteral("precipitation"));
    bars.setColumn(Vector3::CompX, values("date"));
    bars.setColumn(Vector3::CompY, values("precipitation"));
    bars.yAxis.set(QStringLiteral("rain"));
    bars.style.set(FenChart::styleBar);
    bars.fillMode.set(FenChart::fillSolid);
    bars.lineMode.set(FenChart::lineNone);

    FenTheme const& theme = FenTheme::light();
    theme.apply(scene);
    theme.apply(node);
    line.lineColor.set(theme.color(3));
    line.lineWidth.set(2);
    bars.fillColor.set(theme.color(5));
}
