#include "host/input/MouseTrackerState.h"

#include "picking/hits/VisHitQualifiers.h"
#include "scene/VisAnnotation.h"

#include <boost/make_shared.hpp>

#include <algorithm>

// What the tracker does for boxes that are moved and resized.

namespace {

bool movable(FenVisAnnotation const& box) { return box.moveable.get() || box.resizeable.get(); }

Qt::CursorShape cornerShape(FenVisHitResizeQualifier::ResizeArea area)
{
    bool const falling =
        area == FenVisHitResizeQualifier::TopLeft || area == FenVisHitResizeQualifier::BottomRight;
    return falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
}

Qt::CursorShape shapeOver(FenVisAnnotation const& box, FenVisHitProperty const& what)
{
    auto const* const corner = dynamic_cast<FenVisHitResizeQualifier const*>(what.qualifier.get());
    if (corner) return box.resizeable.get() ? cornerShape(corner->area) : Qt::ArrowCursor;
    bool const strip = dynamic_cast<FenVisHitMoveQualifier const*>(what.qualifier.get());
    return strip && movable(box) ? Qt::SizeAllCursor : Qt::ArrowCursor;
}

} // namespace

QPoint FenMouseTracker::State::inPicture(QPoint point) const
{
    return QPoint(std::clamp(point.x(), 0, std::max(0, scene.size().width() - 1)),
                  std::clamp(point.y(), 0, std::max(0, scene.size().height() - 1)));
}

void FenMouseTracker::State::showCursor(Hit const& over)
{
    auto const* const annotation = dynamic_cast<FenVisAnnotation const*>(over.source.get());
    Qt::CursorShape const shape =
        annotation && may(NodeDrag) ? shapeOver(*annotation, over.property) : Qt::ArrowCursor;
    if (shape == cursor) return;
    cursor = shape;
    if (output.cursor) output.cursor(shape);
}

QPoint FenMouseTracker::State::arrowWay(int key, Qt::KeyboardModifiers modifiers)
{
    constexpr int fine = 1, coarse = 10; // [px]
    int const step = modifiers & Qt::ShiftModifier ? coarse : fine;
    if (modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier)) return QPoint();
    switch (key) {
    case Qt::Key_Left:
        return QPoint(-step, 0);
    case Qt::Key_Right:
        return QPoint(step, 0);
    case Qt::Key_Up:
        return QPoint(0, step);
    case Qt::Key_Down:
        return QPoint(0, -step);
    default:
        return QPoint();
    }
}

bool FenMouseTracker::State::moveBox(QPoint way)
{
    auto const* const annotation = dynamic_cast<FenVisAnnotation const*>(box.source.get());
    if (!annotation || button != Qt::NoButton || !may(NodeDrag) || !movable(*annotation)) return false;
    hit = box;
    hit.property = FenVisHitProperty(annotation, boost::make_shared<FenVisHitMoveQualifier>());
    phase = Undecided;
    bool const moved = dragNodeBy(-way) && releaseNode();
    phase = Idle;
    hit = Hit();
    return answer(moved);
}
