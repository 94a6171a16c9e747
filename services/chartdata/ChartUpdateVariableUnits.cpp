#include "services/chartdata/ChartUpdateVariableUnits.h"

#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisPair.h"
#include "services/properties/Quantity.h"

using Kes::Math::Vector3;

FenChartUpdateVariableUnits::FenChartUpdateVariableUnits(FenUnitSystem const& units,
                                                         FenChartAxisPair const& x, FenChartAxisPair const& y,
                                                         FenChartAxisPair const& z,
                                                         FenChartVariableList& variables)
    : _units(units)
    , _pairs{&x, &y, &z}
    , _variables(variables)
{
}

FenChartUpdateVariableUnits::FenChartUpdateVariableUnits(FenUnitSystem const& units,
                                                         FenChartVariableList& variables)
    : _units(units)
    , _variables(variables)
{
}

std::vector<FenChartVariable const*> FenChartUpdateVariableUnits::operator()()
{
    for (FenChartAxisPair const* const pair : _pairs) {
        for (FenChartAxis* const axis : {pair ? pair->first() : nullptr, pair ? pair->second() : nullptr}) {
            auto* const continuous = dynamic_cast<FenChartAxisContinuous*>(axis);
            if (!continuous) continue;
            QString const& unit = continuous->unit.get();
            continuous->_shown = {unit, unit.isEmpty() ? unit : _units.unit(unit)};
        }
    }
    std::vector<FenChartVariable const*> shown;
    for (unsigned i = 0; i < _variables.size(); ++i) {
        FenChartVariable const& variable = _variables[i];
        if (!variable.visible.get()) continue;
        for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
            QString const& unit = variable.sourceUnit(comp).get();
            if (unit.isEmpty())
                variable.convert(comp, QString(), 1.0);
            else
                variable.convert(comp, _units.unit(unit), _units.convert(1.0, unit));
        }
        shown.push_back(&variable);
    }
    return shown;
}
