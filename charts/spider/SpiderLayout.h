#pragma once

#include "services/math/Vector2.h"
#include "services/opengl/OglViewport.h"

#include <QPoint>
#include <QRect>

#include <cstddef>
#include <vector>

namespace fen {

/// Place of an axis name.
struct SpiderLabel {
    QPoint anchor; ///< [px]
    Qt::Alignment alignment; ///< side of the anchor on which the text lies
    int room = 0; ///< [px] longest text; 0: there is no room for it
    QRect shown; ///< [px] of the text as it is drawn, y up; null: it is not
};

/// Where the axes of a spider and their names lie [px], relative to the node.
struct SpiderLayout {
    QPoint center; ///< the pixel in which all axes begin
    int radius = 0; ///< length of the axes; 0 when there is no room
    int marker = 0; ///< size of the marks at the ends of the axes
    unsigned ticks = 0; ///< about how many per axis
    std::vector<SpiderLabel> labels; ///< one per axis

    /// [deg] direction of an axis, counter-clockwise from upright.
    double turn(std::size_t axis) const { return -360.0 / double(labels.size()) * double(axis); }
    /// [px] a fraction of an axis, in the middle of a pixel at the centre.
    Kes::Math::Vector2 point(std::size_t axis, double fraction) const;
};

/// Ticks on an axis of a chart of that size.
/// @param lineHeight  [px] of the labels
unsigned spiderTicks(QSize const& viewport, int lineHeight);

/// Lays out a spider as large as its names leave room for in `area`, the rectangle inside title and rim.
/// @param names       [px] widths, one per axis
/// @param lineHeight  [px] of names and labels
SpiderLayout layoutSpider(FenOglViewport const& area, std::vector<int> const& names, int lineHeight);

/// [px] the rectangle of a text, y up.
QRect textRectangle(SpiderLabel const& label, QSize const& text);

} // namespace fen
