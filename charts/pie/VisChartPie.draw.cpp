#include "charts/pie/VisChartPie.h"
#include "charts/painting/Stroke.h"
#include "charts/pie/PiePicture.h"
#include "charts/pie/VisChartPie.handler.h"
#include "charts/style/Fill.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitProperty.h"
#include "picking/select/VisOglSelectBuffer.h"
#include "picking/select/VisPickScope.h"
#include "services/chartdata/Chart.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglBoxedText.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglText.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/PixelRatio.h"

#include <QRectF>

using Kes::Math::Vector2;

namespace {

constexpr unsigned hitRoom = 10; ///< hits that the buffer of a pick has room for

/// How a ring without any amount looks.
fen::PieStyle placeholderStyle()
{
    fen::PieStyle style;
    style.fill.mode = fen::FillStyle::Sparse;
    style.fill.color = QColor(34, 34, 255, 9);
    style.fill.back = Qt::white;
    style.fill.pattern = FenChart::fillSparse;
    style.stroke.color = QColor(34, 34, 255, 68);
    style.stroke.smooth = true;
    style.stroke.stipple = QStringLiteral("0x0F0F");
    style.outlined = true;
    return style;
}

/// The outline as one strip that ends where it begins.
fen::Strips closedStrip(fen::PieSegment const& segment, fen::PieCircle const& circle)
{
    fen::Strips strip;
    strip.points = segmentOutline(segment, circle);
    strip.points.push_back(strip.points.front());
    strip.pieces.push_back({0, strip.points.size()});
    return strip;
}

} // namespace

void FenVisChartPie::drawSelect2d(DrawContext const& context, FenVisOglSelectWeakPtr select) const
{
    bool const picking = bool(select);
    if (!picking) drawTitle(context, chart);
    if (!_picture || _picture->layout.radius < 1) return;
    fen::FlatScope const flat;
    if (picking) {
        nameSlices(static_cast<SelectContext const&>(context), select);
        return;
    }
    drawPlaceholders(context.cache);
    drawShared(context.cache);
    for (fen::PieLayout::Slice const* slice : _picture->single)
        drawSegment(context.cache, slice->segment, _picture->styles[slice->item], false);
    drawHighlight(context);
    drawLabels(context.text);
}

void FenVisChartPie::drawPlaceholders(FenOglCache& cache) const
{
    fen::PieStyle const style = placeholderStyle();
    for (fen::PieLayout::Ring const& ring : _picture->layout.rings)
        if (ring.empty) drawSegment(cache, ring.whole, style, false);
}

/// All slices that need nothing of their own. Segments do not overlap, so that their order does not matter.
void FenVisChartPie::drawShared(FenOglCache& cache) const
{
    for (fen::PiePicture::Crowd const& crowd : _picture->crowds) {
        cache.gradient(crowd.colors, unsigned(crowd.colors.size()), true).set();
        fen::FlatScope::enableTexture(GL_REPLACE);
        fen::drawProjectedArray(GL_TRIANGLES, crowd.triangles, crowd.places);
        glDisable(GL_TEXTURE_2D);
    }
    fen::drawArray(GL_TRIANGLES, _picture->triangles, _picture->colors);
    for (fen::PiePicture::Outlines const& outlines : _picture->outlines) {
        fen::lineWidth(outlines.width);
        if (outlines.smooth)
            glEnable(GL_LINE_SMOOTH);
        else
            glDisable(GL_LINE_SMOOTH);
        fen::drawArray(GL_LINES, outlines.ends, outlines.colors);
    }
    glDisable(GL_LINE_SMOOTH);
}

/// The slices that can be hit; of many under the mouse the last ones, as they win.
void FenVisChartPie::nameSlices(SelectContext const& context, FenVisOglSelectWeakPtr select) const
{
    QSizeF const size = context.size.expandedTo(QSize(1, 1));
    QPointF const middle = QPointF(context.point) + QPointF(0.5, 0.5);
    QRectF const area(middle - QPointF(size.width() / 2, size.height() / 2), size);
    for (fen::PieLayout::Slice const* slice : _picture->layout.slicesNear(area, hitRoom)) {
        FenChartVariableCache const& cache = _variableCache.cache(unsigned(slice->item));
        if (!cache.alive()) continue;
        FenVisPickScope const name(select, hitProperties(),
                                   [&] { return FenVisHitProperty(&cache.variable()); });
        drawSegment(context.cache, slice->segment, _picture->styles[slice->item], true);
    }
}

void FenVisChartPie::drawSegment(FenOglCache& cache, fen::PieSegment const& segment,
                                 fen::PieStyle const& style, bool picking) const
{
    fen::PieCircle const& circle = _picture->layout.circle;
    std::vector<Vector2> triangles;
    appendTriangles(segment, circle, triangles);
    fen::FillStyle fill = style.fill;
    if (picking && fill.mode != fen::FillStyle::None) {
        fill.mode = fen::FillStyle::Solid;
        fill.color = Qt::black;
    }
    fen::drawFill(fill, cache, [&](bool) { fen::drawArray(GL_TRIANGLES, triangles); });
    if (!style.outlines(segment)) return;
    fen::drawStroke(closedStrip(segment, circle), {}, style.stroke);
    glDisable(GL_LINE_SMOOTH);
}

void FenVisChartPie::drawHighlight(DrawContext const& context) const
{
    FenVisHitProperty const& hovered = _handler->hovered();
    if (!hovered.defined()) return;
    // Above its neighbours, wherever they come in the order.
    for (fen::PieLayout::Ring const& ring : _picture->layout.rings)
        for (fen::PieLayout::Slice const& slice : ring.slices) {
            FenChartVariableCache const& cache = _variableCache.cache(unsigned(slice.item));
            if (!cache.alive() || !hovered.isPropertyEqual(&cache.variable())) continue;
            std::vector<Kes::Math::Vector3> outline;
            for (Vector2 const& corner : segmentOutline(slice.segment, _picture->layout.circle))
                outline.emplace_back(corner.x(), corner.y(), 0.0f);
            context.geometry.drawHighlightedLine(1, outline, true);
        }
}

void FenVisChartPie::drawLabels(FenOglText& text) const
{
    text.clear();
    FenOglTextBatch const batch(text);
    FenOglBoxedText box(text);
    box.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    for (fen::PiePicture::Label const& label : _picture->labels) {
        text.setColor(label.color);
        box.draw(label.middle, label.text);
    }
    text.clear();
}

FenVisHitRecordList FenVisChartPie::select2d(SelectContext const& context) const
{
    // The table of names is not emptied: names begin anew with each pass and are overwritten.
    FenVisOglSelectBuffer buffer(hitRoom);
    {
        FenVisOglSelect select(context, buffer);
        drawSelect2d(select, FenVisOglSelectWeakPtr(select));
    }
    return getHitRecords(buffer.records(), &chart, _handler, FenVisHitProperty());
}
