#include "host/camera/Camera.h"

#include "host/camera/CameraPose.h"
#include "host/edit/UndoPropertyEdit.h"
#include "host/input/ChartPlace.h"
#include "host/scene/Scene.h"

#include "charts/VisChart.h"
#include "scene/VisViewpoint.h"
#include "services/math/BoundingBox.h"
#include "services/properties/ValueText.h"

#include <cmath>

namespace {

using fen::CameraPose;

constexpr double degreesPerHeight = 180; // turned by a drag over the whole height of the picture
int const zoomSteps = 3; // id under which steps of the wheel join

} // namespace

struct FenCamera::State {
    FenVisScene& scene;
    bool dragging = false;
    bool moves = false;
    QPoint start; // [px]
    CameraPose before;

    double aspect() const
    {
        QSize const size = scene.size();
        return size.isEmpty() ? 1.0 : double(size.width()) / size.height();
    }
    CameraPose pose() const
    {
        return CameraPose::of(scene.viewpoint().modelView.get(), scene.root().boundingBox(), aspect());
    }
    double halfHeight() const { return std::max(1, scene.size().height()) * 0.5; }

    bool show(CameraPose const& wanted, QString const& text, int mergeId = -1)
    {
        FenVisViewpoint& viewpoint = scene.viewpoint();
        Kes::Math::Matrix const matrix = wanted.limited().matrix(scene.root().boundingBox(), aspect());
        if (matrix == viewpoint.modelView.get()) return false;
        FenUndoPropertyEdit& edit = scene.propertyEdit();
        edit.beginStep(text, mergeId);
        edit.edit(viewpoint, viewpoint.modelView.name(), fen::toText(matrix));
        edit.endStep();
        return true;
    }
};

FenCamera::FenCamera(FenVisScene& scene)
    : _state(new State{scene, false, false, QPoint(), {}})
{
}

FenCamera::~FenCamera() = default;

double FenCamera::azimuth() const { return _state->pose().azimuth; }
double FenCamera::elevation() const { return _state->pose().elevation; }
double FenCamera::zoom() const { return _state->pose().zoom; }

bool FenCamera::turn(double azimuth, double elevation)
{
    CameraPose pose = _state->pose();
    pose.azimuth = azimuth;
    pose.elevation = elevation;
    return _state->show(pose, QStringLiteral("Turn"));
}

bool FenCamera::look(QString const& direction)
{
    auto const pose = CameraPose::named(direction);
    return pose && _state->show(*pose, QStringLiteral("Look from: ") + direction);
}

bool FenCamera::fit()
{
    CameraPose const now = _state->pose();
    return _state->show(CameraPose{now.azimuth, now.elevation}, QStringLiteral("Fit"));
}

bool FenCamera::zoomBy(double factor, QPoint point)
{
    if (!std::isfinite(factor) || factor <= 0) return false;
    CameraPose const now = _state->pose();
    CameraPose next = now;
    next.zoom = now.zoom * factor;
    double const grown = next.limited().zoom / now.zoom;
    double const half = _state->halfHeight();
    QSize const size = _state->scene.size();
    double const x = (point.x() + 0.5 - size.width() * 0.5) / half;
    double const y = (point.y() + 0.5 - half) / half;
    next.panX = x - (x - now.panX) * grown;
    next.panY = y - (y - now.panY) * grown;
    return _state->show(next, QStringLiteral("Zoom"), zoomSteps);
}

bool FenCamera::zoomTo(double zoom)
{
    CameraPose pose = _state->pose();
    pose.zoom = zoom;
    return _state->show(pose, QStringLiteral("Zoom"));
}

bool FenCamera::move(double right, double up)
{
    CameraPose pose = _state->pose();
    pose.panX += right;
    pose.panY += up;
    return _state->show(pose, QStringLiteral("Move"));
}

bool FenCamera::setPerspective(bool perspective)
{
    FenVisScene& scene = _state->scene;
    if (scene.perspective.get() == perspective) return false;
    scene.propertyEdit().edit(scene.root(), scene.perspective.name(), fen::toText(perspective));
    return true;
}

bool FenCamera::takes(QPoint point) const
{
    FenVisScene& scene = _state->scene;
    if (!scene.root().boundingBox().defined()) return false;
    FenVisChart const* const chart = fen::chartAt(scene, point);
    return !chart || chart->boundingBox().defined();
}

bool FenCamera::beginDrag(QPoint point, bool moves)
{
    State& state = *_state;
    if (state.dragging || !takes(point)) return false;
    state.before = state.pose();
    state.start = point;
    state.moves = moves;
    state.dragging = true;
    FenUndoPropertyEdit& edit = state.scene.propertyEdit();
    edit.beginStep(moves ? QStringLiteral("Move") : QStringLiteral("Turn"));
    edit.holdStep([this] { cancelDrag(); });
    return true;
}

bool FenCamera::drag(QPoint point)
{
    State& state = *_state;
    if (!state.dragging) return false;
    QPointF const way = QPointF(point - state.start) / state.halfHeight();
    CameraPose pose = state.before;
    if (state.moves) {
        pose.panX += way.x();
        pose.panY += way.y();
    } else {
        pose.azimuth -= way.x() * degreesPerHeight * 0.5;
        pose.elevation -= way.y() * degreesPerHeight * 0.5;
    }
    return state.show(pose, QString());
}

void FenCamera::endDrag()
{
    if (!std::exchange(_state->dragging, false)) return;
    _state->scene.propertyEdit().endStep();
}

void FenCamera::cancelDrag()
{
    if (!std::exchange(_state->dragging, false)) return;
    _state->scene.propertyEdit().cancelStep();
}
