#pragma once

#include "charts/painting/ShapePicture.h"
#include "charts/painting/ValueLabels.h"
#include "charts/style/VariableStyle.h"
#include "services/chartdata/ChartAxisMapping.h"
#include "services/chartdata/ChartRange.h"
#include "services/chartdata/ChartVariableCache.h"
#include "services/math/Matrix.h"
#include "services/opengl/OglSymbolBatch.h"

#include <memory>
#include <vector>

class FenChartPerVariableScaling;
class FenOglText;

namespace fen {

/// What is drawn of one variable in a data rectangle of one size. All positions are [px] from the
/// rectangle's lower left corner.
struct VariablePicture {
    VariableStyle style;
    CurveData data;
    double base = 0; ///< [px] height of the base line
    ShapePicture shape;
    Strips extensions; ///< from the ends of the curve to the ends of the axis
    StripIndex extensionIndex;
    FenOglSymbolBatch symbols;
    std::vector<std::size_t> symbolPoints; ///< data point of each symbol, ascending
    std::vector<ValueLabel> labels;
};

/// A variable of the chart as the last update found it, and its picture as the last resize made it.
struct DrawnVariable {
    FenChartVariableCache cache; ///< the variable and its columns
    bool resolved = false; ///< its axes were found; else nothing below is of use
    FenChartAxisMapping x, y; ///< [data] to [chart]
    bool discrete = false; ///< x counts categories
    void const* xAxis = nullptr; ///< tells the axes apart; only compared
    Kes::Math::Matrix matrix; ///< [data] to [chart] as far as floats can tell
    FenChartRange range; ///< [data] of y that its colours span
    double base = 0; ///< [data] down to which it is filled
    std::shared_ptr<VariablePicture const> picture; ///< null: nothing to draw

    bool valid() const { return resolved && cache.alive(); }
    FenChartVariable const& variable() const { return cache.variable(); }
};
typedef std::vector<DrawnVariable> DrawnVariables; // in the order of the cached variables

/// The records of all cached variables, without pictures.
/// @param xAxes  one per variable: what `DrawnVariable::xAxis` becomes
DrawnVariables drawnVariables(FenChartPerVariableScaling const& scaling,
                              std::vector<void const*> const& xAxes);
/// Makes the pictures anew.
/// @param size  [px] of the data rectangle
/// @param text  measures the labels
void makePictures(DrawnVariables& variables, QSize const& size, FenOglText& text);

} // namespace fen
