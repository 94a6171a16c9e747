#include "charts/legend/LegendSample.h"

#include "charts/painting/SymbolAtlas.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartVariable.h"
#include "services/math/Vector2.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/Gl.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglSymbolBatch.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/OglViewport.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr float maximumLineWidth = 6; // [px] wider lines would fill the row
constexpr int maximumSymbolSize = 11; // [px]
constexpr float inset = 3; // [px] of a patch in its row
constexpr unsigned gradientSteps = 256;

struct Box {
    float left, bottom, right, top;
};

/// A gradient runs along the sample, from the lowest colour at the left.
void drawGradient(FenOglCache& cache, QList<QColor> const& colors, Box const& box)
{
    FlatScope const flat;
    FlatScope::enableTexture(GL_REPLACE);
    cache.gradient(colors, gradientSteps, false).set();
    drawTexturedArray(GL_TRIANGLE_STRIP,
                      {Vector2(box.left, box.bottom), Vector2(box.left, box.top),
                       Vector2(box.right, box.bottom), Vector2(box.right, box.top)},
                      {Vector2(0, 0), Vector2(0, 0), Vector2(0, 1), Vector2(0, 1)});
}

void drawFill(FenOglCache& cache, FenChartVariable const& variable, Box const& box)
{
    QString const mode = variable.fillMode.get();
    if (mode == FenChart::fillGradient) {
        QList<QColor> const colors = variable.colors.get();
        bool const own = !colors.isEmpty();
        drawGradient(cache, own ? colors : QList<QColor>{variable.backColor.get(), variable.fillColor.get()},
                     box);
    } else if (mode == FenChart::fillSolid) {
        glColor(variable.fillColor.get());
        drawRectangle(box.left, box.bottom, box.right, box.top);
    } else if (mode == FenChart::fillSparse) {
        glColor(variable.backColor.get());
        drawRectangle(box.left, box.bottom, box.right, box.top);
        FlatScope const flat;
        glEnable(GL_POLYGON_STIPPLE);
        glPolygonStipple(variable.fillPattern.get());
        glColor(variable.fillColor.get());
        drawRectangle(box.left, box.bottom, box.right, box.top);
    }
}

/// The line in its own width and pattern; for bars the outline.
void drawLine(FenOglCache& cache, FenChartVariable const& variable, Box const& box)
{
    QString const mode = variable.lineMode.get();
    if (mode == FenChart::lineNone) return;
    bool const bar = variable.style.get() == FenChart::styleBar;
    float const width = std::clamp(variable.lineWidth.get(), 1.0f, maximumLineWidth);
    float const middle = 0.5f * (box.bottom + box.top);
    bool const gradient = mode == FenChart::lineGradient && !variable.colors.get().isEmpty();
    if (gradient && !bar) {
        drawGradient(cache, variable.colors.get(),
                     {box.left, middle - 0.5f * width, box.right, middle + 0.5f * width});
        return;
    }
    FlatScope const flat;
    glColor(gradient ? variable.colors.get().last() : variable.lineColor.get());
    lineWidth(width);
    if (variable.lineStyle.get() != QLatin1String("solid")) {
        glEnable(GL_LINE_STIPPLE);
        glLineStipple(std::max(1, qRound(width)), variable.lineStyle.get());
    }
    if (bar) {
        drawFrame(box.left + 0.5f, box.bottom + 0.5f, box.right - 0.5f, box.top - 0.5f);
    } else {
        fen::drawLine(Vector2(box.left, middle), Vector2(box.right, middle));
    }
}

void drawSymbol(FenOglCache& cache, FenChartVariable const& variable, QRect const& area)
{
    int const symbol = symbolIndex(variable.symbol.get());
    if (symbol < 0) return;
    FenOglSymbolStyle style;
    style.symbol = unsigned(symbol);
    style.size = std::clamp(variable.symbolSize.get(), 1, maximumSymbolSize);
    style.fill = variable.symbolColor.get();
    style.outline = variable.symbolOutlineColor.get();
    FenOglSymbolBatch batch;
    batch.setStyle(style);
    batch.setPositions({QPoint(area.x() + area.width() / 2, area.y() + area.height() / 2)});
    batch.draw(cache, FenOglViewport(area.x(), area.y(), area.width(), area.height()));
}

} // namespace

QString legendLabel(FenChartVariable const& variable) { return variable.shownName(); }

bool hasColorRamp(FenChartVariable const& variable)
{
    return !variable.colors.get().isEmpty()
        && (variable.lineMode.get() == FenChart::lineGradient
            || variable.fillMode.get() == FenChart::fillGradient);
}

void drawLegendSample(FenOglCache& cache, FenChartVariable const& variable, QRect const& area)
{
    bool const bar = variable.style.get() == FenChart::styleBar;
    float const left = float(area.x()) + (bar ? 0.25f * float(area.width()) : 0.0f);
    float const right = float(area.x() + area.width()) - (bar ? 0.25f * float(area.width()) : 0.0f);
    float const bottom = float(area.y());
    float const top = float(area.y() + area.height());
    float const middle = float(area.y() + area.height() / 2) + 0.5f;
    // The fill of a curve lies below its line; a bar fills the patch.
    drawFill(cache, variable, {left, bottom + (bar ? inset : 1.0f), right, bar ? top - inset : middle});
    drawLine(cache, variable,
             bar ? Box{left, bottom + inset, right, top - inset} : Box{left, middle, right, middle});
    drawSymbol(cache, variable, area);
}

void drawLegendPatch(FenChartVariable const& variable, QRect const& area)
{
    bool const filled = variable.fillMode.get() != FenChart::fillNone;
    glColor(filled ? variable.fillColor.get() : variable.lineColor.get());
    drawRectangle(float(area.x()) + 2 * inset, float(area.y()) + inset,
                  float(area.x() + area.width()) - 2 * inset, float(area.y() + area.height()) - inset);
}

} // namespace fen
