#pragma once

#include "services/opengl/OglViewport.h"

#include <QPoint>
#include <QSize>
#include <QString>

class FenViewport;

namespace fen {

/// Where a box lies in its parent: the numbers of a `FenViewport` as a plain value, without a property tree.
struct BoxPlacement {
    QString placement = QStringLiteral("bottomLeft");
    double x = 0, y = 0; ///< [px] inward from the corner, or from the centred position
    double width = 1, height = 1; ///< up to 1 a fraction of the parent's, above 1 [px]

    BoxPlacement() = default;
    explicit BoxPlacement(FenViewport const& viewport);
    /// `placement`, `x` and `y` of a viewport with an extent of its own [px].
    BoxPlacement(FenViewport const& viewport, QSize const& size);

    bool operator==(BoxPlacement const&) const = default;
    /// True when nobody has placed anything: the box fills its parent.
    bool untouched() const { return *this == BoxPlacement(); }
    /// The box [px] in the coordinates of `parent`; invalid when a number is not finite.
    FenOglViewport within(FenOglViewport const& parent) const;
};

/// The nearest place at which a box lies inside an area; at its lower left corner when it is larger.
FenOglViewport keptInside(FenOglViewport const& box, FenOglViewport const& area);

/// Edges of a box that a drag moves.
struct DraggedEdges {
    bool left = false, right = false, bottom = false, top = false;

    static DraggedEdges all() { return {true, true, true, true}; }
};

/// A box while it is dragged. Offsets are those of drag events, which are subtracted: previous minus current
/// pointer position [px].
class BoxDrag {
public:
    bool active() const { return _active; }
    void begin(FenOglViewport const& box);
    /// Moves edges by one drag event.
    void move(QPoint const& offset, DraggedEdges const& edges = DraggedEdges::all());
    void end() { _active = false; }
    /// [px] as dragged so far; an edge that stands still keeps `least` away from one that comes nearer.
    FenOglViewport box(QSize const& least = QSize(1, 1)) const;

private:
    int _left = 0, _right = 0, _bottom = 0, _top = 0;
    DraggedEdges _edges;
    bool _active = false;
};

} // namespace fen
