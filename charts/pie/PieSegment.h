#pragma once

#include "services/math/Vector2.h"

#include <QRectF>

#include <algorithm>
#include <vector>

namespace fen {

/// Sector of a ring around a centre. Angles run clockwise from the top: a point at angle a and radius r
/// lies at (centre x + sin(a) r, centre y + cos(a) r).
struct PieSegment {
    double start = 0; ///< [rad]
    double end = 0; ///< [rad] not below `start`
    double innerRadius = 0; ///< [px] 0: the segment ends in the centre
    double outerRadius = 0; ///< [px]

    double middleAngle() const { return (start + end) / 2; } ///< [rad]
    double middleRadius() const { return (innerRadius + outerRadius) / 2; } ///< [px]
    /// [px] length of its outer edge
    double outerArc() const { return (end - start) * outerRadius; }
};

/// Circle that segments are approximated on.
struct PieCircle {
    Kes::Math::Vector2 centre; ///< [px]
    double step = 0.1; ///< [rad] between two corners of an arc, above 0

    Kes::Math::Vector2 point(double angle, double radius) const;
};

/// [px] Outline for a GL line loop: the inner arc backwards (or the centre), then the outer arc; the last
/// corner is exactly at the end angle.
std::vector<Kes::Math::Vector2> segmentOutline(PieSegment const& segment, PieCircle const& circle);
/// [px] The same as pairs of corners, appended for GL lines.
void appendOutlineLines(PieSegment const& segment, PieCircle const& circle,
                        std::vector<Kes::Math::Vector2>& lines);
/// Visits the corners of triangles that cover the area, three each, as angle [rad] and radius [px].
template <class Visit>
void forEachCorner(PieSegment const& segment, double step, Visit const& visit)
{
    for (double from = segment.start; from < segment.end;) {
        double const to = std::min(from + step, segment.end);
        visit(from, segment.innerRadius);
        visit(from, segment.outerRadius);
        visit(to, segment.outerRadius);
        if (segment.innerRadius != 0) {
            visit(from, segment.innerRadius);
            visit(to, segment.outerRadius);
            visit(to, segment.innerRadius);
        }
        from = to;
    }
}
/// [px] The same corners as points, appended.
void appendTriangles(PieSegment const& segment, PieCircle const& circle,
                     std::vector<Kes::Math::Vector2>& triangles);

/// True when a box lies wholly inside the segment.
bool holds(PieSegment const& segment, PieCircle const& circle, QRectF const& box);
/// True when the segment, as its triangles cover it, and a box have a point in common.
bool meets(PieSegment const& segment, PieCircle const& circle, QRectF const& box);

} // namespace fen
