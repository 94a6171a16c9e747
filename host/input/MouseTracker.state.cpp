#include "host/input/MouseTrackerState.h"

#include "host/edit/UndoPropertyEdit.h"
#include "host/input/ChartPlace.h"
#include "host/link/LinkedSelection.h"
#include "host/scene/Scene.h"

#include "charts/VisChart.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/properties/StringBuilder.h"

#include <QStringList>

#include <algorithm>

namespace {

/// Name of a node for a menu: its own, or the last word of its type when it has none of its own.
QString titleOf(FenVisualization const& node)
{
    QString const name = node.name();
    if (!name.isEmpty() && name != node.type()) return name;
    return node.type().section(QLatin1Char('.'), -1);
}

/// "Move annotation", "Resize legend"; empty when something else was changed.
QString describeDrag(FenVisualization const& node, FenVisHitProperty const& what,
                     std::vector<QString> const& keys)
{
    if (dynamic_cast<FenVisHitResizeQualifier const*>(what.qualifier.get()))
        return QStringLiteral("Resize ") + titleOf(node);
    bool const placed = std::any_of(keys.begin(), keys.end(), [](QString const& key) {
        return key == QLatin1String("x") || key == QLatin1String("y") || key == QLatin1String("placement");
    });
    return placed ? QStringLiteral("Move ") + titleOf(node) : QString();
}

} // namespace

bool FenMouseTracker::State::answer(bool redraw) const
{
    if (redraw && output.redraw) output.redraw();
    return redraw;
}

FenMouseTracker::State::Hit FenMouseTracker::State::pick(QPoint point) const
{
    if (output.makeCurrent) output.makeCurrent();
    return Hit(scene.pick(point, pickSize));
}

/// Calls the handler of a hit with its name standing for what it stood for when it was picked, and
/// keeps what the handler found out about it. Nothing is called when node or handler is gone.
template <class Call>
bool FenMouseTracker::State::tell(Hit& to, Call const& call)
{
    boost::shared_ptr<IFenVisEventHandler> const handler = to.handler.lock();
    FenVisualization const* const source = to.source.get();
    if (!handler || !source) return false;
    quint32 const name = to.record.context();
    FenVisHitTable const present = source->hitProperties();
    source->hitProperties().insert(name, to.property);
    bool const result = call(*handler, to.record);
    FenVisualization const* const still = to.source.get();
    if (!still) return result;
    FenVisHitProperty const known = still->hitProperty(name);
    if (known.defined()) to.property = known;
    still->hitProperties() = present;
    return result;
}

bool FenMouseTracker::State::sceneUpdated()
{
    if (inside && button == Qt::NoButton && may(Hover) && !rest.isActive()) hoverSoon();
    return false;
}

void FenMouseTracker::State::hoverSoon()
{
    if (!rest.isActive()) {
        moving.start();
        rest.start();
    } else if (moving.elapsed() + rest.interval() < std::max(longestWait, rest.interval())) {
        rest.start(); // moves again
    }
}

bool FenMouseTracker::State::chartIsOnTop(QPoint point) const
{
    Hit const top = pick(point);
    FenVisChart const* const chart = fen::chartAt(scene, point);
    return !top || !chart || top.node == chart;
}

bool FenMouseTracker::State::hover()
{
    if (!may(Hover) || button != Qt::NoButton) return false;
    return answer(enter(pick(lastPoint)));
}

bool FenMouseTracker::State::enter(Hit next)
{
    boost::shared_ptr<IFenVisEventHandler> const handler = next.handler.lock();
    bool const same = handler == hovered.handler.lock() && next.property.isPropertyEqual(hovered.property);
    bool redraw = !same && forgetHovered();
    QString text = same ? tooltip : QString();
    if (handler && handler->OnMouseOver(next.record, FenStringBuilder(scene.numberFormat), text)) {
        redraw = true;
        // The handler may have found out more about the hit.
        if (auto const* const source = next.source.get())
            next.property = source->hitProperty(next.record.context());
    }
    hovered = next;
    showCursor(hovered);
    setTooltip(text);
    return scene.links().hover(hovered.property, hovered.source.get()) || redraw;
}

bool FenMouseTracker::State::forgetHovered()
{
    Hit left = std::exchange(hovered, Hit());
    QString text = tooltip;
    return tell(left, [&](IFenVisEventHandler& handler, FenVisHitRecord const& record) {
        return handler.OnMouseLeave(record, FenStringBuilder(scene.numberFormat), text);
    });
}

bool FenMouseTracker::State::unhover()
{
    bool const redraw = forgetHovered();
    showCursor(Hit());
    setTooltip(QString());
    return scene.links().hover(FenVisHitProperty(), nullptr) || redraw;
}

void FenMouseTracker::State::setTooltip(QString const& text)
{
    bool const tellOwner = output.tooltip && !(text.isEmpty() && tooltip.isEmpty());
    tooltip = text;
    if (tellOwner) output.tooltip(text, lastPoint);
}

QRect FenMouseTracker::State::rectangle() const
{
    QPoint const low(std::min(pressPoint.x(), lastPoint.x()), std::min(pressPoint.y(), lastPoint.y()));
    QPoint const high(std::max(pressPoint.x(), lastPoint.x()), std::max(pressPoint.y(), lastPoint.y()));
    return QRect(low, high);
}

bool FenMouseTracker::State::drag(QPoint point)
{
    bool const far = (point - pressPoint).manhattanLength() >= dragThreshold && point != pressPoint;
    if (phase == Waiting && far) phase = Undecided;
    bool redraw = false;
    if (phase == Undecided) {
        redraw = startDrag(point);
    } else if (phase == NodeDrags) {
        redraw = dragNode(point);
    } else if (phase == Navigates) {
        redraw = navigation.drag(point);
    } else if (phase == Looks) {
        redraw = camera.drag(point);
    }
    if (phase != Waiting) lastPoint = point;
    if (phase == RubberBands && output.rubberBand) output.rubberBand(rectangle());
    return redraw;
}

bool FenMouseTracker::State::startDrag(QPoint point)
{
    setTooltip(QString());
    if (rubberBand && may(Pan) && startLooking(point, true)) return true;
    if (rubberBand) {
        phase = may(RubberBand) && navigation.canZoom(pressPoint) ? RubberBands : Over;
        return false;
    }
    if (button != Qt::LeftButton) {
        phase = Over;
        return false;
    }
    if (may(NodeDrag) && dragNode(point)) return true;
    if (phase == Undecided && may(Pan) && navigation.beginDrag(pressPoint)) {
        phase = Navigates;
        return navigation.drag(point);
    }
    if (phase == Undecided && may(Pan)) return startLooking(point, false);
    return false; // offered again with the next move
}

bool FenMouseTracker::State::startLooking(QPoint point, bool moves)
{
    if (!camera.beginDrag(pressPoint, moves)) return false;
    phase = Looks;
    return camera.drag(point);
}

bool FenMouseTracker::State::dragNode(QPoint point)
{
    // The pointer may leave the window; what it has grabbed stays where it can be grabbed again.
    return dragNodeBy(inPicture(lastPoint) - inPicture(point));
}

bool FenMouseTracker::State::dragNodeBy(QPoint offset)
{
    FenVisualization const* const source = hit.source.get();
    if (hit.handler.expired() || !source) {
        if (phase != NodeDrags) return false;
        phase = Over; // the node was deleted while it was dragged
        scene.propertyEdit().endStep();
        return true;
    }
    bool const starts = phase != NodeDrags;
    if (starts) {
        // The scene owns its nodes; hits see them const because picking changes nothing.
        before = fen::TreeSnapshot(const_cast<FenVisualization&>(*source));
        scene.propertyEdit().beginStep();
    }
    bool const taken = tell(hit, [&](IFenVisEventHandler& handler, FenVisHitRecord const& record) {
        return handler.OnMouseDrag(record, offset);
    });
    if (taken) phase = NodeDrags;
    if (starts && taken) scene.propertyEdit().holdStep([this] { abandon(); });
    if (starts && !taken) scene.propertyEdit().endStep();
    return taken;
}

bool FenMouseTracker::State::finish()
{
    switch (phase) {
    case Waiting:
        return click();
    case NodeDrags:
        return releaseNode();
    case Navigates:
        navigation.endDrag();
        return true;
    case Looks:
        camera.endDrag();
        return true;
    case RubberBands:
        if (output.rubberBand) output.rubberBand(QRect());
        return navigation.zoomTo(rectangle(), pressPoint);
    default:
        return false;
    }
}

bool FenMouseTracker::State::releaseNode()
{
    FenUndoPropertyEdit& edit = scene.propertyEdit();
    bool const redraw = tell(hit, [](IFenVisEventHandler& handler, FenVisHitRecord const& record) {
        return handler.OnMouseRelease(record);
    });
    std::vector<QString> const keys = before.noteChanges(edit);
    FenVisualization const* const source = hit.source.get();
    if (source && !keys.empty()) {
        edit.beginStep(describeDrag(*source, hit.property, keys)); // names the open step
        edit.endStep();
    }
    edit.endStep();
    before = fen::TreeSnapshot();
    return redraw;
}

bool FenMouseTracker::State::click()
{
    if (button != Qt::LeftButton || rubberBand || !may(Select)) return false;
    bool const redraw = tell(hit, [](IFenVisEventHandler& handler, FenVisHitRecord const& record) {
        return handler.OnMouseSelect(record);
    });
    box = hit;
    FenVisHitProperty const what = hit.property;
    if (selected && what.defined()) selected(what);
    return redraw;
}

bool FenMouseTracker::State::abandon()
{
    Phase const was = phase;
    phase = Over;
    if (was == Navigates || was == Looks) {
        navigation.cancelDrag();
        camera.cancelDrag();
        return true;
    }
    if (was == RubberBands && output.rubberBand) output.rubberBand(QRect());
    if (was != NodeDrags) return false;
    FenUndoPropertyEdit& edit = scene.propertyEdit();
    // The handler ends its drag, then everything is put back as it was.
    tell(hit, [](IFenVisEventHandler& handler, FenVisHitRecord const& record) {
        return handler.OnMouseRelease(record);
    });
    before.noteChanges(edit);
    edit.cancelStep();
    before = fen::TreeSnapshot();
    if (FenVisualization const* const source = hit.source.get())
        const_cast<FenVisualization*>(source)->modify(); // what it holds beside its properties is made anew
    return true;
}
