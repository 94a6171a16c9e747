#pragma once

#include <QColor>
#include <QList>
#include <QString>

class FenChartVariable;

namespace fen {

/// What stands for the points of a variable.
enum class CurveShape {
    Line,
    Spline,
    Step, ///< each value is held until the next x
    Bars
};

/// How an area is filled.
struct FillStyle {
    enum Mode { None, Solid, Sparse, Gradient };
    Mode mode = None;
    QColor color; ///< solid, and the set pixels of a pattern
    QColor back; ///< under a pattern
    QString pattern;
    QList<QColor> ramp; ///< of a gradient, never empty for one
};

/// How a line is drawn.
struct StrokeStyle {
    QColor color = Qt::black;
    float width = 1; ///< [px]
    bool smooth = false;
    QString stipple; ///< pattern; empty for a plain line
};

/// The style properties of a variable, read once and made sense of: texts that mean nothing are logged and
/// count as their default, numbers are within limits. The only reader of these texts; no space is implied.
struct VariableStyle {
    enum class Line { None, Solid, Gradient };

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
    bool valueRamp = false; ///< fill or line show values in colours that were chosen for them

    VariableStyle() = default;
    explicit VariableStyle(FenChartVariable const& variable);

    /// False when neither line nor area can be seen.
    bool curveVisible() const { return line != Line::None || fill.mode != FillStyle::None; }
    /// True when one symbol hides another below it.
    bool symbolsOpaque() const;
    /// The colours that stand for values, lowest first, when there is a `valueRamp`.
    QList<QColor> const& valueColors() const { return fill.mode == FillStyle::Gradient ? fill.ramp : ramp; }
};

} // namespace fen
