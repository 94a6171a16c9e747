#pragma once

#include <algorithm>
#include <limits>

namespace fen {

/// The nearest float that is finite; NaN stays.
inline float toFloat(double value)
{
    constexpr double most = std::numeric_limits<float>::max();
    return float(std::clamp(value, -most, most));
}

} // namespace fen
