#include "charts/spider/SpiderLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr unsigned mostTicks = 21;
constexpr int largestMarker = 8, smallestMarker = 4; ///< [px]
constexpr std::size_t manyAxes = 40; ///< have smaller markers
constexpr int nameGap = 4; ///< [px] between marker and name
constexpr double aside = 0.3; ///< sine from which on a name lies beside its axis, not above or below
constexpr double leastShare = 0.3; ///< of the smaller half extent that names leave to the axes

struct Direction {
    double right, up;
};

Direction directionOf(std::size_t axis, std::size_t count)
{
    double const angle = 2 * std::numbers::pi * double(axis) / double(count);
    return {std::sin(angle), std::cos(angle)};
}

Qt::Alignment alignmentFor(Direction const& direction)
{
    if (std::abs(direction.right) < aside)
        return Qt::AlignHCenter | (direction.up > 0 ? Qt::AlignTop : Qt::AlignBottom);
    return (direction.right > 0 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

/// [px] from the anchor to the far side of a name, to the side and up or down.
QSize overhang(Direction const& direction, int width, int lineHeight)
{
    bool const beside = std::abs(direction.right) >= aside;
    return {beside ? width : (width + 1) / 2, beside ? (lineHeight + 1) / 2 : lineHeight};
}

/// The longest distance from the centre at which a name stays inside.
double farthest(Direction const& direction, QSize const& half, QSize const& name)
{
    double reach = std::max(half.width(), half.height());
    if (direction.right != 0)
        reach = std::min(reach, (half.width() - name.width()) / std::abs(direction.right));
    if (direction.up != 0) reach = std::min(reach, (half.height() - name.height()) / std::abs(direction.up));
    return reach;
}

/// Keeps of names that overlap the ones that come first.
void dropOverlapping(SpiderLayout& layout, std::vector<int> const& names, int lineHeight)
{
    std::vector<QRect> taken;
    for (std::size_t i = 0; i < names.size(); ++i) {
        SpiderLabel& label = layout.labels[i];
        QRect const own = textRectangle(label, QSize(std::min(names[i], label.room), lineHeight));
        bool const free = std::none_of(taken.begin(), taken.end(),
                                       [&](QRect const& other) { return other.intersects(own); });
        if (free && label.room > 0) {
            label.shown = own;
            taken.push_back(own);
        } else {
            label.room = 0;
        }
    }
}

} // namespace

Vector2 SpiderLayout::point(std::size_t axis, double fraction) const
{
    Direction const direction = directionOf(axis, labels.size());
    double const length = fraction * radius;
    return Vector2(float(center.x() + 0.5 + direction.right * length),
                   float(center.y() + 0.5 + direction.up * length));
}

unsigned spiderTicks(QSize const& viewport, int lineHeight)
{
    int const pitch = lineHeight + 5 + (lineHeight + 1) / 2;
    int const fitting = std::min(viewport.width(), viewport.height()) / 2 / std::max(1, pitch);
    return std::clamp(unsigned(std::max(0, fitting)), 1u, mostTicks);
}

QRect textRectangle(SpiderLabel const& label, QSize const& text)
{
    int x = label.anchor.x(), y = label.anchor.y();
    if (label.alignment & Qt::AlignHCenter) x -= text.width() / 2;
    if (label.alignment & Qt::AlignLeft) x -= text.width();
    if (label.alignment & Qt::AlignVCenter) y -= text.height() / 2;
    if (label.alignment & Qt::AlignBottom) y -= text.height();
    return QRect(QPoint(x, y), text);
}

SpiderLayout layoutSpider(FenOglViewport const& area, std::vector<int> const& names, int lineHeight)
{
    SpiderLayout layout;
    std::size_t const count = names.size();
    if (count == 0 || !area.valid()) return layout;
    layout.labels.resize(count);
    layout.center = QPoint(area.x() + area.width() / 2, area.y() + area.height() / 2);
    layout.marker = count > manyAxes ? smallestMarker : largestMarker;
    QSize const half(area.width() / 2 - 1, area.height() / 2 - 1);
    int const least = int(leastShare * std::min(half.width(), half.height()));
    int const beyond = layout.marker + nameGap; // from the end of an axis to its name
    double reach = std::min(half.width(), half.height());
    for (std::size_t i = 0; i < count; ++i) {
        Direction const direction = directionOf(i, count);
        // Wider names are cut where they would take too much.
        int const width = std::min(names[i], half.width() / 2);
        reach = std::min(reach, farthest(direction, half, overhang(direction, width, lineHeight)));
    }
    layout.radius = std::max(0, std::max(least, int(reach) - beyond));
    for (std::size_t i = 0; i < count; ++i) {
        Direction const direction = directionOf(i, count);
        double const distance = layout.radius + beyond;
        SpiderLabel& label = layout.labels[i];
        QPoint const offset(qRound(direction.right * distance), qRound(direction.up * distance));
        label.anchor = layout.center + offset;
        label.alignment = alignmentFor(direction);
        bool const beside = std::abs(direction.right) >= aside;
        int const room = half.width() - std::abs(offset.x());
        bool const fits = std::abs(offset.y()) + overhang(direction, 0, lineHeight).height() <= half.height();
        label.room = fits ? std::max(0, beside ? room : 2 * room) : 0;
    }
    dropOverlapping(layout, names, lineHeight);
    return layout;
}

} // namespace fen
