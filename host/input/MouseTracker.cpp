#include "host/input/MouseTracker.h"

#include "host/edit/UndoPropertyEdit.h"
#include "host/input/ChartNavigation.h"
#include "host/input/MouseTrackerState.h"
#include "host/scene/Scene.h"

#include "services/math/BoundingBox.h"

#include <algorithm>
#include <cmath>

namespace {

double const zoomPerStep = 0.8; // extent of the range after one notch over the one before
double const mostSteps = 20;

} // namespace

FenMouseTracker::FenMouseTracker(FenVisScene& scene)
    : _state(std::make_unique<State>(scene))
{
    _state->rest.setSingleShot(true);
    QObject::connect(&_state->rest, &QTimer::timeout, &_state->rest, [this] { _state->hover(); });
}

FenMouseTracker::~FenMouseTracker() = default;

void FenMouseTracker::setOutput(Output output) { _state->output = std::move(output); }

void FenMouseTracker::setOnSelect(std::function<void(FenVisHitProperty const& what)> selected)
{
    _state->selected = std::move(selected);
}

void FenMouseTracker::setInteraction(Interaction interaction, bool enabled)
{
    unsigned& all = _state->interactions;
    all = enabled ? all | interaction : all & ~unsigned(interaction);
    if (interaction & Hover && !enabled) leave();
}

bool FenMouseTracker::interaction(Interaction interaction) const { return _state->may(interaction); }
void FenMouseTracker::setHoverDelay(int milliseconds) { _state->rest.setInterval(std::max(0, milliseconds)); }
void FenMouseTracker::setDragThreshold(int pixels) { _state->dragThreshold = std::max(0, pixels); }
void FenMouseTracker::setPickSize(QSize size) { _state->pickSize = size.expandedTo(QSize(1, 1)); }
bool FenMouseTracker::pressed() const { return _state->button != Qt::NoButton; }
bool FenMouseTracker::dragging() const { return _state->draggingSomething(); }
FenVisHitProperty FenMouseTracker::hovered() const { return _state->hovered.property; }
QString FenMouseTracker::tooltip() const { return _state->tooltip; }
FenChartNavigation& FenMouseTracker::navigation() { return _state->navigation; }
FenCamera& FenMouseTracker::camera() { return _state->camera; }

bool FenMouseTracker::key(int key, Qt::KeyboardModifiers modifiers)
{
    if (QPoint const way = State::arrowWay(key, modifiers); !way.isNull()) return _state->moveBox(way);
    if (modifiers & ~Qt::KeypadModifier) return false;
    static char const* const directions[] = {"front", "back", "left", "right", "top", "bottom", "iso"};
    FenVisScene& scene = _state->scene;
    if (pressed() || !_state->may(Pan) || !scene.root().boundingBox().defined()) return false;
    if (key >= Qt::Key_1 && key <= Qt::Key_7)
        return _state->answer(_state->camera.look(QLatin1String(directions[key - Qt::Key_1])));
    if (key != Qt::Key_P) return false;
    return _state->answer(_state->camera.setPerspective(!scene.perspective.get()));
}

bool FenMouseTracker::press(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    State& state = *_state;
    if (pressed()) return false; // what the first button does goes on
    bool const unseen = state.rest.isActive(); // what is here was not hovered yet
    state.rest.stop();
    state.button = button;
    state.pressPoint = state.lastPoint = point;
    state.phase = State::Waiting;
    state.rubberBand =
        button == Qt::RightButton || (button == Qt::LeftButton && modifiers & Qt::ShiftModifier);
    bool const forNodes = button == Qt::LeftButton && !state.rubberBand && state.may(NodeDrag, Select);
    state.hit = forNodes ? state.pick(point) : State::Hit();
    if (!forNodes) return false;
    bool const redraw = unseen && state.may(Hover) && state.enter(state.hit);
    // The handler has found out more about what it was told.
    if (state.hit.property.isPropertyEqual(state.hovered.property))
        state.hit.property = state.hovered.property;
    return state.answer(redraw);
}

bool FenMouseTracker::move(QPoint point)
{
    State& state = *_state;
    if (pressed()) return state.answer(state.drag(point));
    state.lastPoint = point;
    state.inside = true;
    if (state.may(Hover)) state.hoverSoon();
    return false;
}

bool FenMouseTracker::release(QPoint point, Qt::MouseButton button)
{
    State& state = *_state;
    if (button == Qt::NoButton || button != state.button) return false;
    bool redraw = point != state.lastPoint && state.drag(point);
    redraw = state.finish() || redraw;
    state.button = Qt::NoButton;
    state.phase = State::Idle;
    state.hit = State::Hit();
    move(point);
    return state.answer(redraw);
}

bool FenMouseTracker::releaseLost(QPoint point)
{
    bool const redraw = cancel();
    return release(point, _state->button) || redraw;
}

bool FenMouseTracker::doubleClick(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    State& state = *_state;
    bool const plain = button == Qt::LeftButton && !(modifiers & Qt::ShiftModifier);
    bool const fits = !pressed() && plain && state.may(DoubleClickFit) && state.chartIsOnTop(point);
    if (fits && (state.navigation.fit(point) || (state.camera.takes(point) && state.camera.fit())))
        return state.answer(true);
    return press(point, button, modifiers);
}

bool FenMouseTracker::wheel(QPoint point, double steps)
{
    State& state = *_state;
    if (pressed() || !state.may(WheelZoom) || !std::isfinite(steps)) return false;
    double const factor = std::pow(zoomPerStep, std::clamp(steps, -mostSteps, mostSteps));
    bool const zoomed = state.camera.takes(point) ? state.camera.zoomBy(1 / factor, point)
                                                  : state.navigation.zoom(point, factor);
    if (!zoomed) return false;
    move(point); // the pointer is over something else now
    return state.answer(true);
}

bool FenMouseTracker::takesWheel(QPoint point) const
{
    bool const zooms = _state->navigation.canZoom(point) || _state->camera.takes(point);
    return pressed() || (_state->may(WheelZoom) && zooms);
}

bool FenMouseTracker::leave()
{
    State& state = *_state;
    if (pressed()) return false; // a drag may come back
    state.inside = false;
    state.rest.stop();
    return state.answer(state.unhover());
}

bool FenMouseTracker::cancel()
{
    State& state = *_state;
    if (!pressed()) return false;
    return state.answer(state.abandon());
}

bool FenMouseTracker::flush()
{
    if (!_state->rest.isActive()) return false;
    _state->rest.stop();
    return _state->hover();
}
