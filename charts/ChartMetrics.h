#pragma once

namespace fen {

/// Lengths that all charts share.
struct ChartMetrics {
    static constexpr unsigned titlePointSize = 9; ///< [pt]
    static constexpr unsigned labelPointSize = 8; ///< [pt]
    static constexpr unsigned minimumDivisions = 3; ///< of an axis
    static constexpr int pixelsPerDivision = 40; ///< [px]
};

} // namespace fen
