#include "charts/correlation/VisChartCorrelation.h"
#include "charts/correlation/CorrelationPicture.h"
#include "charts/correlation/VisChartCorrelation.handler.h"
#include "charts/painting/PickShapes.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <QRect>

#include <boost/make_shared.hpp>

#include <algorithm>

using Kes::Math::Vector2;

namespace {

constexpr float highlightWidth = 2; // [px]
constexpr float tickLength = 3; // [px]

} // namespace

void FenVisChartCorrelation::draw2d(DrawContext const& context) const
{
    drawTitle(context, chart);
    if (!_picture || !_picture->layout.matrix.valid()) return;
    fen::FlatScope const flat;
    drawCorrelationData(context);
    drawCorrelationGrid(context);
    context.text.clear();
}

void FenVisChartCorrelation::drawCorrelationData(DrawContext const& context) const
{
    // Blending takes software renderers longer and changes nothing where all is opaque.
    if (_picture->opaque) glDisable(GL_BLEND);
    FenOglViewport const& area = _picture->layout.matrix;
    float const left = float(area.x()), right = left + float(area.width());
    float const bottom = float(area.y()), top = bottom + float(area.height());
    _picture->cells.set();
    fen::FlatScope::enableTexture(GL_REPLACE);
    fen::drawTexturedArray(
        GL_TRIANGLE_STRIP,
        {Vector2(left, bottom), Vector2(right, bottom), Vector2(left, top), Vector2(right, top)},
        {Vector2(0, 0), Vector2(1, 0), Vector2(0, 1), Vector2(1, 1)});
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);

    FenOglText& text = context.text;
    text.clear();
    text.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    FenOglTextBatch const batch(text);
    for (fen::CorrelationPicture::Text const& number : _picture->numbers) {
        text.setColor(number.color);
        text.draw(number.anchor, number.text);
    }
    drawHighlight();
}

void FenVisChartCorrelation::drawHighlight() const
{
    FenVisHitProperty const& hovered = _handler->hovered();
    auto const* const cell = dynamic_cast<FenVisHitVector2Qualifier const*>(hovered.qualifier.get());
    if (!cell || !hovered.isPropertyEqual(&chart)) return;
    if (std::max(cell->x, cell->y) >= _picture->layout.count) return; // hovered in a copy of other size
    FenOglViewport const area = _picture->layout.cellRectangle(int(cell->x), int(cell->y));
    float const left = float(area.x()), right = left + float(area.width());
    float const bottom = float(area.y()), top = bottom + float(area.height());
    glColor(chart.textColor.get());
    fen::lineWidth(highlightWidth);
    fen::drawArray(GL_LINES,
                   std::vector<Vector2>{{left, bottom},
                                        {right, bottom},
                                        {right, bottom},
                                        {right, top},
                                        {right, top},
                                        {left, top},
                                        {left, top},
                                        {left, bottom}});
    fen::lineWidth(1);
}

void FenVisChartCorrelation::drawCorrelationGrid(DrawContext const& context) const
{
    QColor const color = chart.textColor.get();
    if (color.alpha() == 0) return;
    // Around the cells, so that none is smaller than another.
    FenOglViewport const& area = _picture->layout.matrix;
    float const left = float(area.x()) - 0.5f, right = float(area.x() + area.width()) + 0.5f;
    float const bottom = float(area.y()) - 0.5f, top = float(area.y() + area.height()) + 0.5f;
    glColor(color);
    fen::drawFrame(left, bottom, right, top);
    std::vector<Vector2> ticks;
    for (fen::CorrelationPicture::Text const& name : _picture->rowNames) {
        float const y = float(name.anchor.y()) + 0.5f;
        ticks.insert(ticks.end(), {Vector2(left - tickLength, y), Vector2(left, y)});
    }
    for (fen::CorrelationPicture::Text const& name : _picture->columnNames) {
        float const x = float(name.anchor.x()) + 0.5f;
        ticks.insert(ticks.end(), {Vector2(x, top), Vector2(x, top + tickLength)});
    }
    fen::drawArray(GL_LINES, ticks);

    FenOglText& text = context.text;
    text.clear();
    text.setColor(color);
    FenOglTextBatch const batch(text);
    text.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (fen::CorrelationPicture::Text const& name : _picture->rowNames) text.draw(name.anchor, name.text);
    text.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    text.setOrientation(Kes::Math::Angle90);
    for (fen::CorrelationPicture::Text const& name : _picture->columnNames) text.draw(name.anchor, name.text);
}

FenVisHitRecordList FenVisChartCorrelation::select2d(SelectContext const& context) const
{
    hitProperties().clear();
    if (!_picture || !_picture->layout.matrix.valid()) return FenVisHitRecordList();
    fen::CorrelationLayout const& layout = _picture->layout;
    if (!fen::pickedPixels(context.point, context.size)
             .intersects(QRect(layout.matrix.origin(), layout.matrix.size())))
        return FenVisHitRecordList();
    QPoint const cell = layout.cellAt(context.point);
    quint32 const name = quint32(layout.count * cell.y() + cell.x()) + FenVisHitRecord::START_NAME;
    FenVisHitProperty const property(
        &chart, boost::make_shared<FenVisHitVector2Qualifier>(double(cell.y()), double(cell.x())));
    hitProperties().insert(name, property);
    return getHitRecords({FenVisHitRecord(name, double(FenVisHitRecord::OVERLAY_DEPTH))}, &chart, _handler,
                         property);
}
