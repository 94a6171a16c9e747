#include "host/input/ChartNavigation.h"

#include "host/edit/UndoPropertyEdit.h"
#include "host/input/NavigatedAxis.h"
#include "host/scene/Scene.h"
#include "host/table/ChartKinds.h"

#include "charts/VisChart.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using fen::NavigatedAxis;

int const zoomSteps = 1; // id under which steps of the wheel join
int const smallestRubberBand = 4; // [px]

/// A chart and where it was laid out.
struct Place {
    FenVisChart* chart = nullptr; // null: none whose ranges can be chosen
    fen::ChartSides sides;
    FenOglViewport own; // [px, window]
    FenOglViewport data; // [px, window] rectangle of the data

    FenChart& content() const { return *fen::contentOf(*chart); }
};

/// The topmost chart under a point, and its rectangle. Lists inside lists draw in the same rectangle
/// and are searched too.
FenVisChart* chartAt(FenVisList& nodes, FenOglViewport const& parent, QPoint point, FenOglViewport& rectangle)
{
    FenVisChart* found = nullptr;
    for (unsigned i = 0; i < nodes.size(); ++i) {
        FenVisualization* const node = nodes.at(i);
        if (!node || !node->enabled.get()) continue;
        if (auto* const list = dynamic_cast<FenVisList*>(node)) {
            if (FenVisChart* const inside = chartAt(*list, parent, point, rectangle)) found = inside;
            continue;
        }
        auto* const chart = dynamic_cast<FenVisChart*>(node);
        FenOglViewport own;
        if (!chart || !chart->getViewport(parent, own) || !own.contains(point)) continue;
        if (found && found->layer.get() > chart->layer.get()) continue;
        found = chart;
        rectangle = own;
    }
    return found;
}

fen::ChartSides sidesOf(FenVisualization& chart)
{
    fen::ChartKind const* const kind = fen::chartKindOf(chart);
    return kind && kind->sides && fen::contentOf(chart) ? kind->sides(chart) : fen::ChartSides();
}

/// The chart under a point; none when it has no axes to move or no room for data.
Place placeAt(FenVisScene& scene, QPoint point)
{
    Place place;
    FenOglViewport const whole(0, 0, scene.size().width(), scene.size().height());
    FenVisChart* const chart = chartAt(scene.root(), whole, point, place.own);
    if (!chart) return place;
    place.sides = sidesOf(*chart);
    if (place.sides.axes().empty()) return place;
    FenOglViewport const data = chart->getDataViewport();
    place.data =
        FenOglViewport(place.own.x() + data.x(), place.own.y() + data.y(), data.width(), data.height());
    if (place.data.valid()) place.chart = chart;
    return place;
}

/// All axes for a point over the data, those of one side for a point beside it.
std::vector<NavigatedAxis> axesAt(Place const& place, QPoint point)
{
    bool const left = point.x() < place.data.x();
    bool const right = point.x() >= place.data.x() + place.data.width();
    bool const below = point.y() < place.data.y();
    bool const above = point.y() >= place.data.y() + place.data.height();
    std::vector<NavigatedAxis> axes;
    auto const add = [&](bool wanted, fen::ChartSides::Side const& side, bool horizontal) {
        if (wanted && side.axis) axes.emplace_back(*side.axis, side.scale, horizontal);
    };
    bool const inRows = !below && !above;
    bool const inColumns = !left && !right;
    add(inColumns && !above, place.sides.bottom, true);
    add(inColumns && !below, place.sides.top, true);
    add(inRows && !right, place.sides.left, false);
    add(inRows && !left, place.sides.right, false);
    return axes;
}

/// Where a point lies along an axis; 0 to 1 inside the data rectangle.
double fractionAt(Place const& place, QPoint point, bool horizontal)
{
    return horizontal ? double(point.x() - place.data.x()) / place.data.width()
                      : double(point.y() - place.data.y()) / place.data.height();
}

/// Axes that have a range chosen by hand get an automatic one again.
bool fitAxes(FenUndoPropertyEdit& edit, FenVisChart& chart)
{
    bool changed = false;
    for (FenChartAxis* const axis : sidesOf(chart).axes()) {
        if (axis->autoRange.get()) continue;
        edit.keep(*axis, axis->min.name());
        edit.keep(*axis, axis->max.name());
        edit.edit(*axis, axis->autoRange.name(), QStringLiteral("true"));
        changed = true;
    }
    return changed;
}

void forEachChart(FenVisList& nodes, std::function<void(FenVisChart&)> const& operation)
{
    for (unsigned i = 0; i < nodes.size(); ++i) {
        FenVisualization* const node = nodes.at(i);
        if (auto* const list = dynamic_cast<FenVisList*>(node)) forEachChart(*list, operation);
        if (auto* const chart = dynamic_cast<FenVisChart*>(node)) operation(*chart);
    }
}

} // namespace

/// A chart that is being moved.
struct FenChartNavigation::Drag {
    QPoint start; // [px]
    Place place;
    fen::view_ptr<FenVisChart> chart; // as in `place`; null when it is gone
    std::vector<NavigatedAxis> axes; // as they were at the start
};

FenChartNavigation::FenChartNavigation(FenVisScene& scene)
    : _scene(scene)
{
}

FenChartNavigation::~FenChartNavigation() = default;

bool FenChartNavigation::zoom(QPoint point, double factor)
{
    Place const place = placeAt(_scene, point);
    if (!place.chart || !std::isfinite(factor) || factor <= 0 || factor == 1) return false;
    FenUndoPropertyEdit& edit = _scene.propertyEdit();
    edit.beginStep(QStringLiteral("Zoom ") + place.chart->name(), zoomSteps);
    bool changed = false;
    for (NavigatedAxis const& axis : axesAt(place, point)) {
        double const at = std::clamp(fractionAt(place, point, axis.horizontal()), 0.0, 1.0);
        changed = axis.show(edit, place.content(), at - at * factor, at + (1 - at) * factor) || changed;
    }
    edit.endStep();
    return changed;
}

bool FenChartNavigation::zoomTo(QRect const& rectangle, QPoint from)
{
    Place const place = placeAt(_scene, from);
    bool const largeEnough = std::max(rectangle.width(), rectangle.height()) > smallestRubberBand;
    if (!place.chart || !largeEnough) return false;
    FenUndoPropertyEdit& edit = _scene.propertyEdit();
    edit.beginStep(QStringLiteral("Zoom ") + place.chart->name());
    bool changed = false;
    for (NavigatedAxis const& axis : axesAt(place, from)) {
        bool const horizontal = axis.horizontal();
        // A band drawn along one axis only leaves the other as it is.
        if ((horizontal ? rectangle.width() : rectangle.height()) <= smallestRubberBand) continue;
        double const low = fractionAt(place, rectangle.topLeft(), horizontal);
        double const high = fractionAt(place, rectangle.bottomRight() + QPoint(1, 1), horizontal);
        changed = axis.show(edit, place.content(), std::max(0.0, low), std::min(1.0, high)) || changed;
    }
    edit.endStep();
    return changed;
}

bool FenChartNavigation::fit(QPoint point)
{
    Place const place = placeAt(_scene, point);
    if (!place.chart) return false;
    FenUndoPropertyEdit& edit = _scene.propertyEdit();
    edit.beginStep(QStringLiteral("Fit ") + place.chart->name());
    bool const changed = fitAxes(edit, *place.chart);
    edit.endStep();
    return changed;
}

bool FenChartNavigation::fitAll()
{
    FenUndoPropertyEdit& edit = _scene.propertyEdit();
    edit.beginStep(QStringLiteral("Fit all charts"));
    bool changed = false;
    forEachChart(_scene.root(), [&](FenVisChart& chart) { changed = fitAxes(edit, chart) || changed; });
    edit.endStep();
    return changed;
}

bool FenChartNavigation::canZoom(QPoint point) const { return placeAt(_scene, point).chart != nullptr; }

bool FenChartNavigation::beginDrag(QPoint point)
{
    if (_drag) return false;
    auto drag = std::make_unique<Drag>();
    drag->start = point;
    drag->place = placeAt(_scene, point);
    if (!drag->place.chart) return false;
    drag->chart = drag->place.chart;
    drag->axes = axesAt(drag->place, point);
    if (drag->axes.empty()) return false;
    _scene.propertyEdit().beginStep(QStringLiteral("Move ") + drag->place.chart->name());
    _drag = std::move(drag);
    return true;
}

bool FenChartNavigation::drag(QPoint point)
{
    if (!_drag || !_drag->chart) return false;
    FenUndoPropertyEdit& edit = _scene.propertyEdit();
    QPoint const way = point - _drag->start;
    bool changed = false;
    FenOglViewport const& data = _drag->place.data;
    for (NavigatedAxis const& axis : _drag->axes) {
        double const moved =
            axis.horizontal() ? double(way.x()) / data.width() : double(way.y()) / data.height();
        changed = axis.show(edit, _drag->place.content(), -moved, 1 - moved) || changed;
    }
    return changed;
}

void FenChartNavigation::endDrag()
{
    if (!_drag) return;
    _drag.reset();
    _scene.propertyEdit().endStep();
}

void FenChartNavigation::cancelDrag()
{
    if (!_drag) return;
    _drag.reset();
    _scene.propertyEdit().cancelStep();
}

bool FenChartNavigation::dragging() const { return bool(_drag); }
