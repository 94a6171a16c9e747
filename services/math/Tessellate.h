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
/// divided where the surface bends less.
///
/// Coordinates closer than about 1e-8 of the larger extent count as equal. Where one extent is more than
/// 1000 times the other, the shorter one is stretched first: triangles would be needles otherwise.
class FENVIS_EXPORT Tessellate {
public:
    /// @param points  read from its start to its end
    /// @param box     [data] an undefined one leaves nothing out
    Tessellate(IVariableIter& points, Math::BoundingBox const& box);

    /// Back to before the first triangle.
    void Reset() { _next = 0; }
    /// To the next triangle; false at the end.
    bool MoveNext();
    /// The triangle's corners, counter-clockwise in x and y; three zero vectors before the first `MoveNext`
    /// and when there is none.
    void Current(Math::Vector3& a, Math::Vector3& b, Math::Vector3& c) const;

    /// The outline, counter-clockwise in x and y, with the points that lie on its edges; the last point
    /// equals the first. Points on one line give the way along it and back; no points give none.
    std::vector<Math::Vector3> Boundary() const { return _boundary; }

private:
    std::vector<Math::Vector3> _points;
    std::vector<std::array<std::uint32_t, 3>> _triangles;
    std::vector<Math::Vector3> _boundary;
    std::size_t _next = 0; ///< one past the current triangle; 0 before the first
};

} // namespace Kes::Tess
