#include "services/properties/ColorMap.h"

#include "services/properties/ColorSchemes.h"
#include "services/properties/TypedDefaults.h"

#include <algorithm>
#include <cmath>

namespace {

/// Place of a value in a range, 0 at its start and 1 at its end; clamped.
double fraction(double value, double from, double to)
{
    // Halves, as the whole extent may be too large for a number.
    double const place = (value / 2 - from / 2) / (to / 2 - from / 2);
    // Infinite ends, or the value of a range without extent: only the side counts.
    if (std::isnan(place)) return value > from ? 1.0 : 0.0;
    return std::clamp(place, 0.0, 1.0);
}

} // namespace

FenColorMap::FenColorMap(FenModifiedGroup& group)
    : FenProperties(group)
    , colors(*this, "colors", QColorList0, QString())
    , min(*this, "min", 0.0, QString())
    , max(*this, "max", 1.0, QString())
{
    rename("colorMap");
    setType("colorMap");
}

FenColorMap::FenColorMap(FenColorMap const& other)
    : FenProperties(other)
    , colors(*this, other.colors)
    , min(*this, other.min)
    , max(*this, other.max)
{
}

QColor FenColorMap::color(double value) const
{
    if (std::isnan(value)) return Qt::black;
    return fen::rampColor(colors.get(), fraction(value, min.get(), max.get()));
}
