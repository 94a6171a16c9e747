#include "examples/gallery/Gallery.h"

#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"
#include "host/table/DataTable.h"

#include <cmath>
#include <iostream>

/// Each measure of a day beside those of the six days before it: clusters of what goes together.
void gallery::buildWeatherMatrix(FenVisScene& scene)
{
    constexpr std::size_t days = 7;
    FenDataTable const weather = sample(QStringLiteral("seattle-weather.csv"));
    FenDataTable shifted;
    for (char const* measure : {"precipitation", "temp_max", "temp_min", "wind"}) {
        std::vector<double> const& values =
            *weather.column(std::size_t(weather.find(QString::fromLatin1(measure)))).values;
        for (std::size_t before = 0; before < days; ++before) {
            std::vector<double> column(values.size(), std::nan(""));
            for (std::size_t day = before; day < values.size(); ++day) column[day] = values[day - before];
            QString const name = QString::fromLatin1(measure);
            shifted.append(before == 0 ? name : QStringLiteral("%1 \u2212%2 d").arg(name).arg(before),
                           FenDataTable::Kind::Number, std::move(column));
        }
    }
    FenChartOptions options;
    options.kind = QStringLiteral("correlation");
    options.order = QStringLiteral("cluster");
    options.title = QStringLiteral("The weather of one day and of the days before");
    QString error;
    if (!fen::addChart(scene, shifted, options, FenTheme::light(), error))
        std::cerr << "gallery: " << error.toStdString() << '\n';
}
