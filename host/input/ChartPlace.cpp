#include "host/input/ChartPlace.h"

#include "host/scene/Scene.h"

#include "charts/VisChart.h"

namespace {

FenOglViewport wholeOf(FenVisScene const& scene)
{
    return FenOglViewport(0, 0, scene.size().width(), scene.size().height());
}

/// Lists inside lists draw in the same rectangle and are searched too.
FenVisChart* chartIn(FenVisList& nodes, FenOglViewport const& parent, QPoint point)
{
    FenVisChart* found = nullptr;
    for (unsigned i = 0; i < nodes.size(); ++i) {
        FenVisualization* const node = nodes.at(i);
        if (!node || !node->enabled.get()) continue;
        if (auto* const list = dynamic_cast<FenVisList*>(node)) {
            if (FenVisChart* const inside = chartIn(*list, parent, point)) found = inside;
            continue;
        }
        auto* const chart = dynamic_cast<FenVisChart*>(node);
        FenOglViewport own;
        if (!chart || !chart->getViewport(parent, own) || !own.contains(point)) continue;
        if (!found || found->layer.get() <= chart->layer.get()) found = chart;
    }
    return found;
}

} // namespace

FenChart& fen::ChartPlace::content() const { return *contentOf(*chart); }

double fen::ChartPlace::fraction(QPoint point, bool horizontal) const
{
    return horizontal ? double(point.x() - data.x()) / data.width()
                      : double(point.y() - data.y()) / data.height();
}

FenVisChart* fen::chartAt(FenVisScene& scene, QPoint point)
{
    return chartIn(scene.root(), wholeOf(scene), point);
}

fen::ChartSides fen::sidesOf(FenVisualization& chart)
{
    ChartKind const* const kind = chartKindOf(chart);
    return kind && kind->sides && contentOf(chart) ? kind->sides(chart) : ChartSides();
}

fen::ChartPlace fen::placeOf(FenVisScene& scene, FenVisChart* chart)
{
    ChartPlace place;
    if (!chart || !chart->getViewport(wholeOf(scene), place.own)) return place;
    place.sides = sidesOf(*chart);
    if (place.sides.axes().empty()) return place;
    FenOglViewport const data = chart->getDataViewport();
    place.data =
        FenOglViewport(place.own.x() + data.x(), place.own.y() + data.y(), data.width(), data.height());
    if (place.data.valid()) place.chart = chart;
    return place;
}

void fen::forEachChart(FenVisList& nodes, std::function<void(FenVisChart&)> const& operation)
{
    for (unsigned i = 0; i < nodes.size(); ++i) {
        FenVisualization* const node = nodes.at(i);
        if (auto* const list = dynamic_cast<FenVisList*>(node)) forEachChart(*list, operation);
        if (auto* const chart = dynamic_cast<FenVisChart*>(node)) operation(*chart);
    }
}
