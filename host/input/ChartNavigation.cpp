#include "host/input/ChartNavigation.h"

#include "host/edit/UndoPropertyEdit.h"
#include "host/input/ChartPlace.h"
#include "host/input/NavigatedAxis.h"
#include "host/scene/Scene.h"
#include "host/scene/SceneObserver.h"

#include "charts/VisChart.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using fen::ChartPlace;
using fen::NavigatedAxis;

int const zoomSteps = 1; // id under which steps of the wheel join
int const smallestRubberBand = 4; // [px]
double const smallestSlip = 0.05; // [px] below it nobody sees that a value has moved

/// An axis as it is to be moved.
struct Moved {
    FenChartAxis* axis;
    NavigatedAxis range;
};

/// All axes for a point over the data, those of one side for a point beside it.
std::vector<Moved> axesAt(ChartPlace const& place, QPoint point)
{
    double const x = place.fraction(point, true);
    double const y = place.fraction(point, false);
    bool const inColumns = x >= 0 && x < 1;
    bool const inRows = y >= 0 && y < 1;
    std::vector<Moved> axes;
    auto const add = [&](bool wanted, fen::ChartSides::Side const& side, bool horizontal) {
        if (wanted && side.axis)
            axes.push_back({side.axis, NavigatedAxis(*side.axis, side.scale, horizontal)});
    };
    add(inColumns && y < 1, place.sides.bottom, true);
    add(inColumns && y >= 0, place.sides.top, true);
    add(inRows && x < 1, place.sides.left, false);
    add(inRows && x >= 0, place.sides.right, false);
    return axes;
}

/// Axes that have a range chosen by hand get an automatic one again.
bool fitAxes(FenUndoPropertyEdit& edit, FenVisChart& chart)
{
    bool changed = false;
    for (FenChartAxis* const axis : fen::sidesOf(chart).axes()) {
        if (axis->autoRange.get()) continue;
        edit.keep(*axis, axis->min.name());
        edit.keep(*axis, axis->max.name());
        edit.edit(*axis, axis->autoRange.name(), QStringLiteral("true"));
        changed = true;
    }
    return changed;
}

/// A value that is to lie under the pointer, whatever a new layout makes of the data rectangle.
struct Held {
    fen::view_ptr<FenVisChart> chart;
    fen::view_ptr<FenChartAxis> axis;
    bool horizontal;
    double value; // as `NavigatedAxis` measures
    QPoint point; // [px]
    bool inside = true; // a point beside the data stands for the nearest one over it

    /// The range that was chosen; when somebody else has changed it meanwhile nothing is held.
    double min = 0;
    double max = 0;

    /// The axis with the range that puts the value where it belongs.
    struct Wish {
        ChartPlace place;
        std::optional<NavigatedAxis> range;
        double fraction = 0;
    };
    Wish wish(FenVisScene& scene) const
    {
        Wish found;
        found.place = fen::placeOf(scene, chart.get());
        if (!found.place || !axis) return found;
        for (fen::ChartSides::Side const& side : {found.place.sides.bottom, found.place.sides.top,
                                                  found.place.sides.left, found.place.sides.right})
            if (side.axis == axis.get()) found.range.emplace(*side.axis, side.scale, horizontal);
        found.fraction = found.place.fraction(point, horizontal);
        if (inside) found.fraction = std::clamp(found.fraction, 0.0, 1.0);
        return found;
    }
    /// Shows a range of `extent` around the value, and remembers it.
    bool show(FenUndoPropertyEdit& edit, Wish const& at, double extent)
    {
        double const low = value - at.fraction * extent;
        if (!at.range->show(edit, at.place.content(), low, low + extent)) return false;
        min = axis->min.get();
        max = axis->max.get();
        return true;
    }
    bool stands() const
    {
        return axis && !axis->autoRange.get() && axis->min.get() == min && axis->max.get() == max;
    }
};

} // namespace

struct FenChartNavigation::State : IFenSceneObserver {
    explicit State(FenVisScene& theScene)
        : scene(theScene)
    {
        scene.addObserver(*this);
    }
    ~State() { scene.removeObserver(*this); }

    /// The layout may have moved what the pointer holds: wider labels take room from the data.
    bool sceneUpdated() override;

    FenVisScene& scene;
    fen::view_ptr<FenVisChart> dragged;
    bool dragging = false;
    std::vector<Held> grip; // what a drag holds, since its start
    std::vector<Held> held; // what was changed since the last layout
};

bool FenChartNavigation::State::sceneUpdated()
{
    bool changed = false;
    FenUndoPropertyEdit& edit = scene.propertyEdit();
    for (Held& one : std::exchange(held, {})) {
        if (!one.stands()) continue;
        Held::Wish const wish = one.wish(scene);
        if (!wish.range) continue;
        double const extent = wish.range->extent();
        double const slip = std::abs(wish.range->at(wish.fraction) - one.value) / extent
            * (one.horizontal ? wish.place.data.width() : wish.place.data.height());
        if (!(slip > smallestSlip)) continue;
        edit.amendStep();
        changed = one.show(edit, wish, extent) || changed;
        edit.endStep();
    }
    return changed;
}

FenChartNavigation::FenChartNavigation(FenVisScene& scene)
    : _state(std::make_unique<State>(scene))
{
}

FenChartNavigation::~FenChartNavigation() = default;

bool FenChartNavigation::zoom(QPoint point, double factor)
{
    FenVisScene& scene = _state->scene;
    ChartPlace const place = fen::placeOf(scene, fen::chartAt(scene, point));
    if (!place || !std::isfinite(factor) || factor <= 0 || factor == 1) return false;
    FenUndoPropertyEdit& edit = scene.propertyEdit();
    edit.beginStep(QStringLiteral("Zoom ") + place.chart->name(), zoomSteps);
    bool changed = false;
    for (Moved const& axis : axesAt(place, point)) {
        bool const horizontal = axis.range.horizontal();
        double const fraction = std::clamp(place.fraction(point, horizontal), 0.0, 1.0);
        Held held{place.chart, axis.axis, horizontal, axis.range.at(fraction), point};
        if (!held.show(edit, {place, axis.range, fraction}, axis.range.extent() * factor)) continue;
        _state->held.push_back(held);
        changed = true;
    }
    edit.endStep();
    return changed;
}

bool FenChartNavigation::zoomTo(QRect const& rectangle, QPoint from)
{
    FenVisScene& scene = _state->scene;
    ChartPlace const place = fen::placeOf(scene, fen::chartAt(scene, from));
    bool const largeEnough = std::max(rectangle.width(), rectangle.height()) > smallestRubberBand;
    if (!place || !largeEnough) return false;
    FenUndoPropertyEdit& edit = scene.propertyEdit();
    edit.beginStep(QStringLiteral("Zoom ") + place.chart->name());
    bool changed = false;
    for (Moved const& axis : axesAt(place, from)) {
        bool const horizontal = axis.range.horizontal();
        // A band drawn along one axis only leaves the other as it is.
        if ((horizontal ? rectangle.width() : rectangle.height()) <= smallestRubberBand) continue;
        double const low = std::max(0.0, place.fraction(rectangle.topLeft(), horizontal));
        double const high = std::min(1.0, place.fraction(rectangle.bottomRight() + QPoint(1, 1), horizontal));
        changed = axis.range.show(edit, place.content(), axis.range.at(low), axis.range.at(high)) || changed;
    }
    edit.endStep();
    return changed;
}

bool FenChartNavigation::fit(QPoint point)
{
    FenVisScene& scene = _state->scene;
    ChartPlace const place = fen::placeOf(scene, fen::chartAt(scene, point));
    if (!place) return false;
    FenUndoPropertyEdit& edit = scene.propertyEdit();
    edit.beginStep(QStringLiteral("Fit ") + place.chart->name());
    bool const changed = fitAxes(edit, *place.chart);
    edit.endStep();
    return changed;
}

bool FenChartNavigation::fitAll()
{
    FenUndoPropertyEdit& edit = _state->scene.propertyEdit();
    edit.beginStep(QStringLiteral("Fit all charts"));
    bool changed = false;
    fen::forEachChart(_state->scene.root(),
                      [&](FenVisChart& chart) { changed = fitAxes(edit, chart) || changed; });
    edit.endStep();
    return changed;
}

bool FenChartNavigation::canZoom(QPoint point) const
{
    return bool(fen::placeOf(_state->scene, fen::chartAt(_state->scene, point)));
}

bool FenChartNavigation::beginDrag(QPoint point)
{
    State& state = *_state;
    if (state.dragging) return false;
    ChartPlace const place = fen::placeOf(state.scene, fen::chartAt(state.scene, point));
    if (!place) return false;
    state.grip.clear();
    for (Moved const& axis : axesAt(place, point)) {
        bool const horizontal = axis.range.horizontal();
        double const value = axis.range.at(place.fraction(point, horizontal));
        state.grip.push_back({place.chart, axis.axis, horizontal, value, point, false});
    }
    if (state.grip.empty()) return false;
    FenUndoPropertyEdit& edit = state.scene.propertyEdit();
    edit.beginStep(QStringLiteral("Move ") + place.chart->name());
    edit.holdStep([this] { cancelDrag(); });
    state.dragging = true;
    state.dragged = place.chart;
    return true;
}

bool FenChartNavigation::drag(QPoint point)
{
    State& state = *_state;
    if (!state.dragging || !state.dragged) return false;
    bool changed = false;
    state.held.clear();
    for (Held& one : state.grip) {
        one.point = point;
        Held::Wish const wish = one.wish(state.scene);
        if (!wish.range || !one.show(state.scene.propertyEdit(), wish, wish.range->extent())) continue;
        state.held.push_back(one);
        changed = true;
    }
    return changed;
}

void FenChartNavigation::endDrag()
{
    if (!_state->dragging) return;
    _state->dragging = false;
    _state->scene.propertyEdit().endStep();
}

void FenChartNavigation::cancelDrag()
{
    if (!_state->dragging) return;
    _state->dragging = false;
    _state->scene.propertyEdit().cancelStep();
}

bool FenChartNavigation::dragging() const { return _state->dragging; }
