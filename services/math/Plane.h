#pragma once

#include "../logging/Export.h"
#include "Vector3.h"

namespace Kes::Math {

/// A plane through a point, with a normal of any length.
class FENVIS_EXPORT Plane {
public:
    constexpr Plane()
        : _normal(VectorZ)
    {
    }
    constexpr Plane(Vector3 const& point, Vector3 const& normal)
        : _point(point)
        , _normal(normal)
    {
    }

    constexpr Vector3 const& point() const { return _point; }
    constexpr Vector3 const& normal() const { return _normal; }

    /// Makes the normal one of length 1; one without length stays as it is.
    Plane& normalize();

    /// How far a point lies on the normal's side, in lengths of the normal.
    double distance(Vector3 const& p) const;

private:
    Vector3 _point;
    Vector3 _normal;
};

} // namespace Kes::Math
