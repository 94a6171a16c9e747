#include "charts/style/VariableStyle.h"

#include "charts/painting/StyleTexts.h"
#include "charts/painting/SymbolAtlas.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartVariable.h"

#include <algorithm>
#include <cmath>

namespace fen {

namespace {

constexpr float widestLine = 255; // [px]
constexpr int largestSymbol = 255; // [px]

float lineWidthOf(FenChartVariable const& variable)
{
    float const width = variable.lineWidth.get();
    return width > 0 ? std::min(width, widestLine) : 1.0f;
}

CurveShape shapeOf(QString const& style)
{
    if (style == FenChart::styleSpline) return CurveShape::Spline;
    if (style == FenChart::styleStep) return CurveShape::Step;
    if (style == FenChart::styleBar) return CurveShape::Bars;
    if (style != FenChart::styleLine) warnUnknownText("style", style);
    return CurveShape::Line;
}

VariableStyle::Line lineOf(QString const& mode)
{
    if (mode == FenChart::lineNone) return VariableStyle::Line::None;
    if (mode == FenChart::lineGradient) return VariableStyle::Line::Gradient;
    if (mode != FenChart::lineSolid) warnUnknownText("lineMode", mode);
    return VariableStyle::Line::Solid;
}

FillStyle::Mode fillOf(QString const& mode)
{
    if (mode == FenChart::fillSolid) return FillStyle::Solid;
    if (mode == FenChart::fillSparse) return FillStyle::Sparse;
    if (mode == FenChart::fillGradient) return FillStyle::Gradient;
    if (mode != FenChart::fillNone) warnUnknownText("fillMode", mode);
    return FillStyle::None;
}

/// The variable's ramp, or one made of the colours that it has.
QList<QColor> rampOf(FenChartVariable const& variable, QColor const& from, QColor const& to)
{
    QList<QColor> const colors = variable.colors.get();
    return colors.isEmpty() ? QList<QColor>{from, to} : colors;
}

} // namespace

VariableStyle::VariableStyle(FenChartVariable const& variable)
    : shape(shapeOf(variable.style.get()))
    , line(lineOf(variable.lineMode.get()))
    , symbol(symbolIndex(variable.symbol.get()))
    , symbolSize(std::clamp(variable.symbolSize.get(), 1, largestSymbol))
    , symbolColor(variable.symbolColor.get())
    , symbolOutline(variable.symbolOutlineColor.get())
    , labelColor(variable.labelColor.get())
    , extensions(variable.lineExtension.get())
{
    stroke.color = variable.lineColor.get();
    stroke.width = lineWidthOf(variable);
    stroke.smooth = variable.lineSmooth.get();
    QString const stipple = variable.lineStyle.get();
    if (stipple != QLatin1String("solid")) stroke.stipple = stipple;
    if (stroke.color.alpha() == 0 && line == Line::Solid) line = Line::None;
    ramp = rampOf(variable, stroke.color, stroke.color);

    fill.mode = fillOf(variable.fillMode.get());
    fill.color = variable.fillColor.get();
    fill.back = variable.backColor.get();
    fill.pattern = variable.fillPattern.get();
    fill.ramp = rampOf(variable, fill.back, fill.color);
    valueRamp =
        !variable.colors.get().isEmpty() && (line == Line::Gradient || fill.mode == FillStyle::Gradient);
    double const factor = variable.barWidth.get();
    barWidth = std::isfinite(factor) ? std::clamp(factor, 0.0, 100.0) : 1.0;
    if (symbolColor.alpha() == 0 && symbolOutline.alpha() == 0) symbol = -1;
}

bool VariableStyle::symbolsOpaque() const
{
    return symbolColor.alpha() == 255 && (symbolOutline.alpha() == 255 || symbolOutline.alpha() == 0);
}

} // namespace fen
