#pragma once

#include "services/math/Vector3.h"

#include <vector>

namespace Kes::Math {
class BoundingBox;
class Plane;
} // namespace Kes::Math

namespace fen {

/// What a plane cuts out of a box.
struct PlaneSection {
    typedef Kes::Math::Vector3 Vector3;

    /// @param plane  its normal has length 1
    PlaneSection(Kes::Math::BoundingBox const& box, Kes::Math::Plane const& plane);

    bool empty() const { return corners.size() < 3; }
    Vector3 center() const;
    /// Ends of parallel lines at multiples of `spacing` from the plane's point, in both directions of the
    /// plane, where they are inside; two points a line. Nothing when they would be more than a thousand.
    std::vector<Vector3> grid(double spacing) const;

    std::vector<Vector3> corners; ///< convex, counter-clockwise seen from the tip of the normal
    Vector3 origin; ///< the plane's point
    Vector3 u, v; ///< directions in the plane, with the normal a right-handed system

private:
    void appendLines(std::vector<Vector3>& lines, Vector3 const& across, double spacing) const;
};

} // namespace fen
