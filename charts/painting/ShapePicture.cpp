#include "charts/painting/ShapePicture.h"

#include "charts/VisChart.h"
#include "charts/style/Fill.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>
#include <iterator>
#include <utility>

using Kes::Math::Vector2;

namespace fen {

namespace {

/// [px] Filled bars narrower than this have no outline: it would hide them.
constexpr float narrowest = 3;

std::vector<Vector2> rampOf(std::vector<Vector2> const& points,
                            std::function<float(Vector2 const&)> const& share)
{
    std::vector<Vector2> ramp;
    ramp.reserve(points.size());
    for (Vector2 const& p : points) ramp.emplace_back(0.0f, share(p));
    return ramp;
}

void addBar(ShapePicture& shape, Bar const& bar, bool filled)
{
    Vector2 const corners[] = {Vector2(bar.left, bar.base), Vector2(bar.right, bar.base),
                               Vector2(bar.right, bar.top), Vector2(bar.left, bar.top)};
    if (filled) shape.barArea.insert(shape.barArea.end(), std::begin(corners), std::end(corners));
    // Lines of odd width run through pixel centres; bars that touch share one.
    Vector2 const center(0.5f, 0.5f);
    if (filled && bar.right - bar.left < narrowest) {
        shape.narrowBars.spans.push_back(corners[0] + center);
        shape.narrowBars.spans.push_back(corners[3] + center);
        return;
    }
    Strips& line = shape.line;
    line.pieces.push_back({line.points.size(), 5});
    for (int k = 0; k < 5; ++k) line.points.push_back(corners[k % 4] + center);
    shape.corners.push_back(corners[0] + center);
}

void finishLine(ShapePicture& shape, VariableStyle const& style)
{
    shape.lineIndex = StripIndex(shape.line);
    if (!hasCorners(style.stroke)) return;
    std::vector<Vector2> const inner = notches(shape.line);
    shape.corners.insert(shape.corners.end(), inner.begin(), inner.end());
}

} // namespace

ShapePicture curveShape(VariableStyle const& style, Strips line, Strips band)
{
    ShapePicture shape;
    shape.line = std::move(line);
    finishLine(shape, style);
    if (style.fill.mode == FillStyle::None) return shape;
    shape.area = std::move(band);
    shape.areaIndex = StripIndex(shape.area);
    return shape;
}

ShapePicture barShape(VariableStyle const& style, std::vector<Bar> bars)
{
    ShapePicture shape;
    for (Bar const& bar : bars) addBar(shape, bar, style.fill.mode != FillStyle::None);
    shape.bars = std::move(bars);
    finishLine(shape, style);
    return shape;
}

void addRamps(ShapePicture& shape, VariableStyle const& style,
              std::function<float(Vector2 const&)> const& share)
{
    auto const at = [&](Strips const& strips) {
        return StripsRamp{rampOf(strips.points, share), rampOf(strips.spans, share)};
    };
    if (style.line == VariableStyle::Line::Gradient) shape.lineRamp = at(shape.line);
    if (style.fill.mode != FillStyle::Gradient) return;
    shape.areaRamp = at(shape.area);
    shape.barRamp = rampOf(shape.barArea, share);
}

FenOglSymbolStyle symbolLook(VariableStyle const& style)
{
    FenOglSymbolStyle look;
    look.atlas = FenVisChart::plotSymbols;
    look.symbol = unsigned(std::max(style.symbol, 0));
    look.size = style.symbolSize;
    look.fill = style.symbolColor;
    look.outline = style.symbolOutline;
    return look;
}

void drawShape(ShapePicture const& shape, VariableStyle const& style, FenOglCache& cache)
{
    drawFill(style.fill, cache, [&](bool textured) {
        if (textured) {
            drawTexturedArray(GL_QUADS, shape.barArea, shape.barRamp);
            drawStrips(GL_TRIANGLE_STRIP, shape.area, shape.areaRamp);
        } else {
            drawArray(GL_QUADS, shape.barArea);
            drawStrips(GL_TRIANGLE_STRIP, shape.area);
        }
    });
    if (style.line == VariableStyle::Line::Solid) {
        drawStroke(shape.line, shape.corners, style.stroke);
    } else if (style.line == VariableStyle::Line::Gradient) {
        lineWidth(style.stroke.width);
        (style.stroke.smooth ? glEnable : glDisable)(GL_LINE_SMOOTH);
        drawRamp(style.ramp, cache, [&] { drawStrips(GL_LINE_STRIP, shape.line, shape.lineRamp); });
    }
}

void drawShapeGlow(ShapePicture const& shape, VariableStyle const& style, FenOglGeometry const& geometry)
{
    if (!style.curveVisible()) return;
    for (Strips const* glowing : {&shape.line, &shape.narrowBars})
        drawGlow(geometry, *glowing, style.stroke.color, style.stroke.width);
}

std::vector<Vector2> shapeQuads(ShapePicture const& shape, VariableStyle const& style, QRectF const& area)
{
    if (!style.curveVisible()) return {};
    std::vector<Vector2> quads = barQuads(shape.bars, area);
    auto const add = [&](std::vector<Vector2> const& more) {
        quads.insert(quads.end(), more.begin(), more.end());
    };
    add(bandQuads(shape.area, shape.areaIndex, area));
    if (style.line == VariableStyle::Line::None) return quads;
    bool const cornered = style.line == VariableStyle::Line::Solid && hasCorners(style.stroke);
    add(lineQuads(shape.line, shape.lineIndex, area,
                  {style.stroke.width, style.stroke.smooth, cornered ? &shape.corners : nullptr}));
    return quads;
}

} // namespace fen
