#include "charts/legend/LegendSample.h"

#include "charts/painting/ShapePicture.h"
#include "services/chartdata/ChartVariable.h"
#include "services/math/Vector2.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglViewport.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr float maximumLineWidth = 6; // [px] wider lines would fill the row
constexpr int maximumSymbolSize = 11; // [px]
constexpr int inset = 3; // [px] of a patch in its row

/// A bar in the middle half of the area.
ShapePicture sampleBar(VariableStyle const& style, QRect const& area)
{
    float const quarter = 0.25f * float(area.width());
    return barShape(style,
                    {Bar{float(area.x()) + quarter, float(area.x() + area.width()) - quarter,
                         float(area.y() + inset), float(area.y() + area.height() - inset), 0}});
}

/// A level line across the area, filled down to its lower edge.
ShapePicture sampleCurve(VariableStyle const& style, QRect const& area)
{
    float const middle = float(area.y() + area.height() / 2) + 0.5f;
    Strips line;
    line.points = {Vector2(float(area.x()), middle), Vector2(float(area.x() + area.width()), middle)};
    line.pieces.push_back({0, line.points.size()});
    return curveShape(style, line, areaBand(line, double(area.y() + 1)));
}

} // namespace

QString legendLabel(FenChartVariable const& variable) { return variable.shownName(); }

void drawLegendSample(FenOglCache& cache, VariableStyle const& chartStyle, QRect const& area)
{
    VariableStyle style = chartStyle;
    style.stroke.width = std::min(style.stroke.width, maximumLineWidth);
    style.symbolSize = std::min(style.symbolSize, maximumSymbolSize);
    ShapePicture shape = style.shape == CurveShape::Bars ? sampleBar(style, area) : sampleCurve(style, area);
    // A ramp runs along the sample, from the lowest colour at the left.
    addRamps(shape, style,
             [&](Vector2 const& p) { return (p.x() - float(area.x())) / float(std::max(area.width(), 1)); });
    drawShape(shape, style, cache);
    if (style.symbol < 0) return;
    FenOglSymbolBatch symbol;
    symbol.setStyle(symbolLook(style));
    symbol.setPositions({QPoint(area.x() + area.width() / 2, area.y() + area.height() / 2)});
    symbol.draw(cache, FenOglViewport(area.x(), area.y(), area.width(), area.height()));
}

void drawLegendPatch(VariableStyle const& style, QRect const& area)
{
    glColor(style.fill.mode != FillStyle::None ? style.fill.color : style.stroke.color);
    drawRectangle(float(area.x() + 2 * inset), float(area.y() + inset),
                  float(area.x() + area.width() - 2 * inset), float(area.y() + area.height() - inset));
}

} // namespace fen
