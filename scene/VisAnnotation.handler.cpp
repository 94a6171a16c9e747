#include "scene/VisAnnotation.handler.h"

#include "picking/hits/VisHitRecord.h"

namespace {

typedef FenVisHitResizeQualifier::ResizeArea ResizeArea;

constexpr QSize leastBox(10, 10); // [px] what a resize leaves

fen::DraggedEdges edgesOf(ResizeArea area)
{
    fen::DraggedEdges edges;
    edges.left = area == ResizeArea::TopLeft || area == ResizeArea::BottomLeft;
    edges.right = !edges.left;
    edges.bottom = area == ResizeArea::BottomLeft || area == ResizeArea::BottomRight;
    edges.top = !edges.bottom;
    return edges;
}

} // namespace

FenVisAnnotation::HitDetectEventHandler::HitDetectEventHandler(FenVisAnnotation& annotation)
    : FenVisHoverHandler(annotation)
{
}

FenOglViewport FenVisAnnotation::HitDetectEventHandler::box() const
{
    // A box that was smaller from the start may be moved as it is.
    return _drag.box(leastBox.boundedTo(_start.size()));
}

void FenVisAnnotation::HitDetectEventHandler::begin(FenVisAnnotation const& annotation,
                                                    FenVisHitProperty const& what)
{
    _start = annotation._box;
    _drag.begin(_start);
    _moving = dynamic_cast<FenVisHitMoveQualifier const*>(what.qualifier.get());
    auto const* const corner = dynamic_cast<FenVisHitResizeQualifier const*>(what.qualifier.get());
    _resizing = corner;
    if (corner) _area = corner->area;
}

bool FenVisAnnotation::HitDetectEventHandler::OnMouseDrag(FenVisHitRecord const& hit, QPoint offset)
{
    auto const* const annotation = nodeAs<FenVisAnnotation>();
    FenVisHitProperty const what = lookUp(hit);
    if (!annotation || !what.isPropertyEqual(annotation)) return false;
    if (!_drag.active()) begin(*annotation, what);
    if (_moving && annotation->draggable()) _drag.move(offset);
    if (_resizing && annotation->resizeable.get()) _drag.move(offset, edgesOf(_area));
    return true;
}

bool FenVisAnnotation::HitDetectEventHandler::OnMouseRelease(FenVisHitRecord const& hit)
{
    auto* const annotation = nodeAs<FenVisAnnotation>();
    bool const ours = annotation && lookUp(hit).isPropertyEqual(annotation);
    if (ours && _drag.active() && !(box() == _start)) store(*annotation);
    end();
    return ours;
}

void FenVisAnnotation::HitDetectEventHandler::store(FenVisAnnotation& annotation) const
{
    annotation._box = box(); // the next drag may come before the next layout
    annotation.viewport =
        FenOglViewport::fitToParent(annotation.group(), annotation._box, annotation._parent);
}

void FenVisAnnotation::HitDetectEventHandler::end()
{
    _drag.end();
    _moving = _resizing = false;
}
