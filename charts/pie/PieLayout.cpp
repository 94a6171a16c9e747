#include "charts/pie/PieLayout.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

namespace fen {

namespace {

constexpr double arcLength = 10; // [px] between two corners of the outermost arc
constexpr double largestStep = std::numbers::pi / 18; // [rad]
constexpr double fullTurn = 2 * std::numbers::pi; // [rad]

double amount(PieItem const& item) { return std::isfinite(item.value) ? std::abs(item.value) : 0.0; }

/// Directions, from a centre, in which a box lies; a superset.
class Directions {
public:
    Directions(QRectF const& box, Kes::Math::Vector2 const& centre)
    {
        QPointF const origin(double(centre.x()), double(centre.y()));
        _all = box.adjusted(-1, -1, 1, 1).contains(origin);
        QPointF const middle = box.center() - origin;
        _middle = std::atan2(middle.x(), middle.y());
        for (QPointF const& corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
            QPointF const at = corner - origin;
            double const turn = std::remainder(std::atan2(at.x(), at.y()) - _middle, fullTurn);
            _reach = std::max(_reach, std::abs(turn));
        }
    }
    bool meet(PieSegment const& segment) const
    {
        double const half = (segment.end - segment.start) / 2;
        double const turn = std::abs(std::remainder(segment.middleAngle() - _middle, fullTurn));
        return _all || turn <= half + _reach;
    }

private:
    bool _all = false;
    double _middle = 0; // [rad]
    double _reach = 1e-6; // [rad] to both sides, not quite nothing for the sake of rounding
};

/// Fills the slices of a ring, whose items are in place already.
void divide(PieLayout::Ring& ring, std::vector<PieItem> const& items)
{
    // Relative to the largest, so that the sum of any numbers is one too.
    double largest = 0, total = 0;
    for (PieLayout::Slice const& slice : ring.slices) largest = std::max(largest, amount(items[slice.item]));
    ring.empty = largest == 0;
    if (ring.empty) return;
    for (PieLayout::Slice const& slice : ring.slices) total += amount(items[slice.item]) / largest;
    double sum = 0;
    for (PieLayout::Slice& slice : ring.slices) {
        double const part = amount(items[slice.item]) / largest;
        slice.share = part / total;
        slice.segment = ring.whole;
        slice.segment.start = sum / total * fullTurn;
        sum += part;
        slice.segment.end = sum / total * fullTurn;
    }
}

} // namespace

PieLayout::PieLayout(FenOglViewport const& data, std::vector<PieItem> const& items)
{
    int const room = std::min(data.width(), data.height()) / 2 - 1;
    if (room < 1) return;
    radius = room;
    circle.centre =
        Kes::Math::Vector2(float(data.x() + data.width() / 2), float(data.y() + data.height() / 2));
    circle.step = std::min(arcLength / radius, largestStep);

    std::map<int, Ring> byNumber;
    for (std::size_t i = 0; i < items.size(); ++i)
        byNumber[items[i].ring].slices.push_back({i, PieSegment(), 0.0});
    double const unit = double(radius) / double(byNumber.size() + 1);
    double inner = 0, outer = 2 * unit; // the innermost is a disc
    for (auto& [number, ring] : byNumber) {
        ring.whole = {0, fullTurn, inner, outer};
        for (Slice& slice : ring.slices) slice.segment = {0, 0, inner, outer};
        divide(ring, items);
        rings.push_back(std::move(ring));
        inner = outer;
        outer += unit;
    }
}

std::vector<PieLayout::Slice const*> PieLayout::slicesNear(QRectF const& box, std::size_t limit) const
{
    std::vector<Slice const*> found;
    Directions const directions(box, circle.centre);
    for (auto ring = rings.rbegin(); ring != rings.rend(); ++ring)
        for (auto slice = ring->slices.rbegin(); slice != ring->slices.rend(); ++slice) {
            if (found.size() == limit) break;
            PieSegment const& segment = slice->segment;
            if (segment.end > segment.start && directions.meet(segment) && meets(segment, circle, box))
                found.push_back(&*slice);
        }
    std::ranges::reverse(found);
    return found;
}

QString percentText(PieLayout::Ring const& ring, PieLayout::Slice const& slice)
{
    if (ring.empty) return QStringLiteral("0.0%");
    // 7 of 100 are 7.000000000000001 percent; that is not to become 8.
    constexpr double noise = 1e-9;
    return QString::number(std::max(0.0, std::ceil(slice.share * 100 - noise)), 'g', 6) + QLatin1Char('%');
}

} // namespace fen
