#pragma once

#include "charts/chart2d/ValueLabels.h"
#include "charts/chart2d/VariableStyle.h"
#include "charts/painting/PickShapes.h"
#include "services/opengl/OglSymbolBatch.h"

#include <vector>

class FenChartPerVariableScaling;
class FenOglText;

namespace fen {

/// What is drawn of one variable in a data rectangle of one size, ready for the vertex arrays: made in
/// `resize`, only read by draw and select. All positions are [px] from the rectangle's lower left corner.
struct VariablePicture {
    bool drawn = false; ///< false: valid, but nothing to draw; or not valid
    VariableStyle style;
    CurveData data;
    double base = 0; ///< [px] height of the base line
    Strips line; ///< the curve, reduced; for bars their outlines
    StripIndex lineIndex;
    StripsRamp lineRamp; ///< of `line`, when it has gradient colours
    std::vector<Kes::Math::Vector2> corners; ///< of `line`, see `notches`
    Strips area; ///< band under the curve, when it is filled
    StripIndex areaIndex;
    StripsRamp areaRamp;
    std::vector<Bar> bars;
    std::vector<Kes::Math::Vector2> barArea; ///< corners of quads
    std::vector<Kes::Math::Vector2> barRamp;
    Strips narrowBars; ///< middles of the bars that have no outline; they glow in its place
    Strips extensions; ///< from the ends of the curve to the ends of the axis
    StripIndex extensionIndex;
    FenOglSymbolBatch symbols;
    std::vector<std::size_t> symbolPoints; ///< data point of each symbol, ascending
    std::vector<ValueLabel> labels;
};

/// The pictures of all cached variables, in their order.
struct ChartPictures {
    std::vector<VariablePicture> variables;
};

/// @param size  [px] of the data rectangle
/// @param text  measures the labels
ChartPictures makePictures(FenChartPerVariableScaling const& scaling, QSize const& size, FenOglText& text);

} // namespace fen
