#include "examples/gallery/Gallery.h"

#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"
#include "host/table/DataTable.h"

#include "charts/VisChart.h"

#include <iostream>

namespace {

/// Adds a chart in one quarter of the picture.
void addPart(FenVisScene& scene, FenDataTable const& table, FenChartOptions const& options,
             char const* corner)
{
    QString error;
    FenVisChart* const chart = fen::addChart(scene, table, options, FenTheme::light(), error);
    if (!chart) {
        std::cerr << "gallery: " << error.toStdString() << '\n';
        return;
    }
    chart->viewport.placement.set(QString::fromLatin1(corner));
    chart->viewport.width.set(0.5);
    chart->viewport.height.set(0.5);
}

FenChartOptions scatter(QString const& x, QString const& y)
{
    FenChartOptions options;
    options.title = QStringLiteral("%1 by %2").arg(y, x);
    options.x = x;
    options.y = {y};
    options.group = QStringLiteral("species");
    options.style = QStringLiteral("none");
    options.symbol = QStringLiteral("ellipse");
    options.symbolSize = 6;
    options.legend = false;
    return options;
}

} // namespace

/// One table in four charts: all of its numbers side by side, two of them against each other twice, and the
/// means of its groups.
void gallery::buildDashboard(FenVisScene& scene)
{
    FenDataTable const table = sample(QStringLiteral("penguins.csv"));
    FenChartOptions parallel;
    parallel.kind = QStringLiteral("parallel");
    parallel.title = QStringLiteral("Penguins: one line each");
    parallel.y = {QStringLiteral("species,bill_length_mm,bill_depth_mm,flipper_length_mm,body_mass_g")};
    parallel.colorBy = QStringLiteral("species");
    parallel.legend = false;
    addPart(scene, table, parallel, "topLeft");
    addPart(scene, table, scatter(QStringLiteral("flipper_length_mm"), QStringLiteral("body_mass_g")),
            "bottomLeft");
    addPart(scene, table, scatter(QStringLiteral("bill_length_mm"), QStringLiteral("bill_depth_mm")),
            "bottomRight");
    FenChartOptions spider;
    spider.kind = QStringLiteral("spider");
    spider.title = QStringLiteral("Means of each species");
    spider.y = {QStringLiteral("bill_length_mm,bill_depth_mm,flipper_length_mm,body_mass_g")};
    spider.group = QStringLiteral("species");
    spider.legend = false;
    addPart(scene, table, spider, "topRight");
}
