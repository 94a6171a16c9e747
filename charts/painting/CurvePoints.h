#pragma once

#include "charts/painting/CurveData.h"
#include "charts/style/VariableStyle.h"
#include "services/math/Vector2.h"

#include <QPoint>

#include <vector>

namespace fen {

/// Strips of vertices, all in one array; and upright spans, which stand for the parts of a curve that
/// fill pixel columns.
struct Strips {
    struct Piece {
        std::size_t first, count;
    };
    std::vector<Kes::Math::Vector2> points; ///< [px]
    std::vector<Piece> pieces; ///< each of at least two points
    std::vector<Kes::Math::Vector2> spans; ///< [px] two ends each: pixel column centre, whole pixels

    bool empty() const { return pieces.empty() && spans.empty(); }
};

/// How far a curve is reduced.
enum class Reduction {
    Columns, ///< a pixel column with more than four points becomes one span
    Sparing ///< the same, but only where a line pattern could not be told any more
};

/// Curve through the points, cut at gaps and far outside the rectangle.
///
/// A pixel column with more than four points becomes a span from the lowest to the highest place where the
/// curve meets it, which takes its first and its last point and the ways to its neighbours into account: the
/// same pixels as those of a line through all points. For a stair the same holds; a spline is made first
/// and reduced then, unless it is too dense to differ from a line.
Strips curveStrips(CurveData const& data, CurveShape shape, Reduction reduction);

/// Curve as the edge of an area, without spans: many points are replaced by the curve's value at each pixel
/// centre and at the ends.
Strips areaStrips(CurveData const& data, CurveShape shape);

/// Triangle strips between curve and base line, base vertex first; where the
/// curve crosses the base line a pair of vertices is added.
/// @param base  [px] height of the base line
Strips areaBand(Strips const& curve, double base);

/// One bar [px], edges on whole pixels.
struct Bar {
    float left, right;
    float base, top; ///< base line and value
    std::size_t index; ///< of its data point
};

/// How wide the bars of a variable are and where they begin.
struct BarPlace {
    double width = 1; ///< [data] of one bar, centred at its point
    double base = 0; ///< [px] height of the base line
};

/// Bars from left to right of the data. Of bars narrower than a pixel the one
/// next to each pixel centre remains.
std::vector<Bar> makeBars(CurveData const& data, BarPlace const& place);

/// Whole pixels at which the symbols of a variable lie, in the order of the data.
struct SymbolPlaces {
    std::vector<QPoint> positions; ///< [px] those of the points, rounded down
    std::vector<std::size_t> indices; ///< of the data points, ascending
};
/// @param size    [px] of a symbol: those that lie wholly outside the rectangle are left out
/// @param opaque  a symbol hides what is under it: of several at one pixel only the last is kept
SymbolPlaces symbolPlaces(CurveData const& data, int size, bool opaque);

} // namespace fen
