#include "charts/pie/PieSegment.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr double fullTurn = 2 * std::numbers::pi; // [rad]

/// Distance of a box from a point; 0 for a point inside.
double distance(QRectF const& box, Vector2 const& point)
{
    double const dx = std::max({box.left() - double(point.x()), 0.0, double(point.x()) - box.right()});
    double const dy = std::max({box.top() - double(point.y()), 0.0, double(point.y()) - box.bottom()});
    return std::hypot(dx, dy);
}

/// Corners and middles of the edges.
std::array<QPointF, 8> rimPoints(QRectF const& box)
{
    QPointF const middle = box.center();
    return {box.topLeft(),     QPointF(middle.x(), box.top()),
            box.topRight(),    QPointF(box.right(), middle.y()),
            box.bottomRight(), QPointF(middle.x(), box.bottom()),
            box.bottomLeft(),  QPointF(box.left(), middle.y())};
}

/// True when all corners lie on one side of a line that has the other shape on its other side.
bool apart(std::array<Vector2, 3> const& triangle, QRectF const& box)
{
    for (std::size_t i = 0; i < 3; ++i) {
        Vector2 const &a = triangle[i], &b = triangle[(i + 1) % 3], &c = triangle[(i + 2) % 3];
        auto const side = [&](double x, double y) {
            return (double(b.x()) - double(a.x())) * (y - double(a.y()))
                - (double(b.y()) - double(a.y())) * (x - double(a.x()));
        };
        double const own = side(double(c.x()), double(c.y()));
        auto const beyond = [&](QPointF const& corner) { return side(corner.x(), corner.y()) * own < 0; };
        if (own != 0 && beyond(box.topLeft()) && beyond(box.topRight()) && beyond(box.bottomLeft())
            && beyond(box.bottomRight()))
            return true;
    }
    auto const [left, right] = std::minmax({triangle[0].x(), triangle[1].x(), triangle[2].x()});
    auto const [low, high] = std::minmax({triangle[0].y(), triangle[1].y(), triangle[2].y()});
    return double(right) < box.left() || double(left) > box.right() || double(high) < box.top()
        || double(low) > box.bottom();
}

} // namespace

Vector2 PieCircle::point(double angle, double radius) const
{
    return Vector2(float(double(centre.x()) + std::sin(angle) * radius),
                   float(double(centre.y()) + std::cos(angle) * radius));
}

std::vector<Vector2> segmentOutline(PieSegment const& segment, PieCircle const& circle)
{
    std::vector<Vector2> corners;
    if (segment.innerRadius != 0) {
        for (double angle = segment.end; angle > segment.start; angle -= circle.step)
            corners.push_back(circle.point(angle, segment.innerRadius));
        corners.push_back(circle.point(segment.start, segment.innerRadius));
    } else {
        corners.push_back(circle.centre);
    }
    for (double angle = segment.start; angle < segment.end; angle += circle.step)
        corners.push_back(circle.point(angle, segment.outerRadius));
    corners.push_back(circle.point(segment.end, segment.outerRadius));
    return corners;
}

void appendOutlineLines(PieSegment const& segment, PieCircle const& circle, std::vector<Vector2>& lines)
{
    std::vector<Vector2> const corners = segmentOutline(segment, circle);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        lines.push_back(corners[i]);
        lines.push_back(corners[(i + 1) % corners.size()]);
    }
}

void appendTriangles(PieSegment const& segment, PieCircle const& circle, std::vector<Vector2>& triangles)
{
    forEachCorner(segment, circle.step,
                  [&](double angle, double radius) { triangles.push_back(circle.point(angle, radius)); });
}

bool holds(PieSegment const& segment, PieCircle const& circle, QRectF const& box)
{
    if (segment.innerRadius > 0 && distance(box, circle.centre) < segment.innerRadius) return false;
    bool const whole = segment.end - segment.start >= fullTurn;
    // The way around is not told by the points of the rim when the centre lies inside.
    if (!whole && distance(box, circle.centre) == 0) return false;
    auto const inside = [&](QPointF const& point) {
        double const x = point.x() - double(circle.centre.x()), y = point.y() - double(circle.centre.y());
        if (std::hypot(x, y) > segment.outerRadius) return false;
        double angle = std::atan2(x, y);
        if (angle < 0) angle += fullTurn;
        return whole || (angle >= segment.start && angle <= segment.end);
    };
    return std::ranges::all_of(rimPoints(box), inside);
}

bool meets(PieSegment const& segment, PieCircle const& circle, QRectF const& box)
{
    if (distance(box, circle.centre) > segment.outerRadius) return false;
    std::vector<Vector2> triangles;
    appendTriangles(segment, circle, triangles);
    for (std::size_t i = 0; i + 2 < triangles.size(); i += 3)
        if (!apart({triangles[i], triangles[i + 1], triangles[i + 2]}, box)) return true;
    return false;
}

} // namespace fen
