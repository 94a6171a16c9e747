#pragma once

#include "../../services/logging/Export.h"

#include <QColor>
#include <QList>
#include <QString>

class FenChartAxis;
class FenChartVariable;
class FenVisScene;
class FenVisualization;

/// Colours and sizes with which charts look good without further settings.
///
/// Nodes know nothing of themes: a theme is written into their properties when
/// a host makes them. Colours of variables stay apart for all common kinds of
/// colour blindness.
struct FENVIS_EXPORT FenTheme {
    QString name; ///< "light", "dark"
    QColor background;
    QColor title; ///< chart title
    QColor text; ///< axis labels and titles, value labels
    QColor axis; ///< axis lines and ticks
    QColor grid;
    QList<QColor> palette; ///< of variables, in order
    float lineWidth; ///< [px]
    int symbolSize; ///< [px]
    double fillOpacity; ///< [0..1] of areas under curves
    double barWidth; ///< [0..1] of the distance of neighbouring bars

    static FenTheme const& light();
    static FenTheme const& dark();
    /// The theme of that name; null when there is none.
    static FenTheme const* find(QString const& name);

    /// Colour of the variable at `index`; behind the last of the palette follow darker, then lighter
    /// ones.
    QColor color(unsigned index) const;

    /// Background of the scene.
    void apply(FenVisScene& scene) const;
    /// A chart: title, axes and all variables that it has. A legend: its texts. Any other node stays
    /// as it is.
    void apply(FenVisualization& node) const;
    void apply(FenChartAxis& axis) const;
    /// Line, symbol, fill and label; style and fill mode of the variable are set before.
    /// @param index  place of the variable in the palette
    void apply(FenChartVariable& variable, unsigned index) const;
};
