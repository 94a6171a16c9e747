#include "services/chartdata/ChartAxisMapping.h"

FenChartAxisMapping::FenChartAxisMapping(double lower, double upper, bool isLogarithmic)
    : logarithmic(isLogarithmic)
    , min(lower)
    , max(upper)
{
    if (logarithmic) {
        _zero = std::log10(lower);
        _factor = 2.0 / (std::log10(upper) - _zero);
        return;
    }
    // Lengths beyond the largest double, and ones whose inverse is, are measured in another unit.
    double const length = upper - lower;
    if (!std::isfinite(length))
        _unit = 0x1p-4;
    else if (length < 0x1p-900)
        _unit = 0x1p200;
    _zero = lower * _unit;
    _factor = 2.0 / (upper * _unit - _zero);
}
