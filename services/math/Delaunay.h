#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace Kes::Tess {

/// A point on a grid of whole numbers, 0 to 2^26, so that every test below can be exact.
struct GridPoint {
    std::int64_t x, y;

    bool operator==(GridPoint const&) const = default;
};

/// Which side of a -> b the point c lies on: above 0 left, 0 on the line, below 0 right. Exact.
std::int64_t turn(GridPoint const& a, GridPoint const& b, GridPoint const& c);

/// Whether d lies inside the circle through a, b and c (counter-clockwise). Exact.
bool inCircle(GridPoint const& a, GridPoint const& b, GridPoint const& c, GridPoint const& d);

/// Indices into the points that were given.
struct Triangulation {
    std::vector<std::array<std::uint32_t, 3>> triangles; ///< counter-clockwise
    std::vector<std::uint32_t> outline; ///< counter-clockwise, every point on the hull's edges, first = last
};

/// The Delaunay triangulation of points that are sorted by x, then y, and all different.
///
/// Divide and conquer with quad-edges (Guibas and Stolfi 1985), O(n log n). Points on one line have no
/// triangles; their outline runs along the line and back.
Triangulation delaunay(std::vector<GridPoint> const& sorted);

} // namespace Kes::Tess
