#pragma once

#include "services/logging/Export.h"

#include <cstddef>
#include <span>
#include <vector>

namespace fen {

/// How two columns of numbers are compared.
enum class CorrelationMethod {
    Pearson, ///< how well a straight line describes them
    Spearman ///< the same of their ranks; equal values share the mean of their ranks
};

/// Correlation coefficients of all pairs of columns.
///
/// A value that is NaN or infinite is missing: it leaves its row out of all pairs that its column is part of,
/// and of no other. Ranks are those among the rows that count for the pair.
/// @param columns  all of the same length; the values are not changed
/// @return row by row, symmetric, within [-1, 1]. NaN where fewer than two rows are left or one of both
///         columns does not vary on them
FENVIS_EXPORT std::vector<double> correlationMatrix(std::vector<std::span<double const>> const& columns,
                                                    CorrelationMethod method);

/// An order of the variables of a correlation matrix in which similar ones are neighbours: leaves of the
/// tree of average-linkage clustering with the distance 1 - r (nearest-neighbour chain, Murtagh 1983),
/// each cluster turned so that its end meets its most similar neighbour. What is not defined counts as 0.
/// @param matrix  count x count, symmetric
FENVIS_EXPORT std::vector<std::size_t> clusterOrder(std::vector<double> const& matrix, std::size_t count);

} // namespace fen
