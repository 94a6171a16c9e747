#include "charts/legend/VisLegend.h"

#include "axes/ElidedText.h"
#include "charts/chart2d/VisChart2D.h"
#include "charts/chart3d/VisChart3D.h"
#include "charts/correlation/VisChartCorrelation.h"
#include "charts/legend/LegendPlacement.h"
#include "charts/legend/LegendSample.h"
#include "charts/legend/VisLegend.handler.h"
#include "charts/legend/VisLegend.parts.h"
#include "charts/parallel/VisChartPCP.h"
#include "charts/pie/VisChartPie.h"
#include "charts/spider/VisChartSpider.h"
#include "charts/style/Fill.h"
#include "framework/DrawContext.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartVariable.h"
#include "services/math/Vector2.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"
#include "services/properties/Labels.h"

#include <QColor>

#include <algorithm>

using Kes::Math::Vector2;

namespace {

constexpr unsigned pointSize = 8; // [pt]
constexpr int rampWidth = 14; // [px]
constexpr int rampLines = 8; ///< height of a ramp in text lines
constexpr int rampGap = 4; // [px] between ramp, tick and value
constexpr int widestLabel = 240; // [px] longer ones are cut
/// [px] between an automatically placed legend and the edge of the data rectangle.
constexpr int automaticMargin = 8;
/// Part of the data rectangle that a legend of items with their axes may take.
constexpr double mostOfItems = 0.12;
constexpr int boxAlpha = 225; ///< the chart shines through a little

/// Colours of the box, so that a text in `text` can be read on it.
struct BoxColors {
    QColor background;
    QColor frame;
    QColor highlight;
};

BoxColors boxColors(QColor const& text)
{
    bool const dark = text.lightnessF() > 0.5f;
    if (dark) return {QColor(35, 38, 43, boxAlpha), QColor(95, 100, 108), QColor(70, 80, 98)};
    return {QColor(255, 255, 255, boxAlpha), QColor(190, 194, 200), QColor(222, 232, 246)};
}

QString moreText(std::size_t count) { return QStringLiteral("+%1 more").arg(count); }

void drawLabel(FenOglText& text, fen::LegendLayout::Entry const& entry)
{
    text.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    text.draw(QPoint(entry.label.x(), entry.label.y() + entry.label.height() / 2), entry.text);
}

/// Size of a colour ramp with its values beside it [px].
QSize rampSize(Kes::Math::NiceIntervals const& intervals, FenOglText const& text)
{
    int widest = 0;
    for (unsigned i = 0; i < intervals.size(); ++i) {
        widest = std::max(widest, text.size(QString::fromStdString(intervals.label(i))).width());
    }
    // Half a line above and below, where the outermost values stick out.
    return QSize(rampWidth + 2 * rampGap + widest, (rampLines + 1) * text.height());
}

/// [px] A legend takes at most half of the data rectangle across the direction in which it grows.
QSize roomFor(QSize const& area, bool vertical)
{
    return vertical ? QSize(area.width() / 2, area.height()) : QSize(area.width(), area.height() / 2);
}

/// A patch for items, a line for an axis.
void drawItemSample(QRect const& area, QColor const& color, bool items)
{
    float const middle = float(area.y()) + float(area.height()) / 2, half = items ? 4 : 0.5f;
    glColor(color);
    fen::drawRectangle(float(area.x()), middle - half, float(area.x() + area.width()), middle + half);
}

/// True when a box leaves most of the chart free.
bool leavesRoom(QSize const& box, QSize const& area, bool vertical)
{
    constexpr double mostOfArea = 0.4;
    QSize const room = roomFor(area, vertical);
    return box.width() <= room.width() && box.height() <= room.height()
        && double(box.width()) * box.height() <= mostOfArea * area.width() * area.height();
}

/// Ramp from the lowest colour at the bottom to the highest, with every n-th value beside it.
void drawRamp(FenOglCache& cache, FenOglText& text, QList<QColor> const& colors,
              Kes::Math::NiceIntervals const& intervals, QRect const& area)
{
    float const x0 = float(area.x());
    float const x1 = x0 + float(rampWidth);
    int const bottom = area.y() + text.height() / 2;
    int const length = area.height() - text.height();
    float const y0 = float(bottom);
    float const y1 = float(bottom + length);
    fen::drawRamp(colors, cache, [&] {
        fen::drawTexturedArray(GL_TRIANGLE_STRIP,
                               {Vector2(x0, y0), Vector2(x1, y0), Vector2(x0, y1), Vector2(x1, y1)},
                               {Vector2(0, 0), Vector2(0, 0), Vector2(0, 1), Vector2(0, 1)});
    });
    unsigned const room = unsigned(std::max(1, length / text.height()));
    unsigned const stride = std::max(1u, (intervals.size() + room - 1) / room);
    text.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (unsigned i = 0; i < intervals.size(); i += stride) {
        int const y = bottom + qRound(intervals.fraction(i) * length);
        glColor(text.color());
        fen::drawLine(Vector2(x1, float(y) + 0.5f), Vector2(x1 + float(rampGap) - 1.0f, float(y) + 0.5f));
        text.draw(QPoint(area.x() + rampWidth + 2 * rampGap, y), QString::fromStdString(intervals.label(i)));
    }
}

} // namespace

/// One row per kind of chart, in the order in which they are asked.
std::vector<FenVisLegend::Kind> const& FenVisLegend::kinds()
{
    static std::vector<Kind> const table = {
        {[](FenVisualization const& chart) { return dynamic_cast<FenVisChart2D const*>(&chart) != nullptr; },
         Sample::Series, true},
        {[](FenVisualization const& chart) {
             return dynamic_cast<FenVisChartSpider const*>(&chart) != nullptr;
         },
         Sample::Items, false},
        {[](FenVisualization const& chart) { return dynamic_cast<FenVisChartPCP const*>(&chart) != nullptr; },
         Sample::Items, false},
        {[](FenVisualization const& chart) { return dynamic_cast<FenVisChartPie const*>(&chart) != nullptr; },
         Sample::Patch, false},
        {[](FenVisualization const& chart) {
             return dynamic_cast<FenVisChartCorrelation const*>(&chart) != nullptr;
         },
         Sample::Bins, false},
        {[](FenVisualization const& chart) { return dynamic_cast<FenVisChart3D const*>(&chart) != nullptr; },
         Sample::Series, true},
    };
    return table;
}

FenVisLegend::Kind const* FenVisLegend::kind() const
{
    FenVisualization const* const chart = _chart.get();
    if (!chart || empty()) return nullptr;
    auto const& table = kinds();
    auto const found =
        std::find_if(table.begin(), table.end(), [&](Kind const& row) { return row.matches(*chart); });
    return found == table.end() ? nullptr : &*found;
}

bool FenVisLegend::CanExpandVariable(unsigned i) const
{
    return _entries[i].variable && _entries[i].style.valueRamp && _entries[i].intervals.size() > 1;
}

/// The label of an entry; values of a ramp that share a factor have it there, as axes in their titles.
/// @param width  [px] that it may take
QString FenVisLegend::entryText(FenOglText const& text, unsigned i, bool ramps, int width) const
{
    if (!_entries[i].text.isEmpty()) return fen::elided(text, _entries[i].text, width);
    QString factor;
    if (ramps && CanExpandVariable(i)) factor = fen::toFactorLabel(_entries[i].intervals.factor());
    if (!factor.isEmpty()) factor = QStringLiteral("  (%1)").arg(factor);
    return fen::elided(text, fen::legendLabel(*_entries[i].variable), width - text.size(factor).width())
        + factor;
}

/// Lays out as many entries as there is room for, and a last one for the number of the others.
fen::LegendLayout FenVisLegend::arrange(std::vector<fen::LegendEntrySize> const& sizes,
                                        FenOglText const& text, QSize const& area) const
{
    fen::LegendMetrics metrics;
    metrics.lineHeight = text.height();
    bool const vertical = legend.orientation.get() == FenChart::legendVertical;
    QSize const room = roomFor(area, vertical);
    auto const layoutOf = [&](std::size_t shown) {
        std::vector<fen::LegendEntrySize> some(sizes.begin(), sizes.begin() + std::ptrdiff_t(shown));
        std::size_t const hidden = sizes.size() - shown;
        QString const more = moreText(hidden + _unlisted);
        if (hidden > 0) some.push_back({text.size(more), QSize(), more});
        auto layout =
            vertical ? fen::layoutVertical(some, metrics, room) : fen::layoutHorizontal(some, metrics, room);
        layout.hidden = hidden;
        return layout;
    };
    auto const fits = [&](fen::LegendLayout const& layout) { return leavesRoom(layout.box, area, vertical); };
    fen::LegendLayout const all = layoutOf(sizes.size());
    if (sizes.size() < 2 || fits(all)) return all;
    std::size_t least = 1, beyond = sizes.size(); // at least one is shown
    while (beyond - least > 1) {
        std::size_t const middle = (least + beyond) / 2;
        (fits(layoutOf(middle)) ? least : beyond) = middle;
    }
    return layoutOf(least);
}

fen::LegendLayout FenVisLegend::sizeLegend(FenOglText& text, QSize const& area, bool ramps) const
{
    text.clear();
    text.setPointSize(pointSize);
    bool const vertical = legend.orientation.get() == FenChart::legendVertical;
    int const width = fen::legendLabelRoom(roomFor(area, vertical).width(), fen::LegendMetrics());
    std::vector<fen::LegendEntrySize> sizes(_entries.size());
    bool expanded = false;
    for (unsigned i = 0; i < _entries.size(); ++i) {
        if (!_entries[i].variable && !_entries[i].items()) continue;
        bool const ramp = ramps && CanExpandVariable(i);
        sizes[i].text = entryText(text, i, ramp, std::min(width, widestLabel));
        sizes[i].label = text.size(sizes[i].text);
        if (ramp) sizes[i].ramp = rampSize(_entries[i].intervals, text);
        expanded = expanded || ramp;
    }
    auto layout = arrange(sizes, text, area);
    text.clear();
    // Ramps that would hide the chart or entries are left out; the samples show the colours too.
    bool const tooLarge = layout.hidden > 0 || !leavesRoom(layout.box, area, vertical);
    return expanded && tooLarge ? sizeLegend(text, area, false) : layout;
}

/// Entries, layout and automatic place for a data rectangle, unless they are there already.
void FenVisLegend::layOut(FenOglText& text, QSize const& area) const
{
    collectEntries();
    Kind const* const found = kind();
    if (_layoutArea == area || !found) return;
    _layoutArea = area;
    std::vector<QPoint> ink;
    if (auto const* const chart = dynamic_cast<FenVisChart const*>(_chart.get())) ink = chart->drawnPixels();
    bool const automatic = placedAutomatically();
    // True when the box is where somebody wants it, or hides nothing.
    auto const place = [&] {
        if (automatic) _place = fen::leastHidingPlace(_layout.box, area, automaticMargin, ink);
        QRect const covered(_place, _layout.box);
        auto const hidden = [&](QPoint const& at) { return covered.contains(at); };
        return !automatic || std::ranges::none_of(ink, hidden);
    };
    if (found->sample != Sample::Bins) {
        _layout = sizeLegend(text, area, found->ramps);
        double const taken = double(_layout.box.width()) * _layout.box.height();
        if (found->sample == Sample::Items && taken > mostOfItems * area.width() * area.height()) {
            // The ranges of a spider's axes are told by tooltips too.
            std::erase_if(_entries, [](Variable const& entry) { return !entry.items(); });
            _layout = sizeLegend(text, area, found->ramps);
        }
        place();
        return;
    }
    // The bar of bins is as long as it may be without hiding anything; the last one, where nothing helps.
    for (int const lines : {8, 7, 6, 5, 4, 3, 8}) {
        _layout = sizeBins(text, lines);
        if (place()) return;
    }
}

void FenVisLegend::draw2d(DrawContext const& context) const
{
    _rectangles.clear();
    _box.reset();
    layOut(context.text, context.viewport.size());
    Kind const* const found = kind();
    if (!found) return;
    FenOglViewport const own(0, 0, context.viewport.width(), context.viewport.height());
    _area = own;
    // Cut letters tell nothing.
    if (_layout.box.width() > own.width() || _layout.box.height() > own.height()) return;
    context.text.clear();
    context.text.setColor(legend.textColor.get());
    if (found->sample == Sample::Bins)
        drawBins(context.text, own);
    else
        drawLegend(context.cache, context.text, own, found->sample);
    context.text.clear();
}

/// The bar of bins with a rim around it.
/// @param lines  its length in text lines
fen::LegendLayout FenVisLegend::sizeBins(FenOglText& text, int lines) const
{
    text.clear();
    text.setPointSize(pointSize);
    int const rim = 2 * fen::LegendMetrics().padding;
    bool const vertical = legend.orientation.get() == FenChart::legendVertical;
    fen::LegendLayout layout;
    layout.box = fen::sizeCorrelationLegend(text, _bins, lines * text.height(), vertical) + QSize(rim, rim);
    text.clear();
    return layout;
}

void FenVisLegend::drawBins(FenOglText& text, FenOglViewport const& viewport) const
{
    _box = calcLegendViewport(_layout.box, viewport);
    fen::FlatScope const flat;
    decorate(text.color());
    text.setPointSize(pointSize);
    int const padding = fen::LegendMetrics().padding;
    FenOglTextBatch const batch(text);
    QRect const inside(_box.origin() + QPoint(padding, padding),
                       _box.size() - QSize(2 * padding, 2 * padding));
    fen::drawCorrelationLegend(text, _bins, inside, legend.orientation.get() == FenChart::legendVertical);
}

void FenVisLegend::drawLegend(FenOglCache& cache, FenOglText& text, FenOglViewport const& viewport,
                              Sample sample) const
{
    QColor const color = text.color();
    _box = calcLegendViewport(_layout.box, viewport);
    fen::FlatScope const flat;
    decorate(color);
    text.setPointSize(pointSize);
    text.setColor(color);
    for (unsigned i = 0; i < _layout.entries.size(); ++i) {
        fen::LegendLayout::Entry entry = _layout.entries[i];
        for (QRect* part : {&entry.bounds, &entry.sample, &entry.label, &entry.ramp})
            part->translate(_box.origin());
        if (_layout.hidden > 0 && i + 1 == _layout.entries.size()) {
            drawLabel(text, entry);
            break;
        }
        _rectangles.emplace_back(entry.bounds.x(), entry.bounds.y(), entry.bounds.width(),
                                 entry.bounds.height());
        if (_entries[i].variable || _entries[i].items()) drawEntry(cache, text, i, entry, sample);
    }
}

void FenVisLegend::decorate(QColor const& textColor) const
{
    BoxColors const colors = boxColors(textColor);
    float const x0 = float(_box.x());
    float const y0 = float(_box.y());
    float const x1 = x0 + float(_box.width());
    float const y1 = y0 + float(_box.height());
    glColor(colors.background);
    fen::drawRectangle(x0, y0, x1, y1);
    glColor(colors.frame);
    fen::lineWidth(1);
    fen::drawFrame(x0 + 0.5f, y0 + 0.5f, x1 - 0.5f, y1 - 0.5f);
}

void FenVisLegend::drawEntry(FenOglCache& cache, FenOglText& text, unsigned i,
                             fen::LegendLayout::Entry const& entry, Sample sample) const
{
    Variable const& one = _entries[i];
    if (_handler->hovered().isPropertyEqual(one.variable.get())) {
        glColor(boxColors(text.color()).highlight);
        fen::drawRectangle(float(entry.bounds.x() - 2), float(entry.bounds.y() - 1),
                           float(entry.bounds.x() + entry.bounds.width() + 2),
                           float(entry.bounds.y() + entry.bounds.height() + 1));
    }
    {
        fen::FlatScope const flat; // the sample may leave width and smoothing behind
        if (sample == Sample::Items)
            drawItemSample(entry.sample, one.color, one.items());
        else if (sample == Sample::Series)
            fen::drawLegendSample(cache, one.style, entry.sample);
        else
            fen::drawLegendPatch(one.style, entry.sample);
    }
    drawLabel(text, entry);
    if (!entry.ramp.isEmpty()) drawRamp(cache, text, one.style.valueColors(), one.intervals, entry.ramp);
}
