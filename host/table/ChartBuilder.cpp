#include "host/table/ChartBuilder.h"

#include "host/table/ChartKinds.h"

#include "services/chartdata/Chart.h"

QStringList FenChartOptions::styles()
{
    return {FenChart::styleNone, FenChart::styleLine, FenChart::styleSpline,
            FenChart::styleStep, FenChart::styleBar,  QStringLiteral("surface")};
}

QStringList FenChartOptions::symbols()
{
    return {FenChart::symbolNone,      FenChart::symbolRect,      FenChart::symbolEllipse,
            FenChart::symbolTriangle,  FenChart::symbolUTriangle, FenChart::symbolDTriangle,
            FenChart::symbolLTriangle, FenChart::symbolRTriangle, FenChart::symbolDiamond,
            FenChart::symbolHexagon,   FenChart::symbolStar,      FenChart::symbolCross,
            FenChart::symbolXCross};
}

QStringList FenChartOptions::fills()
{
    return {FenChart::fillNone, FenChart::fillSolid, FenChart::fillSparse, FenChart::fillGradient};
}

QStringList FenChartOptions::lineStyles()
{
    return {QStringLiteral("solid"), QStringLiteral("dash"), QStringLiteral("dot"),
            QStringLiteral("dashDot")};
}

QStringList FenChartOptions::methods() { return {QStringLiteral("pearson"), QStringLiteral("spearman")}; }

QStringList FenChartOptions::orders() { return {QStringLiteral("file"), QStringLiteral("cluster")}; }

FenVisChart* fen::addChart(FenVisScene& scene, FenDataTable const& table, FenChartOptions const& options,
                           FenTheme const& theme, QString& error, QStringList* remarks)
{
    if (ChartKind const* const kind = chartKind(options.kind))
        return kind->build({scene, table, options, theme, remarks}, error);
    error = QStringLiteral("there is no such kind of chart");
    return nullptr;
}
