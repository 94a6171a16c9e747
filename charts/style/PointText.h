#pragma once

#include "picking/hits/VisHitProperty.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <cstddef>

class FenChartAxisScale;
class FenChartVariable;
class FenChartVariableCache;
class FenStringBuilder;

namespace fen {

/// A data point as part of a hit, with its values.
boost::shared_ptr<FenVisHitProperty::IQualifier> dataPoint(FenChartVariableCache const& cache,
                                                           std::size_t point);

/// Tooltip of a data point, "name { x, y } ": numbers in the builder's format with the digits that the axes
/// need, points in time as ISO texts, categories by their labels. The name alone when the point has no
/// values.
/// @param values  the inner qualifier of a data point; may be null
/// @param xScale, yScale  of the variable's axes; null: plain numbers
QString pointText(FenStringBuilder const& builder, FenChartVariable const& variable,
                  FenVisHitProperty::IQualifier const* values, FenChartAxisScale const* xScale,
                  FenChartAxisScale const* yScale);

} // namespace fen
