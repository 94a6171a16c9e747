#pragma once

#include "services/chartdata/ChartPerVariableScaling.h"

#include <QPoint>
#include <QSize>

#include <cstddef>
#include <memory>
#include <utility>

class FenChartColumn;
class FenChartVariableCache;

namespace fen {

/// Where the points of one variable lie: its columns, the mappings of its axes
/// and the size of the data rectangle. All positions are [px] relative to the
/// lower left corner of that rectangle, in double; NaN where a point is not
/// defined on its axis.
///
/// Shares the columns; cheap to copy.
struct CurveData {
    /// Half open range of point indices.
    struct Range {
        std::size_t first = 0, last = 0;
        std::size_t size() const { return last > first ? last - first : 0; }
    };

    CurveData() = default;
    CurveData(FenChartVariableCache const& cache, FenChartAxisMapping const& x, FenChartAxisMapping const& y,
              QSize const& rectangle);

    double xValue(std::size_t i) const; ///< [data] without the shift
    double yValue(std::size_t i) const; ///< [data]
    double x(std::size_t i) const { return pixelX(xValue(i) + shift); } ///< [px]
    double y(std::size_t i) const { return pixelY(yValue(i)); } ///< [px]
    /// [data] to [px]; far positions are cut off at 1e9 px.
    double pixelX(double value) const;
    double pixelY(double value) const;
    /// Pixel of a point that is defined: its position rounded down.
    QPoint pixel(std::size_t i) const;

    /// True when x never descends in the data, so that positions can be searched.
    bool ascending() const;
    bool defined(std::size_t i) const;
    /// The leftmost and the rightmost point that is defined; of equally far ones the first and the last.
    /// @return `count` twice when no point is defined
    std::pair<std::size_t, std::size_t> outermost() const;

    /// First point at or right of (right of) a pixel position; ascending x only.
    /// @param hint  an index at or before which the search begins
    std::size_t firstFrom(double px, std::size_t hint) const;
    std::size_t firstBeyond(double px, std::size_t hint) const;
    /// Points with x in [from, to] [px]; ascending x only.
    Range between(double from, double to) const;
    /// Points between the edges and two more on either side; all when x is not ascending.
    /// @param margin  [px] how far beyond the edges a point still counts
    Range visible(double margin = 0) const;
    /// Lowest and highest point of a range through the column's blocks.
    /// @return false when the range is empty or may have undefined values
    bool extremes(Range const& range, std::size_t& low, std::size_t& high) const;
    /// First point of a range whose y is undefined, or its end; looks only into blocks that have one.
    std::size_t firstGap(Range const& range) const;
    /// True when no point of a block of the columns lies in [from, to] [px].
    bool blockMissesX(std::size_t block, double from, double to) const;
    bool blockMissesY(std::size_t block, double from, double to) const;

    std::shared_ptr<FenChartColumn const> xColumn; ///< null: the index is x
    std::shared_ptr<FenChartColumn const> yColumn; ///< null: there are no points
    std::size_t count = 0; ///< points with both coordinates
    double shift = 0; ///< [data] by which all points stand right of their x: bars side by side
    FenChartAxisMapping xMapping;
    FenChartAxisMapping yMapping;
    QSize size; ///< [px] data rectangle
    double ratio = 1; ///< device pixels per pixel: curves are reduced per device pixel

private:
    bool blockDefined(std::size_t block) const; // every y of it is
};

} // namespace fen
