#pragma once

#include "charts/painting/CurvePoints.h"

#include <QSize>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace fen {

/// Makes strips out of a run of points in pixels: reduces, makes stairs, cuts.
///
/// A NaN in either coordinate ends the strip. Strips are cut a few pictures away
/// from the rectangle, so that floats hold every vertex exactly enough.
class StripBuilder {
public:
    /// @param size   [px] rectangle that will be seen
    /// @param ratio  pixel columns per pixel
    StripBuilder(QSize const& size, double ratio);

    /// What becomes of the points of a pixel column when they are more than four.
    enum Columns {
        ToSpans, ///< one span over all that the curve meets of the column
        ToPoints ///< the first, the lowest, the highest and the last, in their order
    };
    void reduceColumns(Columns columns);
    /// Each value is held until the next x.
    void makeSteps() { _steps = true; }

    /// @param count  number of points of the same column that this one stands for
    void add(double x, double y, std::size_t count = 1);
    /// Ends the strip.
    void gap();
    /// Ends the last strip and hands over all.
    Strips take();

private:
    struct Vertex {
        double x = 0, y = 0;
    };
    /// Points of the pixel column being collected.
    struct Column {
        double number = 0;
        std::size_t count = 0, low = 0, high = 0; // positions of the extremes in the column
        Vertex first, lowest, highest, last;
    };
    /// What the curve meets of a pixel column.
    struct Span {
        double low, high;
        void insert(double y)
        {
            low = std::min(low, y);
            high = std::max(high, y);
        }
    };
    /// A crowded column whose way to the next one is not known yet.
    struct Crowd {
        double number;
        Span span;
        Vertex last;
    };

    void collect(Vertex const& v, double number, std::size_t count);
    void flushColumn();
    void addCrowd(Column const& column);
    void addReduced(Column const& column);
    void finishCrowd(Vertex const* next);
    double heightAt(double edge, Vertex const& from, Vertex const& to) const;
    void flushSpans();
    void emitSpan(double number, Span const& span);
    void shape(Vertex const& v);
    void emitVertex(Vertex const& v);
    void endPiece();
    bool inside(Vertex const& v) const;

    double _ratio;
    double _minX, _maxX, _minY, _maxY; // [px] where strips are cut
    bool _reduce = false;
    Columns _columns = ToSpans;
    bool _steps = false;

    Column _column;
    bool _columnAlone = true; // the strip began in this column
    std::vector<Span> _spans; // of strips that begin and end in the column
    std::optional<Crowd> _crowd;
    Vertex _stair; // last vertex before the stair is made
    bool _hasStair = false;
    Vertex _previous; // last vertex before cutting
    bool _hasPrevious = false;
    std::size_t _pieceStart = 0;
    Strips _strips;
};

} // namespace fen
