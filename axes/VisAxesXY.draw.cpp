#include "axes/VisAxesXY.h"
#include "axes/AxisMetrics.h"
#include "axes/ElidedText.h"
#include "charts/chart2d/VisChart2D.h"
#include "picking/hits/VisHitProperty.h"
#include "picking/select/VisPickScope.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglBoxedText.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>

using fen::AxisMetrics;
using Kes::Math::Vector2;

namespace {

Vector2 place(int x, int y) { return Vector2(float(x), float(y)); }

void addLine(std::vector<Vector2>& lines, Vector2 const& from, Vector2 const& to)
{
    lines.push_back(from);
    lines.push_back(to);
}

/// [px] lines run through pixel centres, so that those of odd width are sharp.
void drawLines(std::vector<Vector2> const& lines)
{
    fen::MatrixScope const matrix(GL_MODELVIEW);
    glTranslatef(0.5f, 0.5f, 0);
    fen::drawArray(GL_LINES, lines);
}

int upright(FenOglText const& text) { return text.height() + AxisMetrics::labelGap; }

int labelShift(FenChartAxisScale const& scale, std::vector<fen::Tick> const& ticks, int length)
{
    if (!scale.centered()) return 0;
    return ticks.size() < 2 ? length / 2 : (ticks[1].pixel - ticks[0].pixel) / 2;
}

} // namespace

void FenVisAxesXY::Draw(FenOglText& text, FenVisChart2D const& chart, FenChartAxisPairScale const& xScale,
                        FenChartAxisPairScale const& yScale, FenOglViewport const& dataViewport,
                        FenVisOglSelectWeakPtr select, FenVisHitProperty const& highlighted,
                        int chartWidth) const
{
    if (!dataViewport.valid()) return;
    PlacedAxes axes = placeAxes(chart.chart.xAxes, chart.chart.yAxes, xScale, yScale);
    fen::FlatScope const flat;
    text.clear();
    text.setPointSize(AxisMetrics::pointSize);
    for (Placed& axis : axes) axis.ticks = placeTicks(axis, dataViewport, text);
    if (!select) drawGrid(axes, dataViewport);
    drawAxesLabels(text, chart, axes, dataViewport, select, chartWidth);
    drawAxes(chart, axes, dataViewport, select, highlighted);
    text.clear();
}

void FenVisAxesXY::drawGrid(PlacedAxes const& axes, FenOglViewport const& data)
{
    fen::lineWidth(1);
    for (Placed const& axis : axes) {
        QColor const color = axis.axis.gridColor.get();
        if (color.alpha() == 0) continue;
        glColor(color);
        std::vector<int> points = fen::markedPixels(axis.ticks, AxisMetrics::tickSpace);
        if (axis.vertical()) {
            points.push_back(data.y());
            points.push_back(data.y() + data.height());
        } else {
            points.push_back(data.x());
            points.push_back(data.x() + data.width());
        }
        // Translucent lines that fall together must not add up.
        std::sort(points.begin(), points.end());
        points.erase(std::unique(points.begin(), points.end()), points.end());
        if (axis.vertical())
            drawHorzGrid(points, data);
        else
            drawVertGrid(points, data);
    }
}

void FenVisAxesXY::drawVertGrid(std::vector<int> const& points, FenOglViewport const& data)
{
    std::vector<Vector2> lines;
    for (int p : points) addLine(lines, place(p, data.y()), place(p, data.y() + data.height() + 1));
    drawLines(lines);
}

void FenVisAxesXY::drawHorzGrid(std::vector<int> const& points, FenOglViewport const& data)
{
    std::vector<Vector2> lines;
    for (int p : points) addLine(lines, place(data.x(), p), place(data.x() + data.width() + 1, p));
    drawLines(lines);
}

void FenVisAxesXY::drawAxesLabels(FenOglText& text, FenVisChart2D const& chart, PlacedAxes const& axes,
                                  FenOglViewport const& data, FenVisOglSelectWeakPtr select, int chartWidth)
{
    for (Placed const& axis : axes) {
        FenVisPickScope const name(select, chart.hitProperties(),
                                   [&] { return FenVisHitProperty(&axis.axis); });
        if (axis.visible()) drawTicks(axis, data);
        FenOglTextBatch const joined(text);
        text.setColor(axis.axis.labelColor.get());
        (axis.vertical() ? drawColumn : drawRow)(text, axis, data, chartWidth);
        drawTitle(text, axis, data);
    }
}

void FenVisAxesXY::drawTicks(Placed const& axis, FenOglViewport const& data)
{
    // Whole pixels as areas: how long a line is depends on where it begins. They touch the axis line.
    int const inner = AxisMetrics::tickStart, outer = AxisMetrics::tickEnd;
    int const right = data.x() + data.width(), top = data.y() + data.height();
    std::vector<Vector2> marks;
    auto const add = [&](int x, int y, int width, int height) {
        marks.insert(marks.end(),
                     {place(x, y), place(x + width, y), place(x + width, y + height), place(x, y + height)});
    };
    for (int p : fen::markedPixels(axis.ticks, AxisMetrics::tickSpace)) {
        switch (axis.side) {
        case Bottom:
            add(p, data.y() - outer + 1, 1, outer - inner);
            break;
        case Top:
            add(p, top + inner, 1, outer - inner);
            break;
        case Left:
            add(data.x() - outer + 1, p, outer - inner, 1);
            break;
        case Right:
            add(right + inner, p, outer - inner, 1);
            break;
        }
    }
    glColor(axis.axis.color.get());
    fen::drawArray(GL_QUADS, marks);
}

/// Labels of the left or right side. Where there is no title the widest one would leave the chart: all of
/// them move to the axis.
void FenVisAxesXY::drawColumn(FenOglText& text, Placed const& axis, FenOglViewport const& data,
                              int chartWidth)
{
    bool const left = axis.side == Left;
    int const shift = labelShift(axis.scale, axis.ticks, data.height());
    int const edge = left ? data.x() : data.x() + data.width();
    int widest = 0;
    for (fen::Tick const& tick : axis.ticks) widest = std::max(widest, text.size(tick.label).width());
    int const room = (left ? edge : chartWidth - edge) - widest - AxisMetrics::rim;
    int const away = std::max(std::min(upright(text), room), AxisMetrics::tickEnd + 1);
    text.setAlignment((left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    for (fen::Tick const& tick : axis.ticks)
        text.draw(QPoint(left ? edge - away : edge + away, tick.pixel - shift), tick.label);
}

/// Labels below or above. The first and the last may move a little so that they stay in the chart.
void FenVisAxesXY::drawRow(FenOglText& text, Placed const& axis, FenOglViewport const& data, int chartWidth)
{
    int const distance = upright(text), shift = labelShift(axis.scale, axis.ticks, data.width());
    int const y = axis.side == Bottom ? data.y() - distance : data.y() + data.height() + distance;
    int taken = 0; // [half px] what the labels so far have taken of the row; halves as widths may be odd
    text.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    for (fen::Tick const& tick : axis.ticks) {
        if (tick.label.isEmpty()) continue;
        int const p = tick.pixel - shift, width = text.size(tick.label).width();
        int const half = (width + 1) / 2 + AxisMetrics::rim;
        int const inside = std::clamp(p, std::min(half, p + AxisMetrics::labelShift),
                                      std::max(chartWidth - half, p - AxisMetrics::labelShift));
        if (inside < half || inside > chartWidth - half || 2 * inside - width < taken) continue;
        taken = 2 * inside + width + 2 * AxisMetrics::labelSpace;
        text.draw(QPoint(inside, y), tick.label);
    }
}

void FenVisAxesXY::drawTitle(FenOglText& text, Placed const& axis, FenOglViewport const& data)
{
    if (axis.axis.titleColor.get().alpha() == 0) return; // its room stays
    int const length = axis.vertical() ? data.height() : data.width();
    QString const title = fen::elided(text, getAxisTitle(axis.axis), length - 2 * AxisMetrics::titlePadding);
    if (title.isEmpty()) return;
    int const distance = upright(text);
    int const half = qRound(1.5 * distance);
    int const width = axis.vertical() ? divLabelMaxWidth(axis.scale, text) : 0;
    QPoint anchor(data.x() + data.width() / 2, data.y() + data.height() / 2);
    Kes::Math::Angle turn = Kes::Math::Angle0;
    switch (axis.side) {
    case Bottom:
        anchor.setY(data.y() - distance - half);
        break;
    case Top:
        anchor.setY(data.y() + data.height() + distance + half);
        break;
    case Left:
        anchor.setX(data.x() - distance - distance - width);
        turn = Kes::Math::Angle90;
        break;
    case Right:
        anchor.setX(data.x() + data.width() + distance + width + distance);
        turn = Kes::Math::Angle270;
        break;
    }
    QColor const box = axis.axis.titleBoxColor.get();
    text.setColor(axis.axis.labelColor.get());
    FenOglBoxedText boxed(text);
    boxed.setColor(box.darker(200), box);
    boxed.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    boxed.setOrientation(turn);
    boxed.draw(anchor, QSize(length, AxisMetrics::titleLines * text.height()), title);
}

void FenVisAxesXY::drawAxes(FenVisChart2D const& chart, PlacedAxes const& axes, FenOglViewport const& data,
                            FenVisOglSelectWeakPtr select, FenVisHitProperty const& highlighted) const
{
    int const d = AxisMetrics::lineOffset;
    int const right = data.x() + data.width() + d, top = data.y() + data.height() + d;
    for (Placed const& axis : axes) {
        if (!axis.visible()) continue;
        FenVisPickScope const name(select, chart.hitProperties(),
                                   [&] { return FenVisHitProperty(&axis.axis); });
        bool const wide = !select && highlighted.isPropertyEqual(&axis.axis);
        int const width = wide ? AxisMetrics::highlightedLineWidth : AxisMetrics::lineWidth;
        Vector2 from, to;
        switch (axis.side) {
        case Bottom:
            from = place(data.x(), data.y() - d), to = place(right, data.y() - d);
            break;
        case Top:
            from = place(data.x(), top), to = place(right, top);
            break;
        case Left:
            from = place(data.x() - d, data.y()), to = place(data.x() - d, top);
            break;
        case Right:
            from = place(right, data.y()), to = place(right, top);
            break;
        }
        glColor(axis.axis.color.get());
        // A rectangle of the line's width, because picking knows no line width; longer at both ends, so
        // that axes that meet share a whole corner.
        float const half = 0.5f * float(width) - 0.5f;
        float const before = axis.vertical() ? 0 : float(d), below = axis.vertical() ? float(d) : 0;
        fen::drawRectangle(from.x() - before - half, from.y() - below - half, to.x() + half + 1,
                           to.y() + half + 1);
    }
}
