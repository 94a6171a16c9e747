#include "charts/multiaxis/ItemPass.h"

#include "charts/painting/Stroke.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisPickScope.h"
#include "services/chartdata/ChartMultiAxis.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/VertexArrays.h"
#include "services/properties/ColorSchemes.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace fen {

namespace {

constexpr float highlightedWidth = 3; // [px]
constexpr int groundAlpha = 175; // lines shine through a little

} // namespace

QRectF pickArea(FenVisualization::SelectContext const& context)
{
    QSizeF const size(std::max(1, context.size.width()), std::max(1, context.size.height()));
    QPointF const center = QPointF(context.point) + QPointF(0.5, 0.5);
    return QRectF(center - QPointF(size.width() / 2, size.height() / 2), size);
}

qint64 hitItem(FenVisHitProperty const& hit, FenChartMultiAxis const& chart)
{
    auto const* const point = dynamic_cast<FenVisHitDataPointQualifier const*>(hit.qualifier.get());
    return point && hit.isPropertyEqual(&chart) ? qint64(point->dataPointIdx) : -1;
}

void nameItems(ItemPicture const& picture, FenChartMultiAxis const& chart, QRectF const& area,
               std::size_t room, FenVisOglSelectWeakPtr select, FenVisHitTable& table)
{
    auto const name = [&](std::size_t item) {
        return [&chart, item] {
            return FenVisHitProperty(&chart, boost::make_shared<FenVisHitDataPointQualifier>(quint32(item)));
        };
    };
    std::vector<std::size_t> const lines = picture.itemsNear(area, room);
    for (std::size_t const item : picture.fillsNear(area, room - lines.size())) {
        FenVisPickScope const scope(select, table, name(item));
        drawArray(GL_TRIANGLES, picture.triangles(item));
    }
    for (std::size_t const item : lines) {
        FenVisPickScope const scope(select, table, name(item));
        drawStrips(GL_LINE_STRIP, picture.line(item));
    }
}

void drawTextGround(QPoint const& anchor, FenOglText const& text, QString const& label)
{
    QColor ground = readableOn(text.color());
    ground.setAlpha(groundAlpha);
    int const half = text.height() / 2, width = text.size(label).width();
    int const left = text.alignment() & Qt::AlignLeft ? anchor.x() - width : anchor.x();
    glColor(ground);
    drawRectangle(float(left - 1), float(anchor.y() - half), float(left + width + 1),
                  float(anchor.y() + half));
}

void drawHighlightedItem(ItemPicture const& picture, std::size_t item, FenOglGeometry const& geometry)
{
    if (item >= picture.items()) return;
    StrokeStyle style;
    style.color = picture.color(item);
    style.width = highlightedWidth;
    style.smooth = true;
    Strips const line = picture.line(item);
    drawGlow(geometry, line, style.color, style.width);
    drawStroke(line, {}, style);
    glDisable(GL_LINE_SMOOTH);
}

} // namespace fen
