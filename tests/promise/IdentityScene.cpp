#include "tests/promise/IdentityScene.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/correlation/VisChartCorrelation.h"
#include "charts/parallel/VisChartPCP.h"
#include "charts/pie/VisChartPie.h"
#include "charts/spider/VisChartSpider.h"
#include "host/scene/Scene.h"
#include "picking/hits/IVisEventHandler.h"
#include "scene/VisAnnotation.h"
#include "scene/VisTriad.h"
#include "scene/VisViewpoint.h"
#include "services/chartdata/ChartVariable.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector3;

namespace {

/// The i-th of many colours that are far from each other and from white.
QColor identity(size_t i)
{
    // By way of the 8-bit channels of a pixel, so that colours of pixels compare equal.
    return QColor(QColor::fromHsv(int(i * 67 % 360), 255, 250 - int(i % 3) * 60).rgb());
}

double uniform(std::mt19937& random, double from, double to)
{
    // Not std::uniform_real_distribution: its numbers differ between libraries.
    return from + (to - from) * double(random()) / 4294967296.0;
}

bool coin(std::mt19937& random, double probability) { return uniform(random, 0, 1) < probability; }

template <class Choice>
Choice const& choose(std::mt19937& random, std::vector<Choice> const& choices)
{
    return choices[random() % choices.size()];
}

void addAxis(IdentityScene& scene, FenChartAxis& axis)
{
    QColor const color = identity(scene.things.size());
    axis.gridColor.set(Qt::transparent); // the grid cannot be picked, on purpose
    scene.things.push_back({color, &axis, true, 1, [&axis, color] {
                                axis.color.set(color);
                                axis.labelColor.set(color);
                            }});
}

void addVariable(IdentityScene& scene, FenChartVariable& variable)
{
    QColor const color = identity(scene.things.size());
    bool const symbols = variable.symbol.get() != FenChart::symbolNone;
    int const reach = symbols ? (variable.symbolSize.get() + 1) / 2 : 1;
    scene.things.push_back({color, &variable, false, reach, [&variable, color] {
                                for (auto* one : {&variable.lineColor, &variable.fillColor,
                                                  &variable.symbolColor, &variable.symbolOutlineColor})
                                    one->set(color);
                            }});
}

/// Random data: a walk with gaps, or a cloud.
void fillColumns(FenChartVariable& variable, std::mt19937& random)
{
    bool const ascending = coin(random, 0.7);
    size_t const count = choose<size_t>(random, {1, 2, 5, 30, 400, 20000});
    std::vector<double> x(count);
    std::vector<double> y(count);
    double level = uniform(random, -5, 5);
    for (size_t i = 0; i < count; ++i) {
        x[i] = ascending ? double(i) * 100.0 / double(count) : uniform(random, 0, 100);
        level += uniform(random, -1, 1);
        y[i] = coin(random, 0.02) ? std::nan("") : level;
    }
    variable.setData(Vector3::CompX, std::move(x));
    variable.setData(Vector3::CompY, std::move(y));
}

void styleVariable(FenChartVariable& variable, std::mt19937& random)
{
    variable.style.set(choose<QString>(
        random, {FenChart::styleLine, FenChart::styleStep, FenChart::styleSpline, FenChart::styleBar}));
    variable.fillColor.set(Qt::black);
    variable.lineWidth.set(float(choose<int>(random, {1, 1, 2, 5})));
    if (variable.style.get() == FenChart::styleBar || coin(random, 0.2)) {
        variable.fillMode.set(FenChart::fillSolid);
    }
    if (coin(random, 0.6)) {
        variable.symbol.set(choose<QString>(random,
                                            {FenChart::symbolRect, FenChart::symbolEllipse,
                                             FenChart::symbolDiamond, FenChart::symbolDTriangle}));
        variable.symbolSize.set(choose<int>(random, {5, 8, 13}));
        if (coin(random, 0.3)) variable.lineMode.set(FenChart::lineNone);
    }
}

IdentityScene makeChart2D(FenVisScene& scene, std::mt19937& random)
{
    IdentityScene result;
    FenVisChart2D& node = scene.add<FenVisChart2D>("chart");
    node.chart.titleColor.set(Qt::transparent);
    node.chart.xAxes.first()->title.set("x");
    addAxis(result, *node.chart.xAxes.first());
    addAxis(result, *node.chart.yAxes.first());
    int const variables = 1 + int(random() % 4);
    for (int i = 0; i < variables; ++i) {
        FenChartVariable& variable = node.chart.variables.append(QString("v%1").arg(i));
        fillColumns(variable, random);
        styleVariable(variable, random);
        addVariable(result, variable);
    }
    return result;
}

/// Axes in colours of their own; all items, which belong to the chart, in one.
template <class Node>
IdentityScene makeItems(FenVisScene& scene, std::mt19937& random)
{
    IdentityScene result;
    Node& node = scene.add<Node>("chart");
    int const variables = 2 + int(random() % 7);
    size_t const items = choose<size_t>(random, {1, 2, 6});
    for (int i = 0; i < variables; ++i) {
        FenChartVariable& variable = node.chart.variables.append(QString("v%1").arg(i));
        std::vector<double> values(items);
        for (double& value : values) value = coin(random, 0.05) ? std::nan("") : uniform(random, -5, 5);
        variable.setData(Vector3::CompY, std::move(values));
        QColor const color = identity(result.things.size());
        variable.colors.set({Qt::black});
        // Labels stay black: their ground follows their colour.
        result.things.push_back(
            {color, &variable, true, 2, [&variable, color] { variable.colors.set({color}); }});
    }
    QColor const color = identity(result.things.size());
    node.chart.itemColors.set({QColor(Qt::black)});
    result.things.push_back(
        {color, &node.chart, false, 2, [&node, color] { node.chart.itemColors.set({color}); }});
    return result;
}

IdentityScene makeCorrelation(FenVisScene& scene, std::mt19937& random)
{
    IdentityScene result;
    FenVisChartCorrelation& node = scene.add<FenVisChartCorrelation>("chart");
    node.chart.textColor.set(Qt::transparent); // frame and names cannot be picked
    node.chart.bins.set({-1, -0.5, 0, 0.5, 1});
    node.chart.colors.set({Qt::red, Qt::blue});
    size_t const count = choose<size_t>(random, {25, 31, 150}); // so many that the numbers have no room
    for (size_t i = 0; i < count; ++i) {
        std::vector<double> row(count);
        for (double& value : row) value = uniform(random, -1.2, 1.2);
        node.chart.variables.append(QString("v%1").arg(i)).setData(Vector3::CompY, std::move(row));
    }
    QColor const color = identity(0);
    result.things.push_back({color, &node.chart, false, 1, [&node, color] {
                                 node.chart.colors.set({color, color});
                             }});
    return result;
}

IdentityScene makePie(FenVisScene& scene, std::mt19937& random)
{
    IdentityScene result;
    FenVisChartPie& node = scene.add<FenVisChartPie>("chart");
    int const rings = 1 + int(random() % 4);
    int const variables = 1 + int(random() % 12);
    for (int i = 0; i < variables; ++i) {
        FenChartVariable& variable = node.chart.variables.append(QString("v%1").arg(i));
        variable.ring.set(int(random() % unsigned(rings)));
        variable.setData(Vector3::CompY, {uniform(random, -5, 5)});
        variable.fillMode.set(coin(random, 0.8) ? FenChart::fillSolid : FenChart::fillNone);
        variable.fillColor.set(Qt::black);
        if (coin(random, 0.5)) variable.lineMode.set(FenChart::lineNone);
        addVariable(result, variable);
    }
    return result;
}

/// Lays the scene out and lets the pointer rest on the first thing that it meets within an area.
void hover(FenVisScene& scene, QRect const& area)
{
    scene.resize(QSize(640, 400));
    scene.update();
    int const step = std::max(2, std::min(area.width(), area.height()) / 30);
    for (int y = area.top(); y <= area.bottom(); y += step)
        for (int x = area.left(); x <= area.right(); x += step) {
            FenVisPick const hit = scene.pick(QPoint(x, y), QSize(1, 1));
            auto const handler = hit.handler.lock();
            if (!handler) continue;
            QString tooltip;
            handler->OnMouseOver(hit.record, FenStringBuilder(), tooltip);
            return;
        }
}

/// The strip and, as it is hovered, the grips; box and border are the catch-all.
IdentityScene makeAnnotation(FenVisScene& scene, std::mt19937& random)
{
    IdentityScene result;
    auto& node = scene.add<FenVisAnnotation>("annotation");
    node.moveable.set(true);
    node.resizeable.set(coin(random, 0.5));
    QRect const box(int(uniform(random, 0, 100)), int(uniform(random, 0, 60)), int(uniform(random, 20, 500)),
                    int(uniform(random, 10, 300)));
    node.viewport.x.set(box.x());
    node.viewport.y.set(box.y());
    node.viewport.width.set(box.width());
    node.viewport.height.set(box.height());
    hover(scene, box);
    QColor const color = identity(0);
    constexpr int gripStep = 4; // [px] from one line of a grip to the next, and one
    result.things.push_back({color, &node, false, gripStep, [&node, color] { node.borderColor.set(color); }});
    return result;
}

/// The arrows; all have one label, so that all light up, and it is blank, as labels cannot be picked.
IdentityScene makeTriad(FenVisScene& scene, std::mt19937& random)
{
    IdentityScene result;
    auto& node = scene.add<FenVisTriad>("triad");
    node.lighting.set(false);
    node.labelISO.set(QString());
    for (auto* const label : {&node.labelPosX, &node.labelPosY, &node.labelPosZ}) label->set(" ");
    node.pixelSize.set(int(uniform(random, 60, 400)));
    node.viewport.placement.set(choose<QString>(random, {"bottomLeft", "topRight", "center"}));
    Vector3 const axis(float(uniform(random, -1, 1)), float(uniform(random, -1, 1)), 1);
    scene.viewpoint().modelView.set(Kes::Math::Matrix::rotate(axis, uniform(random, 5, 300)));
    FenOglViewport place;
    node.getViewport(FenOglViewport(0, 0, 640, 400), place);
    int const quarter = place.width() / 4; // the arrows reach no further
    hover(scene, QRect(place.origin(), place.size()).adjusted(quarter, quarter, -quarter, -quarter));
    result.things.push_back({QColor(255, 170, 0), &node, false, 1, [] {}}); // as what is hovered
    return result;
}

} // namespace

IdentityScene::Thing const* IdentityScene::drawnIn(QColor const& color) const
{
    for (Thing const& thing : things) {
        if (thing.color == color) return &thing;
    }
    return nullptr;
}

IdentityScene::Thing const* IdentityScene::ownedBy(FenProperties const* owner) const
{
    for (Thing const& thing : things) {
        if (owner && thing.owner == owner) return &thing;
    }
    return nullptr;
}

std::vector<IdentityKind> const& identityKinds()
{
    static std::vector<IdentityKind> const kinds = {
        {"2D chart", makeChart2D},
        {"parallel coordinates", makeItems<FenVisChartPCP>},
        {"spider", makeItems<FenVisChartSpider>},
        {"correlation chart", makeCorrelation},
        {"pie chart", makePie},
        {"annotation", makeAnnotation},
        {"triad", makeTriad},
    };
    return kinds;
}
