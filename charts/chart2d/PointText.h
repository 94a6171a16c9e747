#pragma once

#include "picking/hits/VisHitProperty.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <cstddef>

class FenChartAxisPairScale;
class FenChartPerVariableScaling;
class FenChartVariable;
class FenStringBuilder;

namespace fen {

/// A data point as part of a hit, with its values; only the value for a category without a label.
/// @param index  of the cached variable
/// @param point  of the data point
boost::shared_ptr<FenVisHitProperty::IQualifier> dataPoint(FenChartPerVariableScaling const& scaling,
                                                           unsigned index, std::size_t point);

/// Tooltip of a data point, "name { x, y } ": numbers as the builder writes them, points in time as ISO
/// texts, categories by their labels. The name alone when the point has no values.
/// @param values  the inner qualifier of a data point; may be null
QString pointText(FenStringBuilder const& builder, FenChartVariable const& variable,
                  FenVisHitProperty::IQualifier const* values, FenChartAxisPairScale const& xScale,
                  FenChartAxisPairScale const& yScale);

} // namespace fen
