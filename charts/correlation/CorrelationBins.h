#pragma once

#include <vector>

namespace fen {

/// The bins that values of a correlation matrix are sorted into, given by their edges.
class CorrelationBins {
public:
    CorrelationBins() = default;
    /// @param edges  strictly rising; fewer than two, or any others, give no bins
    explicit CorrelationBins(std::vector<double> edges);

    /// Number of bins, one less than there are edges; 0 without any.
    unsigned count() const { return _edges.size() < 2 ? 0 : unsigned(_edges.size() - 1); }
    std::vector<double> const& edges() const { return _edges; }
    /// Bin of a value: an inner edge belongs to the bin below it, what lies outside to the outermost bins.
    /// @return 0 with fewer than two bins; the last bin for NaN
    unsigned bin(double value) const;

private:
    std::vector<double> _edges;
};

} // namespace fen
