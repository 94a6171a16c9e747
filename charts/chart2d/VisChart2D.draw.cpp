#include "charts/chart2d/VisChart2D.h"
#include "charts/chart2d/DrawnVariable.h"
#include "charts/chart2d/VisChart2D.handler.h"
#include "charts/chart2d/VisChart2D.parts.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/logging/DebugLogger.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"

#include <algorithm>

namespace {

/// Limits drawing in selection mode, which knows no scissor, to a rectangle of the current pixels.
void clipTo(FenOglViewport const& area)
{
    double const x0 = area.x() + 1, x1 = area.x() + area.width();
    double const y0 = area.y() + 1, y1 = area.y() + area.height();
    GLdouble const planes[4][4] = {{1, 0, 0, -x0}, {-1, 0, 0, x1}, {0, 1, 0, -y0}, {0, -1, 0, y1}};
    for (unsigned i = 0; i < 4; ++i) {
        glClipPlane(GL_CLIP_PLANE0 + i, planes[i]);
        glEnable(GL_CLIP_PLANE0 + i);
    }
}

/// [px] what of the pick region lies in the visible part of the data rectangle, relative to the latter.
QRectF pickArea(FenVisualization::DrawContext const& context, FenOglViewport const& data)
{
    auto const* const select = dynamic_cast<FenVisualization::SelectContext const*>(&context);
    if (!select) return QRectF();
    QSizeF const size(std::max(1, select->size.width()), std::max(1, select->size.height()));
    QPointF const center = QPointF(select->point - data.origin()) + QPointF(0.5, 0.5);
    QRectF const visible(1, 1, data.width() - 1, data.height() - 1);
    return QRectF(center - QPointF(size.width() / 2, size.height() / 2), size) & visible;
}

} // namespace

void FenVisChart2D::drawSelect2d(DrawContext const& context, QPoint const& mouse,
                                 FenVisOglSelectWeakPtr select) const
{
    if (!_dataViewport.valid()) return;
    bool const picking = bool(select);
    fen::FlatScope const whole; // those inside cost less
    if (!picking) drawTitle(context, chart);
    if (chart.view3D.get()) return;
    context.text.clear();
    context.text.setColor(chart.textColor.get());
    _axes.Draw(context.text, *this, _xScale, _yScale, _dataViewport, select, _handler->hovered(),
               context.viewport.width());

    fen::FlatScope const flat;
    fen::scissor(context.viewport.x() + _dataViewport.x() + 1, context.viewport.y() + _dataViewport.y() + 1,
                 _dataViewport.width() - 1, _dataViewport.height() - 1);
    glEnable(GL_SCISSOR_TEST);
    if (picking) clipTo(_dataViewport);
    Pass const pass{context, select, mouse, picking ? pickArea(context, _dataViewport) : QRectF()};
    if (picking && pass.area.isEmpty()) return;
    for (std::size_t i = _variables.size(); i-- > 0;)
        if (_variables[i].valid() && _variables[i].picture) drawVariable(pass, _variables[i]);
    context.text.clear();
}

void FenVisChart2D::drawVariable(Pass const& pass, fen::DrawnVariable const& one) const
{
    Highlight const highlight = highlightOf(one.variable(), bool(pass.select));
    {
        fen::MatrixScope const matrix(GL_MODELVIEW);
        FenOglViewport const& own = pass.context.viewport;
        float const width = float(own.width()), height = float(own.height());
        glLoadIdentity();
        glTranslatef(-1 + 2 * float(_dataViewport.x()) / width, -1 + 2 * float(_dataViewport.y()) / height,
                     0);
        glScalef(2 / width, 2 / height, 1);
        // A point on the border of two pixels belongs to the upper right one, as symbols do.
        glTranslatef(1.0f / 32, 1.0f / 32, 0);
        drawCurve(pass, one, highlight);
    }
    fen::MatrixScope const matrix(GL_MODELVIEW);
    glTranslatef(float(_dataViewport.x()), float(_dataViewport.y()), 0);
    pass.context.text.clear();
    drawSymbol(pass, one, highlight);
    if (!pass.select) fen::drawLabels(one.picture->labels, one.picture->style.labelColor, pass.context.text);
}

FenVisChart2D::Highlight FenVisChart2D::highlightOf(FenChartVariable const& variable, bool picking) const
{
    FenVisHitProperty const& hovered = _handler->hovered();
    if (picking || !hovered.isPropertyEqual(&variable)) return {};
    auto const* const point = dynamic_cast<FenVisHitDataPointQualifier const*>(hovered.qualifier.get());
    if (!point) return {true, -1};
    fen::debug_logger::debuglogger().dlog << "highlighted index: " << point->dataPointIdx << '\n';
    return {true, qint64(point->dataPointIdx)};
}

FenVisHitRecordList FenVisChart2D::select2d(SelectContext const& context) const
{
    if (chart.view3D.get()) return FenVisHitRecordList();
    return pick(context, hitRoom(), chart, _handler,
                [&](FenVisOglSelectWeakPtr select) { drawSelect2d(context, context.point, select); });
}

FenVisHitRecordList FenVisChart2D::select3d(SelectContext const& context) const
{
    if (!chart.view3D.get()) return FenVisHitRecordList();
    return pick(context, hitRoom(), chart, _handler,
                [&](FenVisOglSelectWeakPtr select) { drawSelect3d(context, context.point, select); });
}

/// Hits that the buffer of a pick has room for.
unsigned FenVisChart2D::hitRoom() const
{
    auto const valid = std::count_if(_variables.begin(), _variables.end(),
                                     [](fen::DrawnVariable const& one) { return one.valid(); });
    return (unsigned(valid) + 1) * 10;
}
