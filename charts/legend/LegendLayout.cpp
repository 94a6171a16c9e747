#include "charts/legend/LegendLayout.h"

#include <algorithm>

namespace fen {

namespace {

/// [px] of an entry alone.
QSize extent(LegendEntrySize const& entry, LegendMetrics const& metrics)
{
    int const row = std::max(metrics.lineHeight, entry.label.height());
    int const text = metrics.sampleWidth + metrics.gap + entry.label.width();
    if (entry.ramp.isEmpty()) return QSize(text, row);
    int const ramp = metrics.sampleWidth + metrics.gap + entry.ramp.width();
    return QSize(std::max(text, ramp), row + metrics.rowGap + entry.ramp.height());
}

/// Places the parts of an entry into its bounds. Rectangles hang from the top while they are laid out:
/// y counts down, and `hang` turns them over at the end.
LegendLayout::Entry place(QPoint const& corner, int width, LegendEntrySize const& entry,
                          LegendMetrics const& metrics)
{
    QSize const own = extent(entry, metrics);
    int const row = std::max(metrics.lineHeight, entry.label.height());
    int const text = corner.x() + metrics.sampleWidth + metrics.gap;
    LegendLayout::Entry placed;
    placed.bounds = QRect(corner, QSize(width, own.height()));
    placed.sample = QRect(corner, QSize(metrics.sampleWidth, row));
    placed.label = QRect(text, corner.y(), entry.label.width(), row);
    placed.text = entry.text;
    if (!entry.ramp.isEmpty()) {
        placed.ramp = QRect(QPoint(text, corner.y() + row + metrics.rowGap), entry.ramp);
    }
    return placed;
}

QRect turnedOver(QRect const& rectangle, int height)
{
    if (rectangle.isEmpty()) return QRect();
    return QRect(rectangle.x(), height - rectangle.y() - rectangle.height(), rectangle.width(),
                 rectangle.height());
}

void turnOver(LegendLayout& layout)
{
    int const height = layout.box.height();
    for (LegendLayout::Entry& entry : layout.entries) {
        entry.bounds = turnedOver(entry.bounds, height);
        entry.sample = turnedOver(entry.sample, height);
        entry.label = turnedOver(entry.label, height);
        entry.ramp = turnedOver(entry.ramp, height);
    }
}

/// Number of entries from `first` that fit below each other into `height` [px]; at least one.
size_t columnLength(std::vector<LegendEntrySize> const& entries, size_t first, LegendMetrics const& metrics,
                    int height)
{
    size_t last = first;
    int used = 0;
    while (last < entries.size()) {
        int const next = extent(entries[last], metrics).height() + (last > first ? metrics.rowGap : 0);
        if (last > first && used + next > height) break;
        used += next;
        ++last;
    }
    return last - first;
}

} // namespace

int legendLabelRoom(int width, LegendMetrics const& metrics)
{
    return width - 2 * metrics.padding - metrics.sampleWidth - metrics.gap;
}

LegendLayout layoutVertical(std::vector<LegendEntrySize> const& entries, LegendMetrics const& metrics,
                            QSize const& room)
{
    LegendLayout layout;
    if (entries.empty()) return layout;
    int const height = room.height() - 2 * metrics.padding;
    int x = metrics.padding;
    int bottom = 0;
    for (size_t first = 0; first < entries.size();) {
        size_t const count = columnLength(entries, first, metrics, height);
        int width = 0;
        for (size_t i = first; i < first + count; ++i) {
            width = std::max(width, extent(entries[i], metrics).width());
        }
        int y = metrics.padding;
        for (size_t i = first; i < first + count; ++i) {
            layout.entries.push_back(place(QPoint(x, y), width, entries[i], metrics));
            y += extent(entries[i], metrics).height() + metrics.rowGap;
        }
        bottom = std::max(bottom, y - metrics.rowGap);
        x += width + 2 * metrics.gap;
        first += count;
    }
    layout.box = QSize(x - 2 * metrics.gap + metrics.padding, bottom + metrics.padding);
    turnOver(layout);
    return layout;
}

LegendLayout layoutHorizontal(std::vector<LegendEntrySize> const& entries, LegendMetrics const& metrics,
                              QSize const& room)
{
    LegendLayout layout;
    if (entries.empty()) return layout;
    int const width = room.width() - 2 * metrics.padding;
    QPoint corner(metrics.padding, metrics.padding);
    int rowHeight = 0;
    int right = 0;
    for (LegendEntrySize const& entry : entries) {
        QSize const own = extent(entry, metrics);
        bool const first = corner.x() == metrics.padding;
        if (!first && corner.x() + own.width() > metrics.padding + width) {
            corner = QPoint(metrics.padding, corner.y() + rowHeight + metrics.rowGap);
            rowHeight = 0;
        }
        layout.entries.push_back(place(corner, own.width(), entry, metrics));
        right = std::max(right, corner.x() + own.width());
        rowHeight = std::max(rowHeight, own.height());
        corner.rx() += own.width() + 2 * metrics.gap;
    }
    layout.box = QSize(right + metrics.padding, corner.y() + rowHeight + metrics.padding);
    turnOver(layout);
    return layout;
}

} // namespace fen
