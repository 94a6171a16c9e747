#pragma once

#include "../logging/Export.h"
#include "Vector3.h"

#include <iosfwd>

namespace Kes::Math {

class Matrix;

/// An axis-parallel box, or none at all.
///
/// A default-constructed box is undefined: it holds nothing, and its corners mean nothing.
class FENVIS_EXPORT BoundingBox {
public:
    constexpr BoundingBox() = default;
    constexpr BoundingBox(Vector3 const& min, Vector3 const& max)
        : _min(min)
        , _max(max)
        , _defined(true)
    {
    }

    constexpr bool defined() const { return _defined; }
    constexpr bool& defined() { return _defined; }

    constexpr Vector3 const& min() const { return _min; }
    constexpr Vector3 const& max() const { return _max; }
    /// max - min; zero when undefined.
    Vector3 extent() const;
    /// Zero when undefined, and along axes without an end on both sides.
    Vector3 center() const;

    /// Grows to hold a point; an undefined box becomes that point. A point with a NaN is ignored.
    void insert(float x, float y, float z);
    void insert(Vector3 const& point) { insert(point.x(), point.y(), point.z()); }
    /// Grows to hold another box; an undefined one adds nothing.
    void insert(BoundingBox const& box);
    BoundingBox& operator+=(BoundingBox const& box)
    {
        insert(box);
        return *this;
    }

    /// Back to undefined.
    void reset() { *this = BoundingBox(); }

    /// The box with both corners multiplied component by component; negative factors mirror it.
    BoundingBox scale(Vector3 const& factors) const;
    /// The box of the eight transformed corners; of a box without end, by the affine part.
    BoundingBox operator*(Matrix const& m) const;

    /// Undefined boxes are equal to each other and to nothing else.
    bool operator==(BoundingBox const& o) const;

private:
    Vector3 _min;
    Vector3 _max;
    bool _defined = false;
};

/// Writes "(x, y, z) - (x, y, z)", or "undefined".
FENVIS_EXPORT std::ostream& operator<<(std::ostream& out, BoundingBox const& box);

} // namespace Kes::Math
