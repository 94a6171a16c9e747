#pragma once

#include "charts/painting/CurvePoints.h"
#include "charts/painting/Fill.h"
#include "charts/painting/Stroke.h"

class FenChartVariable;

namespace fen {

/// The style properties of a variable, read once and made sense of: texts that mean nothing are logged and
/// count as their default, numbers are within limits.
struct VariableStyle {
    enum class Line { None, Solid, Gradient };

    bool bars = false;
    CurveShape shape = CurveShape::Line;
    Line line = Line::Solid;
    StrokeStyle stroke;
    QList<QColor> ramp; ///< of a line in gradient colours
    FillStyle fill;
    double barWidth = 1; ///< share of its place
    int symbol = -1; ///< index in the atlas, -1: none
    int symbolSize = 5; ///< [px]
    QColor symbolColor, symbolOutline;
    QColor labelColor;
    bool extensions = false;

    VariableStyle() = default;
    explicit VariableStyle(FenChartVariable const& variable);

    /// False when neither line nor area can be seen.
    bool curveVisible() const { return line != Line::None || fill.mode != FillStyle::None; }
    /// True when one symbol hides another below it.
    bool symbolsOpaque() const;
};

} // namespace fen
