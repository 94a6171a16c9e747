#include "charts/chart2d/VisChart2D.h"
#include "charts/chart2d/DrawnVariable.h"
#include "charts/chart2d/VisChart2D.parts.h"
#include "charts/style/PointText.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitProjectedPointQualifier.h"
#include "picking/select/VisPickScope.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

using fen::VariablePicture;
using fen::VariableStyle;
using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

/// Points of a variable that get a name in one pick: what the buffer leaves beside axes and curves. The
/// last ones win, so no others are needed.
constexpr std::size_t mostPoints = 9;
constexpr float extensionWidth = 2; // [px]
constexpr unsigned short extensionPattern = 0x0F0F;

void drawExtensions(VariablePicture const& picture)
{
    if (picture.extensions.empty()) return;
    glColor(picture.style.stroke.color);
    glDisable(GL_LINE_SMOOTH);
    glEnable(GL_LINE_STIPPLE);
    fen::lineWidth(extensionWidth);
    fen::lineStipple(1, extensionPattern);
    fen::drawStrips(GL_LINE_STRIP, picture.extensions);
    glDisable(GL_LINE_STIPPLE);
    fen::lineWidth(1);
}

/// Corners of all quads of the curve that may lie under the pick region.
std::vector<Vector2> pickShapes(VariablePicture const& picture, QRectF const& area)
{
    std::vector<Vector2> quads = fen::shapeQuads(picture.shape, picture.style, area);
    std::vector<Vector2> const more =
        fen::lineQuads(picture.extensions, picture.extensionIndex, area, {extensionWidth, false, nullptr});
    quads.insert(quads.end(), more.begin(), more.end());
    return quads;
}

/// Chart space, -1 to 1 on both axes, to the clip space of a viewport.
Matrix chartToClip(FenOglViewport const& data, FenOglViewport const& own)
{
    Matrix matrix;
    matrix(0, 0) = float(data.width()) / float(own.width());
    matrix(1, 1) = float(data.height()) / float(own.height());
    matrix(0, 3) = float(2 * data.x() + data.width()) / float(own.width()) - 1;
    matrix(1, 3) = float(2 * data.y() + data.height()) / float(own.height()) - 1;
    return matrix;
}

/// [px] middle of a symbol at a pixel.
Vector3 symbolCenter(QPoint const& pixel, int size)
{
    float const half = 0.5f * float(size);
    return Vector3(float(pixel.x() - size / 2) + half, float(pixel.y() - size / 2) + half, 0);
}

/// Pixels whose symbol square, from size / 2 before it, meets an area; exactly, because only the last few
/// points in it get a name.
QRect pixelsOfSquares(QRectF const& area, int size)
{
    auto const first = [&](double low) { return int(std::floor(low)) - size + size / 2 + 1; };
    auto const last = [&](double high) { return int(std::ceil(high)) + size / 2 - 1; };
    return QRect(QPoint(first(area.left()), first(area.top())),
                 QPoint(last(area.right()), last(area.bottom())));
}

/// Pixels whose middle lies in an area.
QRect pixelsOfPoints(QRectF const& area)
{
    return QRect(QPoint(int(std::ceil(area.left() - 0.5)), int(std::ceil(area.top() - 0.5))),
                 QPoint(int(std::floor(area.right() - 0.5)), int(std::floor(area.bottom() - 0.5))));
}

} // namespace

void FenVisChart2D::drawCurve(Pass const& pass, fen::DrawnVariable const& one,
                              Highlight const& highlight) const
{
    VariablePicture const& picture = *one.picture;
    if (!pass.select) {
        drawExtensions(picture);
        if (highlight.whole()) fen::drawShapeGlow(picture.shape, picture.style, pass.context.geometry);
        fen::drawShape(picture.shape, picture.style, pass.context.cache);
        return;
    }
    std::vector<Vector2> const quads = pickShapes(picture, pass.area);
    if (quads.empty()) return;
    FenVisPickScope const name(pass.select, hitProperties(), [&] {
        return FenVisHitProperty(&one.variable(),
                                 boost::make_shared<FenVisHitProjectedPointQualifier>(
                                     chartToClip(_dataViewport, pass.context.viewport) * one.matrix,
                                     pass.context.projection, pass.context.viewport, pass.mouse, _scaling,
                                     _offset));
    });
    fen::drawArray(GL_QUADS, quads);
}

void FenVisChart2D::drawSymbol(Pass const& pass, fen::DrawnVariable const& one,
                               Highlight const& highlight) const
{
    if (pass.select) return nameSymbols(pass, one);
    VariablePicture const& picture = *one.picture;
    VariableStyle const& style = picture.style;
    std::size_t const count = picture.symbolPoints.size();
    FenOglViewport const area(0, 0, _dataViewport.width(), _dataViewport.height());
    double const halo = style.symbolSize + 2;
    FenOglGeometry const& geometry = pass.context.geometry;
    std::size_t drawn = 0;
    if (highlight.whole()) {
        for (QPoint const& place : picture.symbols.positions())
            geometry.drawHighlightedPoint(symbolCenter(place, style.symbolSize), halo);
    } else if (highlight.on && picture.data.defined(std::size_t(highlight.point))) {
        std::size_t const point = std::size_t(highlight.point);
        auto const at = std::lower_bound(picture.symbolPoints.begin(), picture.symbolPoints.end(), point);
        drawn = std::size_t(at - picture.symbolPoints.begin());
        if (drawn > 0) picture.symbols.draw(pass.context.cache, area, 0, drawn);
        Vector3 const center = symbolCenter(picture.data.pixel(point), style.symbolSize);
        geometry.drawHighlightedPoint(center, halo);
        // Its symbol may have been left out for a later one in the same place.
        if (style.symbol >= 0 && (at == picture.symbolPoints.end() || *at != point)) {
            fen::pointSize(float(style.symbolSize));
            FenOglGeometry::drawTexturedPoint(pass.context.cache, center, plotSymbols, unsigned(style.symbol),
                                              style.symbolColor, style.symbolOutline, true);
        }
    }
    if (drawn < count) picture.symbols.draw(pass.context.cache, area, drawn, count);
}

/// Names the data points under the pick region. A point without symbol is a plain GL point.
void FenVisChart2D::nameSymbols(Pass const& pass, fen::DrawnVariable const& one) const
{
    VariablePicture const& picture = *one.picture;
    VariableStyle const& style = picture.style;
    bool const symbols = style.symbol >= 0;
    if (!symbols && !style.curveVisible()) return;
    int const size = symbols ? style.symbolSize : 1;
    QRect const area = symbols ? pixelsOfSquares(pass.area, size) : pixelsOfPoints(pass.area);
    for (std::size_t point : fen::pointsInside(picture.data, area, mostPoints)) {
        FenVisPickScope const name(pass.select, hitProperties(), [&] {
            return FenVisHitProperty(&one.variable(), fen::dataPoint(one.cache, point));
        });
        QPoint const corner = picture.data.pixel(point) - QPoint(size / 2, size / 2);
        if (symbols)
            fen::drawRectangle(float(corner.x()), float(corner.y()), float(corner.x() + size),
                               float(corner.y() + size));
        else
            fen::drawArray(GL_POINTS,
                           std::vector<Vector2>{Vector2(float(corner.x()) + 0.5f, float(corner.y()) + 0.5f)});
    }
}
