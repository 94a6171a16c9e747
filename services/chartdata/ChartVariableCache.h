#pragma once

#include "../math/BoundingBox.h"
#include "ChartRange.h"
#include "ChartVariable.h"

#include <cmath>

/// One variable as it was at the last update: its columns and their ranges.
///
/// Shares the columns, so it is cheap to make and to copy whatever their size. Points at the variable,
/// which may be destroyed meanwhile: see `alive`.
class FENVIS_EXPORT FenChartVariableCache {
public:
    typedef Kes::Math::Vector3::Comp Comp;

    /// Nothing: not alive, no points.
    FenChartVariableCache() = default;
    /// @param honoured  false: the variable is listed, but has nothing to draw
    explicit FenChartVariableCache(FenChartVariable const& variable, bool honoured = true);

    /// False once the variable is gone; its numbers are still here.
    bool alive() const { return bool(_variable); }
    /// The variable, or one without name and data that is in no tree when it is gone.
    FenChartVariable const& variable() const;

    /// True when there is nothing to draw: no point has all coordinates.
    bool empty() const { return !_range[Kes::Math::Vector3::CompY].defined(); }
    /// Number of points, those with undefined coordinates too.
    std::size_t count() const { return _count; }
    /// Coordinates of point i < count() in the unit that is shown; NaN (or infinite) where undefined.
    double x(std::size_t i) const { return _columns[0] ? at(*_columns[0], i) : double(i); }
    double y(std::size_t i) const { return _columns[1] ? at(*_columns[1], i) : std::nan(""); }
    double z(std::size_t i) const { return _columns[2] ? at(*_columns[2], i) : 0.0; }
    double value(Comp comp, std::size_t i) const;

    /// The columns in the unit that is shown. Null x: x is the index. Null y: there is no point to draw.
    /// Null z: z is 0.
    FenChartColumn::Ptr const& xColumn() const { return _columns[0]; }
    FenChartColumn::Ptr const& yColumn() const { return _columns[1]; }
    FenChartColumn::Ptr const& zColumn() const { return _columns[2]; }
    FenChartColumn::Ptr const& column(Comp comp) const { return _columns[comp]; }

    /// Range of the points whose coordinates are all finite, in double. Empty for all components when
    /// there is no such point.
    FenChartRange const& range(Comp comp) const { return _range[comp]; }
    /// The same for coordinates above 0 only, as a logarithmic axis needs it.
    FenChartRange positiveRange(Comp comp) const;
    /// Number of finite values that are not above 0.
    std::size_t nonPositive(Comp comp) const;
    /// [data] box of the points; undefined when there is none.
    Kes::Math::BoundingBox boundingBox() const;
    /// Smallest distance between two neighbouring x; 1 with fewer than two different x.
    double minXDelta() const;

    /// The points in data units, one per index, NaN where a coordinate is undefined. Made anew by each
    /// call, so meant for small data; drawing reads the columns.
    std::vector<Kes::Math::Vector3> points() const;
    /// What `relativePoints` are relative to: 0, or a value of the range where values far from 0 would
    /// lose digits as float.
    double origin(Comp comp) const { return _origin[comp]; }
    /// The points less the origin; cost as `points`.
    std::vector<Kes::Math::Vector3> relativePoints() const;

private:
    static double at(FenChartColumn const& column, std::size_t i)
    {
        return i < column.size() ? column[i] : std::nan("");
    }
    void findRanges();
    void findRangesPointwise();
    std::vector<Kes::Math::Vector3> makePoints(std::array<double, 3> const& origin) const;

    fen::view_ptr<FenChartVariable const> _variable;
    std::array<FenChartColumn::Ptr, 3> _columns;
    std::size_t _count = 0;
    std::array<FenChartRange, 3> _range;
    std::array<double, 3> _origin{0.0, 0.0, 0.0};
};
