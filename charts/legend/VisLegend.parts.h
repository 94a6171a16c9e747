#pragma once

#include "charts/legend/VisLegend.h"
#include "charts/style/VariableStyle.h"
#include "services/chartdata/ChartVariable.h"

/// What the legend knows of one entry: a variable, or items of one label and colour.
struct FenVisLegend::Variable {
    fen::view_ptr<FenChartVariable const> variable; ///< null once it is gone
    fen::VariableStyle style;
    Kes::Math::NiceIntervals intervals; ///< of the values that its colours stand for; empty: none
    QString text; ///< in place of the variable's label
    QColor color; ///< of items, and of the axis of a variable in a chart of items

    bool items() const { return !variable && !text.isEmpty(); }
};
