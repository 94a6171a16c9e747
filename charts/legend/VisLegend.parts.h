#pragma once

#include "charts/legend/VisLegend.h"
#include "charts/style/VariableStyle.h"
#include "services/chartdata/ChartVariable.h"

/// What the legend knows of one variable.
struct FenVisLegend::Variable {
    fen::view_ptr<FenChartVariable const> variable; ///< null once it is gone
    fen::VariableStyle style;
    Kes::Math::NiceIntervals intervals; ///< of the values that its colours stand for; empty: none
};
