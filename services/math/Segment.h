#pragma once

#include "../logging/Export.h"
#include "Vector3.h"

namespace Kes::Math {

/// The straight line from A to B.
class FENVIS_EXPORT Segment {
public:
    constexpr Segment() = default;
    constexpr Segment(Vector3 const& a, Vector3 const& b)
        : _a(a)
        , _b(b)
    {
    }
    constexpr Segment(Vector2 const& a, Vector2 const& b)
        : _a(a)
        , _b(b)
    {
    }

    constexpr Vector3 const& A() const { return _a; }
    constexpr Vector3 const& B() const { return _b; }
    /// From A to B.
    constexpr Vector3 vectorAB() const { return _b - _a; }

    constexpr bool operator==(Segment const& o) const { return _a == o._a && _b == o._b; }

private:
    Vector3 _a;
    Vector3 _b;
};

} // namespace Kes::Math
