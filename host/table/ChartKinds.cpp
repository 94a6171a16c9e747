#include "host/table/ChartKinds.h"

#include "host/Limits.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/chart3d/VisChart3D.h"
#include "charts/correlation/VisChartCorrelation.h"
#include "charts/legend/VisLegend.h"
#include "charts/parallel/VisChartPCP.h"
#include "charts/pie/VisChartPie.h"
#include "charts/spider/VisChartSpider.h"
#include "services/chartdata/ChartAxis.h"

#include <algorithm>

namespace {

using fen::ChartKind;
using fen::ChartSides;

void addAxis(FenChartAxisPair& pair, char const* name)
{
    if (!pair.first() && !pair.second())
        pair.setFirst(QString::fromLatin1(name), FenChartAxisContinuous::typeString);
}

void prepareXY(FenVisualization& node)
{
    auto* const content = dynamic_cast<FenChartXYZ*>(fen::contentOf(node));
    if (!content) return;
    addAxis(content->xAxes, "x");
    addAxis(content->yAxes, "y");
}

void prepareXYZ(FenVisualization& node)
{
    prepareXY(node);
    if (auto* const content = dynamic_cast<FenChartXYZ*>(fen::contentOf(node))) addAxis(content->zAxes, "z");
}

/// None in the 3D view, where the camera is moved.
ChartSides sidesOf2D(FenVisualization& node)
{
    auto* const plot = dynamic_cast<FenVisChart2D*>(&node);
    if (!plot || plot->chart.view3D.get()) return {};
    auto const side = [](FenChartAxis* axis, FenChartAxisPairScale const& scales) {
        return ChartSides::Side{axis, axis ? scales.find(axis->name()) : nullptr};
    };
    FenChart2D& chart = plot->chart;
    return {side(chart.xAxes.first(), plot->xScale()), side(chart.xAxes.second(), plot->xScale()),
            side(chart.yAxes.first(), plot->yScale()), side(chart.yAxes.second(), plot->yScale())};
}

/// Colours of axes and items, which have none of their own elsewhere.
void dressMultiAxis(FenVisualization& node, FenTheme const& theme)
{
    auto* const content = dynamic_cast<FenChartMultiAxis*>(fen::contentOf(node));
    if (!content) return;
    for (unsigned i = 0; i < content->variables.size(); ++i) content->variables[i].colors.set({theme.axis});
    if (content->itemColors.get().isEmpty()) content->itemColors.set(theme.palette);
}

/// Blank-separated words.
QStringList words(char const* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

std::vector<FenChartAxis*> fen::ChartSides::axes() const
{
    std::vector<FenChartAxis*> there;
    for (Side const& side : {bottom, top, left, right})
        if (side.axis) there.push_back(side.axis);
    return there;
}

std::vector<ChartKind> const& fen::chartKinds()
{
    static std::vector<ChartKind> const table{
        {QStringLiteral("2d"), FenVisChart2D::typeString,
         words("x y y2 group style symbol fill line-style line-width symbol-size smooth no-smooth log "
               "x-range y-range y2-range x-title y-title y2-title"),
         prepareXY, buildChart2D, sidesOf2D, nullptr},
        {QStringLiteral("parallel"), FenVisChartPCP::typeString, words("y color-by filter"), nullptr,
         buildParallel, nullptr, dressMultiAxis},
        {QStringLiteral("spider"), FenVisChartSpider::typeString, words("y group fill"), nullptr, buildSpider,
         nullptr, dressMultiAxis},
        {QStringLiteral("correlation"), FenVisChartCorrelation::typeString, words("y method order"), nullptr,
         buildCorrelation, nullptr, nullptr},
        {QStringLiteral("pie"), FenVisChartPie::typeString, words("label value ring"), nullptr, buildPie,
         nullptr, dressPie},
        {QStringLiteral("3d"), FenVisChart3D::typeString,
         words("x y z group style symbol fill line-style line-width symbol-size smooth no-smooth x-title "
               "y-title "
               "z-title"),
         prepareXYZ, buildChart3D, nullptr, nullptr},
    };
    return table;
}

ChartKind const* fen::chartKind(QString const& name)
{
    auto const found = std::ranges::find(chartKinds(), name, &ChartKind::name);
    return found == chartKinds().end() ? nullptr : &*found;
}

ChartKind const* fen::chartKindOf(FenVisualization const& node)
{
    auto const found = std::ranges::find(chartKinds(), node.type(), &ChartKind::type);
    return found == chartKinds().end() ? nullptr : &*found;
}

FenChart* fen::contentOf(FenVisualization& node)
{
    return dynamic_cast<FenChart*>(node.FenProperties::at(QStringLiteral("chart")));
}

bool fen::variablesFit(std::size_t count, QString& error)
{
    if (count <= std::size_t(fen::limits::variables)) return true;
    error = QStringLiteral("%1 variables are more than a chart can show (%2)")
                .arg(count)
                .arg(fen::limits::variables);
    return false;
}

void fen::finishChart(ChartOrder const& order, FenVisChart& node, bool legend)
{
    if (FenChart* const content = contentOf(node)) content->title.set(order.options.title);
    order.theme.apply(order.scene);
    order.theme.apply(node);
    if (!order.options.legend.value_or(legend)) return;
    FenVisLegend& box = order.scene.add<FenVisLegend>(QStringLiteral("legend"));
    box.legend.chart.set(node.name());
    order.theme.apply(box);
}
