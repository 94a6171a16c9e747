#pragma once

#include "charts/painting/CurvePoints.h"
#include "charts/painting/PickShapes.h"
#include "charts/painting/Stroke.h"
#include "charts/style/VariableStyle.h"
#include "services/opengl/OglSymbolBatch.h"

#include <QRectF>

#include <functional>
#include <vector>

class FenOglCache;
class FenOglGeometry;

namespace fen {

/// Curve or bars of one variable with their fill, in pixels, ready for the vertex arrays.
///
/// A chart draws its variables and a legend its samples from it; drawing and picking only read it.
struct ShapePicture {
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
};

/// A curve as it is drawn, and the band between it and its base line, empty without a fill.
ShapePicture curveShape(VariableStyle const& style, Strips line, Strips band);
/// Filled bars that are too narrow for an outline have none.
ShapePicture barShape(VariableStyle const& style, std::vector<Bar> bars);
/// Gives the parts that have gradient colours their texture coordinates.
/// @param share  place of a point [px] on the ramp: 0 the first colour, 1 the last
void addRamps(ShapePicture& shape, VariableStyle const& style,
              std::function<float(Kes::Math::Vector2 const& point)> const& share);

/// How the symbols of a variable look, from the atlas of all charts.
FenOglSymbolStyle symbolLook(VariableStyle const& style);

/// Draws fill, then line, inside a flat scope.
void drawShape(ShapePicture const& shape, VariableStyle const& style, FenOglCache& cache);
/// Glow around the whole shape, to be drawn below it.
void drawShapeGlow(ShapePicture const& shape, VariableStyle const& style, FenOglGeometry const& geometry);
/// Corners of quads that cover what `drawShape` draws near `area` [px].
std::vector<Kes::Math::Vector2> shapeQuads(ShapePicture const& shape, VariableStyle const& style,
                                           QRectF const& area);

} // namespace fen
