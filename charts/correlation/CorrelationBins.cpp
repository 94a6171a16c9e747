#include "charts/correlation/CorrelationBins.h"

#include <algorithm>

namespace fen {

CorrelationBins::CorrelationBins(std::vector<double> edges)
    : _edges(std::move(edges))
{
    // Written so that a NaN does not count as rising.
    auto const stays = [](double a, double b) { return !(a < b); };
    bool const rising = std::adjacent_find(_edges.begin(), _edges.end(), stays) == _edges.end();
    if (_edges.size() < 2 || !rising) _edges.clear();
}

unsigned CorrelationBins::bin(double value) const
{
    if (count() < 2) return 0;
    auto const first = _edges.begin() + 1, last = _edges.end() - 1;
    auto const found = std::partition_point(first, last, [value](double edge) { return !(edge >= value); });
    return unsigned(found - first);
}

} // namespace fen
