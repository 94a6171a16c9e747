#pragma once

#include "../logging/Export.h"
#include "Vector3.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

class IVariableIter;

namespace Kes::Math {
class BoundingBox;
}

namespace Kes::Tess {

/// A surface over sample points: their Delaunay triangulation in x and y, with its outline.
///
/// Everything is computed by the constructor; neither the iterator nor the box is kept. Points with an
/// undefined, NaN or infinite component are left out, and so is what lies outside the box in x or y. Of
/// points with the same x and y the first counts. Points that fill a grid give two triangles per cell,
/// divided where the surface bends less. A point of a grid whose z is not known is a hole: the surface
/// stays open around it.
///
/// Coordinates closer than about 1e-8 of the larger extent count as equal. Where one extent is more than
/// 1000 times the other, the shorter one is stretched first: triangles would be needles otherwise.
class FENVIS_EXPORT Tessellate {
public:
    /// @param points  read from its start to its end
    /// @param box     [data] an undefined one leaves nothing out
    Tessellate(IVariableIter& points, Math::BoundingBox const& box);

    /// Back to before the first triangle.
    void Reset();
    /// To the next triangle; false at the end.
    bool MoveNext();
    /// The triangle's corners, counter-clockwise in x and y; three zero vectors before the first `MoveNext`
    /// and when there is none.
    void Current(Math::Vector3& a, Math::Vector3& b, Math::Vector3& c) const;

    /// The outline, counter-clockwise in x and y, with the points that lie on its edges; the last point
    /// equals the first. Points on one line give the way along it and back; no points give none.
    std::vector<Math::Vector3> Boundary() const { return _boundary; }

    typedef std::uint32_t Index;
    typedef std::array<Index, 3> Triangle;
    /// No point: a hole of a grid.
    static constexpr Index none = 0xFFFFFFFF;

    /// What triangles and grid count by.
    std::vector<Math::Vector3> const& points() const { return _points; }
    /// All triangles; empty for a grid, which has rows and columns instead.
    std::vector<Triangle> const& triangles() const { return _triangles; }
    /// Of a grid; 0 without one.
    std::size_t columns() const { return _columns; }
    std::size_t rows() const { return _columns ? _grid.size() / _columns : 0; }
    /// The point of a grid in a column (ascending x) and a row (ascending y), or `none`.
    Index at(std::size_t column, std::size_t row) const { return _grid[row * _columns + column]; }
    /// The triangles of a grid's cell; fewer than two beside a hole.
    /// @return how many
    unsigned cell(std::size_t column, std::size_t row, Triangle triangles[2]) const;

private:
    void sortOutHoles();

    std::vector<Math::Vector3> _points;
    std::vector<Triangle> _triangles;
    std::vector<Index> _grid; ///< row by row, from the lowest y
    std::size_t _columns = 0;
    std::vector<Math::Vector3> _boundary;
    std::size_t _next = 0; ///< one past the current triangle or cell; 0 before the first
    Triangle _current[2];
    unsigned _left = 0; ///< triangles of the current cell that come after the current one
    bool _any = false; ///< there is a current triangle
};

} // namespace Kes::Tess
