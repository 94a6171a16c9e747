#include "charts/spider/VisChartSpider.h"

#include "axes/ElidedText.h"
#include "charts/ChartMetrics.h"
#include "charts/multiaxis/ItemAxis.h"
#include "charts/multiaxis/ItemPass.h"
#include "charts/spider/SpiderLayout.h"
#include "charts/spider/VisChartSpider.handler.h"
#include "framework/DrawContext.h"
#include "picking/select/VisPickScope.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <cmath>
#include <numbers>

using Kes::Math::Vector2;

namespace {

/// Hits beside the axes that a pick has room for; one axis more may be met at its labels.
constexpr unsigned extraHits = 10;
constexpr float axisWidth = 1, highlightedAxisWidth = 3; // [px]
constexpr float tickBegin = -2, tickEnd = 3; // [px] across the axis
constexpr int markerCorners = 24;

QColor axisColor(FenChartVariable const& variable)
{
    QList<QColor> const& colors = variable.colors.get();
    return colors.isEmpty() ? QColor(Qt::black) : colors.first();
}

/// Mark at the end of an axis that points up.
void drawMarker(float bottom, float size, bool filled)
{
    std::vector<Vector2> circle;
    for (int i = 0; i < markerCorners; ++i) {
        double const angle = 2 * std::numbers::pi * i / markerCorners;
        circle.emplace_back(float(std::cos(angle)) * size / 2,
                            bottom + size / 2 + float(std::sin(angle)) * size / 2);
    }
    if (filled) fen::drawArray(GL_TRIANGLE_FAN, circle);
    fen::lineWidth(axisWidth);
    fen::drawArray(GL_LINE_LOOP, circle);
}

} // namespace

FenVisHitRecordList FenVisChartSpider::select2d(SelectContext const& context) const
{
    return pick(
        context, _validVariables.size() + extraHits, chart, _handler,
        [&](FenVisOglSelectWeakPtr select) { drawSelect2d(context, fen::pickArea(context), select); });
}

void FenVisChartSpider::drawSelect2d(DrawContext const& context, QRectF const& area,
                                     FenVisOglSelectWeakPtr select) const
{
    if (!select) drawTitle(context, chart);
    if (!_layout || !_picture) return;
    fen::FlatScope const flat;
    drawSpiderAxes(select);
    drawSpiderData(context, area, select);
    drawSpiderAxesLabels(context.text, select);
}

void FenVisChartSpider::drawSpiderAxes(FenVisOglSelectWeakPtr select) const
{
    fen::MatrixScope const matrix(GL_MODELVIEW);
    glTranslatef(float(_layout->center.x()) + 0.5f, float(_layout->center.y()) + 0.5f, 0);
    for (unsigned i = 0; i < _axes->size(); ++i) {
        if (!_validVariables.alive(i)) continue;
        FenChartVariable const& variable = _validVariables.variable(i);
        FenVisPickScope const name(select, hitProperties(), [&] { return FenVisHitProperty(&variable); });
        fen::MatrixScope const turned(GL_MODELVIEW);
        glRotated(_layout->turn(i), 0, 0, 1);
        drawAxis(i, !select && _handler->hovered().isPropertyEqual(&variable));
    }
}

/// One axis, pointing up.
void FenVisChartSpider::drawAxis(unsigned index, bool wide) const
{
    FenChartVariable const& variable = _validVariables.variable(index);
    fen::ItemAxis const& axis = (*_axes)[index];
    float const radius = float(_layout->radius);
    glColor(axisColor(variable));
    fen::lineWidth(wide ? highlightedAxisWidth : axisWidth);
    std::vector<Vector2> lines = {Vector2(0, 0), Vector2(0, radius)};
    // The minimum itself, at the centre, carries no tick.
    for (fen::ItemTick const& tick : (*_ticks)[index]) {
        float const y = float(std::round(tick.fraction * _layout->radius));
        bool const inner = axis.inverted ? tick.fraction >= 1 : tick.fraction <= 0;
        if (inner) continue;
        lines.emplace_back(tickBegin, y);
        lines.emplace_back(tickEnd, y);
    }
    fen::drawArray(GL_LINES, lines);
    drawMarker(radius, float(_layout->marker), variable.fillMode.get() == FenChart::fillSolid);
}

void FenVisChartSpider::drawSpiderData(DrawContext const& context, QRectF const& area,
                                       FenVisOglSelectWeakPtr select) const
{
    if (select) return fen::nameItems(*_picture, chart, area, extraHits - 1, select, hitProperties());
    _picture->draw();
    qint64 const hovered = fen::hitItem(_handler->hovered(), chart);
    if (hovered >= 0) fen::drawHighlightedItem(*_picture, std::size_t(hovered), context.geometry);
}

void FenVisChartSpider::drawSpiderAxesLabels(FenOglText& text, FenVisOglSelectWeakPtr select) const
{
    text.clear();
    text.setPointSize(fen::ChartMetrics::labelPointSize);
    for (unsigned i = 0; i < _axes->size(); ++i) {
        fen::SpiderLabel const& label = _layout->labels[i];
        if (!_validVariables.alive(i) || (label.room <= 0 && i > 0)) continue;
        FenChartVariable const& variable = _validVariables.variable(i);
        FenVisPickScope const name(select, hitProperties(), [&] { return FenVisHitProperty(&variable); });
        text.setColor(variable.labelColor.get());
        if (i == 0) drawTickLabels(text);
        text.setAlignment(label.alignment);
        text.draw(label.anchor, fen::elided(text, fen::itemAxisLabel(variable), label.room));
    }
    text.clear();
}

/// Values beside the ticks of the first axis, which points up.
void FenVisChartSpider::drawTickLabels(FenOglText& text) const
{
    fen::ItemAxis const& axis = _axes->front();
    int const h = text.height(), x = 2 * ((h + 3) / 4) + 4;
    text.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (fen::ItemTick const& tick : _ticks->front()) {
        bool const inner = axis.inverted ? tick.fraction >= 1 : tick.fraction <= 0;
        int const y = int(std::round(tick.fraction * _layout->radius));
        QString const label = fen::elided(text, tick.label, _layout->radius - x);
        if (inner || label.isEmpty()) continue;
        QPoint const anchor = _layout->center + QPoint(x, y);
        fen::drawTextGround(anchor, text, label);
        text.draw(anchor, label);
    }
}
