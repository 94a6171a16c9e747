#pragma once

#include "ChartVariableList.h"

class FenChartAxisPair;
class FenUnitSystem;

/// Converts the variables of a chart into the current unit system.
///
/// Each variable keeps the columns that were set and gets converted ones beside them; each axis keeps its
/// unit and gets the text of the converted one. Nothing counts as modified. Columns that are converted
/// already, or need not be, cost nothing.
class FENVIS_EXPORT FenChartUpdateVariableUnits {
public:
    /// A variable without a unit of its own in some direction stays as it is there.
    FenChartUpdateVariableUnits(FenUnitSystem const& units, FenChartAxisPair const& x,
                                FenChartAxisPair const& y, FenChartAxisPair const& z,
                                FenChartVariableList& variables);
    FenChartUpdateVariableUnits(FenUnitSystem const& units, FenChartVariableList& variables);

    /// Converts, and gives the variables to draw: the visible ones, in list order.
    std::vector<FenChartVariable const*> operator()();

private:
    FenUnitSystem const& _units;
    FenChartAxisPair const* _pairs[3] = {nullptr, nullptr, nullptr};
    FenChartVariableList& _variables;
};
