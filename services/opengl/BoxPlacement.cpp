#include "services/opengl/BoxPlacement.h"

#include "services/properties/Viewport.h"

#include <algorithm>

namespace fen {

BoxPlacement::BoxPlacement(FenViewport const& viewport)
    : placement(viewport.placement.get())
    , x(viewport.x.get())
    , y(viewport.y.get())
    , width(viewport.width.get())
    , height(viewport.height.get())
{
}

BoxPlacement::BoxPlacement(FenViewport const& viewport, QSize const& size)
    : placement(viewport.placement.get())
    , x(viewport.x.get())
    , y(viewport.y.get())
    , width(size.width())
    , height(size.height())
{
}

FenOglViewport keptInside(FenOglViewport const& box, FenOglViewport const& area)
{
    auto const kept = [](int corner, int extent, int from, int room) {
        return std::clamp(corner, from, from + std::max(0, room - extent));
    };
    return FenOglViewport(kept(box.x(), box.width(), area.x(), area.width()),
                          kept(box.y(), box.height(), area.y(), area.height()), box.width(), box.height());
}

void BoxDrag::begin(FenOglViewport const& box)
{
    _left = box.x();
    _bottom = box.y();
    _right = box.x() + box.width();
    _top = box.y() + box.height();
    _active = true;
}

void BoxDrag::move(QPoint const& offset, DraggedEdges const& edges)
{
    _edges = edges;
    if (edges.left) _left -= offset.x();
    if (edges.right) _right -= offset.x();
    if (edges.bottom) _bottom -= offset.y();
    if (edges.top) _top -= offset.y();
}

FenOglViewport BoxDrag::box(QSize const& least) const
{
    int const width = std::max(_right - _left, least.width());
    int const height = std::max(_top - _bottom, least.height());
    bool const fromRight = _edges.left && !_edges.right, fromTop = _edges.bottom && !_edges.top;
    return FenOglViewport(fromRight ? _right - width : _left, fromTop ? _top - height : _bottom, width,
                          height);
}

} // namespace fen
