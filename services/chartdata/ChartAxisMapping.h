#pragma once

#include "../logging/Export.h"

#include <cmath>

/// Maps the numbers of one axis into chart space, which runs from -1 to 1 over the axis, in double.
///
/// A category i of a discrete axis is the number i: chart(i) is the centre of its interval, the place of
/// its symbol and of its bar; the interval reaches from i - 0.5 to i + 0.5.
struct FENVIS_EXPORT FenChartAxisMapping {
    /// Linear from 0 to 1.
    FenChartAxisMapping()
        : FenChartAxisMapping(0.0, 1.0, false)
    {
    }
    /// @param lower  [data] at -1; finite, below `upper`, above 0 on a logarithmic axis
    /// @param upper  [data] at 1
    FenChartAxisMapping(double lower, double upper, bool isLogarithmic);

    /// [data] to [chart]; NaN where a number is undefined: NaN itself and, on a logarithmic axis, what is
    /// not above 0.
    double chart(double data) const
    {
        if (logarithmic) return data > 0.0 ? (std::log10(data) - _zero) * _factor - 1.0 : std::nan("");
        return (data * _unit - _zero) * _factor - 1.0;
    }
    /// [chart] to [data].
    double data(double chart) const
    {
        double const at = (chart + 1.0) / _factor + _zero;
        return logarithmic ? std::pow(10.0, at) : at / _unit;
    }

    bool logarithmic;
    double min; ///< [data] at -1
    double max; ///< [data] at 1

private:
    double _unit = 1.0; ///< power of two that keeps huge and tiny ranges within double
    double _zero = 0.0;
    double _factor = 2.0;
};
