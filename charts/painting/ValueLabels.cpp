#include "charts/painting/ValueLabels.h"

#include "charts/ChartMetrics.h"
#include "services/opengl/OglText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fen {

namespace {

constexpr int barGap = 2; ///< [px] between the end of a bar and its label
constexpr int besideGap = 1; ///< [px] between labels side by side

/// [px] rectangle of a text, y up.
QRect extent(QPoint const& anchor, Qt::Alignment alignment, QSize const& size)
{
    int x = anchor.x(), y = anchor.y();
    if (alignment & Qt::AlignHCenter) x -= size.width() / 2;
    if (alignment & Qt::AlignLeft) x -= size.width();
    if (alignment & Qt::AlignBottom) y -= size.height();
    return QRect(QPoint(x, y), size);
}

typedef std::vector<ValueLabel> Candidates; // in order of preference

Candidates besidePoint(QPoint const& pixel, int distance)
{
    Candidates places;
    for (Qt::AlignmentFlag vertical : {Qt::AlignTop, Qt::AlignBottom})
        for (Qt::AlignmentFlag horizontal : {Qt::AlignRight, Qt::AlignLeft})
            places.push_back({pixel
                                  + QPoint(horizontal == Qt::AlignRight ? distance : -distance,
                                           vertical == Qt::AlignTop ? distance : -distance),
                              horizontal | vertical,
                              {}});
    return places;
}

Candidates atBar(QPoint const& pixel, bool upwards, QSize const& size, QSize const& room)
{
    int const half = (size.width() + 1) / 2;
    int const x = 2 * half > room.width() ? pixel.x() : std::clamp(pixel.x(), half, room.width() - half);
    ValueLabel const above = {QPoint(x, pixel.y() + barGap), Qt::AlignHCenter | Qt::AlignTop, {}};
    ValueLabel const below = {QPoint(x, pixel.y() - barGap), Qt::AlignHCenter | Qt::AlignBottom, {}};
    return upwards ? Candidates{above, below} : Candidates{below, above};
}

} // namespace

LabelRoom::LabelRoom(QSize const& size)
    : _size(size)
    , _columns(size.width() / cell + 1)
    , _taken(std::size_t(_columns) * std::size_t(size.height() / cell + 1))
{
}

bool LabelRoom::free(QRect const& rect) const
{
    if (rect.left() < 0 || rect.top() < 0 || rect.right() > _size.width() || rect.bottom() > _size.height())
        return false;
    for (int y = rect.top() / cell; y <= rect.bottom() / cell; ++y)
        for (int x = rect.left() / cell; x <= rect.right() / cell; ++x)
            if (_taken[std::size_t(y) * std::size_t(_columns) + std::size_t(x)]) return false;
    return true;
}

void LabelRoom::take(QRect const& rect)
{
    QRect const inside = rect & QRect(QPoint(0, 0), _size);
    for (int y = inside.top() / cell; y <= inside.bottom() / cell; ++y)
        for (int x = inside.left() / cell; x <= inside.right() / cell; ++x)
            _taken[std::size_t(y) * std::size_t(_columns) + std::size_t(x)] = true;
}

std::vector<ValueLabel> placeLabels(QStringList const& labels, CurveData const& data,
                                    VariableStyle const& style, double base, FenOglText& text,
                                    LabelRoom& room)
{
    std::vector<ValueLabel> placed;
    if (labels.isEmpty() || data.count == 0) return placed;
    text.clear();
    text.setPointSize(ChartMetrics::labelPointSize);
    int const distance = style.symbol >= 0 ? style.symbolSize / 2 + 1 : 1;
    QRect const seen(QPoint(0, 0), data.size + QSize(1, 1));
    QSize const least(text.height() / 2, text.height()); // no label is smaller
    CurveData::Range range = data.visible();
    range.last = std::min(range.last, std::size_t(labels.size()));
    for (std::size_t i = range.first; i < range.last; ++i) {
        QString const& label = labels.at(qsizetype(i));
        if (label.isEmpty() || std::isnan(data.x(i)) || std::isnan(data.y(i))) continue;
        QPoint const pixel = data.pixel(i);
        if (!seen.contains(pixel)) continue;
        auto const candidates = [&](QSize const& size) {
            return style.shape == CurveShape::Bars ? atBar(pixel, data.y(i) >= base, size, data.size)
                                                   : besidePoint(pixel, distance);
        };
        auto const firstFree = [&](QSize const& size) {
            Candidates const all = candidates(size);
            auto const found = std::find_if(all.begin(), all.end(), [&](ValueLabel const& place) {
                return room.free(extent(place.anchor, place.alignment, size));
            });
            return found == all.end() ? ValueLabel() : *found;
        };
        // In a crowd nothing is even measured.
        if (!firstFree(least).alignment) continue;
        QSize const size = text.size(label);
        ValueLabel place = firstFree(size);
        if (!place.alignment) continue;
        room.take(extent(place.anchor, place.alignment, size).adjusted(-besideGap, 0, besideGap, 0));
        place.text = label;
        placed.push_back(place);
    }
    text.clear();
    return placed;
}

void drawLabels(std::vector<ValueLabel> const& labels, QColor const& color, FenOglText& text)
{
    if (labels.empty()) return;
    text.clear();
    text.setPointSize(ChartMetrics::labelPointSize);
    text.setColor(color);
    FenOglTextBatch const joined(text);
    for (ValueLabel const& label : labels) {
        text.setAlignment(label.alignment);
        text.draw(label.anchor, label.text);
    }
}

} // namespace fen
