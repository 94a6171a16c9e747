#include "charts/legend/LegendPlacement.h"

#include <QRect>

#include <algorithm>
#include <array>

namespace fen {

namespace {

/// Free way [px] of a box in one direction: its start, its middle and its end position.
std::array<int, 3> positions(int box, int area, int margin)
{
    int const last = std::max(0, area - box);
    int const rim = std::min(margin, last / 2);
    return {rim, last / 2, last - rim};
}

} // namespace

QPoint leastHidingPlace(QSize const& box, QSize const& area, int margin, std::vector<QPoint> const& ink)
{
    auto const x = positions(box.width(), area.width(), margin);
    auto const y = positions(box.height(), area.height(), margin);
    enum { Start, Middle, End };
    std::array<QPoint, 9> const places = {
        QPoint(x[End], y[End]),     QPoint(x[Start], y[End]),    QPoint(x[End], y[Start]),
        QPoint(x[Start], y[Start]), QPoint(x[End], y[Middle]),   QPoint(x[Start], y[Middle]),
        QPoint(x[Middle], y[End]),  QPoint(x[Middle], y[Start]), QPoint(x[Middle], y[Middle])};
    QPoint best = places.front();
    auto least = ink.size() + 1;
    for (QPoint const& place : places) {
        QRect const covered(place, box);
        auto const hidden = size_t(std::count_if(
            ink.begin(), ink.end(), [&](QPoint const& point) { return covered.contains(point); }));
        if (hidden < least) {
            least = hidden;
            best = place;
        }
    }
    return best;
}

} // namespace fen
