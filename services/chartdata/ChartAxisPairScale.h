#pragma once

#include "ChartAxisScale.h"

class FenChartAxisPair;
class FenChartVariableListCache;

/// The scales of both axes of a pair.
class FENVIS_EXPORT FenChartAxisPairScale {
public:
    /// No axes.
    FenChartAxisPairScale() = default;
    /// Finds the ranges of the axes for the cached variables that belong to them. Values that a
    /// logarithmic axis cannot show are left out; the log gets a line about them once per axis.
    FenChartAxisPairScale(FenChartAxisPair const& pair, FenChartVariableListCache const& variables);

    /// The scale of the axis of that name; an empty name is the first axis there is. Null when there is none.
    FenChartAxisScale const* find(QString const& axisName) const;
    FenChartAxisScale* find(QString const& axisName);
    /// Null when the pair has no such axis.
    FenChartAxisScale const* first() const { return _has[0] ? &_scales[0] : nullptr; }
    FenChartAxisScale const* second() const { return _has[1] ? &_scales[1] : nullptr; }
    FenChartAxisScale* first() { return _has[0] ? &_scales[0] : nullptr; }
    FenChartAxisScale* second() { return _has[1] ? &_scales[1] : nullptr; }

    /// Finds the ticks of both scales.
    void update(unsigned divisions, Kes::Math::NumberFormat const& numberFormat);

private:
    FenChartAxisScale _scales[2];
    QString _names[2];
    bool _has[2] = {false, false};
};
