#include "axes/VisAxesXYZ.h"
#include "axes/VisAxesXYZ.ruler.h"
#include "framework/DrawContext.h"
#include "picking/select/VisPickScope.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/Ogl2D.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <array>

using Kes::Math::Vector3;

namespace {

constexpr float lineWidth = 3; // [px] of the axis lines
constexpr float hiddenWidth = 1; // [px] where they are hidden
constexpr int hiddenFactor = 3;
constexpr unsigned short hiddenPattern = 0xAAAA;
/// A grid line closer to the last one, as a part of the axis, would be drawn over it.
constexpr float sameLine = 1e-5f;

} // namespace

void FenVisAxesXYZ::Draw(DrawContext const& context, FenChart const* chart, FenVisOglSelectWeakPtr select,
                         FenVisHitProperty const& highlight) const
{
    if (!_bounds.defined() || !context.viewport.valid()) return;
    FenOglText& text = context.text;
    text.clear();
    if (chart) text.setColor(chart->textColor.get());
    fen::FlatScope const flat;
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    fen::lineWidth(1);
    if (select) {
        DrawAxes(context, select, highlight);
        return;
    }
    FenOglViewport const pixels(0, 0, context.viewport.width(), context.viewport.height());
    Projector const projector(glGetModelViewMatrix(), glGetProjectionMatrix(), pixels);
    std::vector<Ruler> const rulers = makeRulers(context, projector);
    Vector3 const size = _bounds.extent();
    Vector3 const along[] = {Vector3(size.x(), 0, 0), Vector3(0, size.y(), 0), Vector3(0, 0, size.z())};
    for (Ruler const& ruler : rulers)
        if (ruler.style)
            DrawGridLines(ruler.divisions.points, along[(ruler.k + 1) % 3], along[(ruler.k + 2) % 3],
                          _bounds.min(), ruler.style->gridColor.get(), ruler.k);
    DrawAxes(context, select, highlight);

    FenOgl2D pixelMode(pixels);
    pixelMode.begin();
    for (Ruler const& ruler : rulers) DrawAxisLabels(text, ruler);
    pixelMode.end();
    text.clear();
}

void FenVisAxesXYZ::DrawGridLines(std::vector<Vector3> const& points, Vector3 const& a, Vector3 const& b,
                                  Vector3 const& origin, QColor const& color, Vector3::Comp k) const
{
    if (color.alpha() == 0) return;
    std::vector<Vector3> lines;
    float const least = sameLine * _bounds.extent()[k];
    float last = origin[k];
    for (Vector3 const& point : points) {
        Vector3 q = origin;
        q[k] = point[k];
        // Translucent lines in one place would add up.
        if (q == origin || std::abs(q[k] - last) <= least) continue;
        last = q[k];
        lines.insert(lines.end(), {q, q + a, q, q + b});
    }
    glColor(color);
    fen::drawArray(GL_LINES, lines);
}

void FenVisAxesXYZ::drawAxisLines() const
{
    for (unsigned k = 0; k < 3; ++k) {
        if (!styleOf(k) || styleOf(k)->color.get().alpha() == 0) continue;
        glColor(styleOf(k)->color.get());
        fen::drawLine(_bounds.min(), axisEnd(k));
    }
}

void FenVisAxesXYZ::DrawAxes(DrawContext const& context, FenVisOglSelectWeakPtr select,
                             FenVisHitProperty const& highlight) const
{
    if (select) {
        fen::lineWidth(lineWidth);
        if (!_node) return;
        for (unsigned k = 0; k < 3; ++k) {
            if (!axis(k)) continue;
            FenVisPickScope const name(select, _node->hitProperties(),
                                       [&] { return FenVisHitProperty(axis(k)); });
            fen::drawLine(_bounds.min(), axisEnd(k));
        }
        return;
    }
    for (unsigned k = 0; k < 3; ++k)
        if (axis(k) && highlight.isPropertyEqual(axis(k)))
            context.geometry.drawHighlightedLine(lineWidth, {_bounds.min(), axisEnd(k)});
    // Hidden parts: where nothing covers them the solid lines below do.
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_LINE_STIPPLE);
    fen::lineWidth(hiddenWidth);
    fen::lineStipple(hiddenFactor, hiddenPattern);
    drawAxisLines();
    glDisable(GL_LINE_STIPPLE);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LINE_SMOOTH);
    fen::lineWidth(lineWidth);
    drawAxisLines();
    glDisable(GL_LINE_SMOOTH);
    fen::lineWidth(1);
}
