#include "charts/painting/PickShapes.h"

#include "services/chartdata/ChartColumn.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

void StripIndex::Box::insert(Vector2 const& point)
{
    left = std::min(left, point.x());
    right = std::max(right, point.x());
    bottom = std::min(bottom, point.y());
    top = std::max(top, point.y());
}

bool StripIndex::Box::meets(QRectF const& area) const
{
    return double(left) <= area.right() && double(right) >= area.left() && double(bottom) <= area.bottom()
        && double(top) >= area.top();
}

std::vector<StripIndex::Box> StripIndex::boxes(std::vector<Vector2> const& points)
{
    std::vector<Box> boxes;
    for (std::size_t first = 0; first < points.size(); first += runLength) {
        Box box = {points[first].x(), points[first].x(), points[first].y(), points[first].y()};
        std::size_t const end = std::min(first + runLength + 2, points.size());
        for (std::size_t i = first + 1; i < end; ++i) box.insert(points[i]);
        boxes.push_back(box);
    }
    return boxes;
}

StripIndex::StripIndex(Strips const& strips)
    : _boxes(boxes(strips.points))
    , _spanBoxes(boxes(strips.spans))
{
}

std::vector<std::size_t> StripIndex::near(Strips const& strips, QRectF const& area, std::size_t step) const
{
    std::vector<std::size_t> found;
    for (Strips::Piece const& piece : strips.pieces) {
        std::size_t const end = piece.first + piece.count;
        for (std::size_t i = piece.first; i + step < end;) {
            std::size_t const run = i / runLength;
            std::size_t const stop = std::min((run + 1) * runLength, end - step);
            if (!_boxes[run].meets(area)) {
                i = stop;
                continue;
            }
            for (; i < stop; i += step) {
                Vector2 const& p = strips.points[i];
                Box box = {p.x(), p.x(), p.y(), p.y()};
                for (std::size_t k = i + 1; k < std::min(i + 2 * step, end); ++k)
                    box.insert(strips.points[k]);
                if (box.meets(area)) found.push_back(i);
            }
        }
    }
    return found;
}

std::vector<std::size_t> StripIndex::spansNear(Strips const& strips, QRectF const& area) const
{
    std::vector<std::size_t> found;
    for (std::size_t run = 0; run < _spanBoxes.size(); ++run) {
        if (!_spanBoxes[run].meets(area)) continue;
        std::size_t const end = std::min((run + 1) * runLength, strips.spans.size());
        for (std::size_t i = run * runLength; i < end; i += 2) {
            Vector2 const& p = strips.spans[i];
            Box box = {p.x(), p.x(), p.y(), p.y()};
            box.insert(strips.spans[i + 1]);
            if (box.meets(area)) found.push_back(i);
        }
    }
    return found;
}

namespace {

/// Half of the way across a line.
Vector2 halfAcross(Vector2 const& along, float half, bool smooth)
{
    bool const steep = std::abs(along.y()) > std::abs(along.x());
    if (!smooth) return steep ? Vector2(half, 0) : Vector2(0, half);
    float const length = along.length();
    return length > 0 ? Vector2(-along.y(), along.x()) * (half / length) : Vector2(0, half);
}

} // namespace

std::vector<Vector2> lineQuads(Strips const& line, StripIndex const& index, QRectF const& area,
                               LineShape const& shape)
{
    std::vector<Vector2> quads;
    float const half = 0.5f * std::max(shape.smooth ? shape.width : std::round(shape.width), 1.0f);
    QRectF const reach = area.adjusted(-double(half), -double(half), double(half), double(half));
    auto const add = [&](Vector2 const& a, Vector2 const& b) {
        Vector2 const across = halfAcross(b - a, half, shape.smooth);
        quads.insert(quads.end(), {a - across, b - across, b + across, a + across});
    };
    for (std::size_t i : index.near(line, reach, 1)) add(line.points[i], line.points[i + 1]);
    for (std::size_t i : index.spansNear(line, reach)) add(line.spans[i], line.spans[i + 1]);
    if (!shape.corners) return quads;
    for (Vector2 const& p : *shape.corners)
        if (reach.contains(double(p.x()), double(p.y())))
            quads.insert(quads.end(),
                         {p + Vector2(-half, -half), p + Vector2(half, -half), p + Vector2(half, half),
                          p + Vector2(-half, half)});
    return quads;
}

std::vector<Vector2> bandQuads(Strips const& band, StripIndex const& index, QRectF const& area)
{
    std::vector<Vector2> quads;
    std::vector<Vector2> const& p = band.points;
    for (std::size_t i : index.near(band, area, 2))
        quads.insert(quads.end(), {p[i], p[i + 1], p[i + 3], p[i + 2]});
    return quads;
}

std::vector<Vector2> barQuads(std::vector<Bar> const& bars, QRectF const& area)
{
    std::vector<Vector2> quads;
    for (Bar const& bar : bars) {
        if (double(bar.right) < area.left() || double(bar.left) > area.right()) continue;
        quads.insert(quads.end(),
                     {Vector2(bar.left, bar.base), Vector2(bar.right, bar.base), Vector2(bar.right, bar.top),
                      Vector2(bar.left, bar.top)});
    }
    return quads;
}

std::vector<std::size_t> pointsInside(CurveData const& data, QRect const& area, std::size_t limit)
{
    std::vector<std::size_t> found;
    double const left = area.left(), right = area.left() + area.width();
    double const low = area.top(), high = area.top() + area.height();
    CurveData::Range range = {0, data.count};
    bool const ascending = data.ascending();
    if (ascending) range = data.between(left, right);
    constexpr std::size_t block = FenChartColumn::blockSize;
    std::size_t i = range.last;
    while (i > range.first && found.size() < limit) {
        std::size_t const b = (i - 1) / block;
        std::size_t const start = std::max(b * block, range.first);
        bool const missed =
            data.blockMissesY(b, low, high) || (!ascending && data.blockMissesX(b, left, right));
        if (missed) {
            i = start;
            continue;
        }
        for (; i > start && found.size() < limit; --i) {
            double const x = data.x(i - 1), y = data.y(i - 1);
            if (x >= left && x < right && y >= low && y < high) found.push_back(i - 1);
        }
    }
    std::reverse(found.begin(), found.end());
    return found;
}

namespace {

std::size_t nearestInX(CurveData const& data, bool held, double x)
{
    std::size_t const behind = data.firstBeyond(x, 0);
    std::size_t before = behind, after = behind;
    while (before > 0 && !data.defined(before - 1)) --before;
    if (held && before > 0) return before - 1;
    while (after < data.count && !data.defined(after)) ++after;
    if (before == 0) return after;
    if (after == data.count) return before - 1;
    return x - data.x(before - 1) <= data.x(after) - x ? before - 1 : after;
}

std::size_t nearestOfAll(CurveData const& data, QPointF const& at)
{
    std::size_t nearest = data.count;
    double distance = 1e300;
    constexpr std::size_t block = FenChartColumn::blockSize;
    for (std::size_t first = 0; first < data.count; first += block) {
        double const reach = std::sqrt(distance);
        if (data.blockMissesX(first / block, at.x() - reach, at.x() + reach)) continue;
        if (data.blockMissesY(first / block, at.y() - reach, at.y() + reach)) continue;
        for (std::size_t i = first; i < std::min(first + block, data.count); ++i) {
            double const dx = data.x(i) - at.x(), dy = data.y(i) - at.y();
            double const d = dx * dx + dy * dy;
            if (d < distance) distance = d, nearest = i;
        }
    }
    return nearest;
}

} // namespace

std::size_t nearestPoint(CurveData const& data, CurveShape shape, QPointF const& at)
{
    if (!data.ascending()) return nearestOfAll(data, at);
    return nearestInX(data, shape == CurveShape::Step, at.x());
}

QRect pickedPixels(QPoint const& point, QSize const& size)
{
    QSize const square = size.expandedTo(QSize(1, 1));
    return QRect(point - QPoint(square.width() / 2, square.height() / 2), square);
}

} // namespace fen
