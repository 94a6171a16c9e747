#pragma once

#include "../logging/Export.h"
#include "Components.h"

#include <concepts>
#include <cstddef>
#include <vector>

namespace Kes::Math {

class Vector3;

/// A point or direction in the plane: two floats.
///
/// Converts to a pointer to its components, as OpenGL takes them; so compare vectors, never pointers.
class FENVIS_EXPORT Vector2 {
public:
    constexpr Vector2() = default;
    constexpr Vector2(float x, float y)
        : _v{x, y}
    {
    }
    /// Drops z.
    explicit Vector2(Vector3 const& v);
    /// Takes two floats.
    explicit Vector2(float const* xy)
        : _v{xy[0], xy[1]}
    {
    }

    constexpr float x() const { return _v[0]; }
    constexpr float y() const { return _v[1]; }
    constexpr float& x() { return _v[0]; }
    constexpr float& y() { return _v[1]; }

    /// Component 0 or 1.
    template <std::integral I>
    constexpr float operator[](I i) const
    {
        return _v[static_cast<std::size_t>(i)];
    }
    template <std::integral I>
    constexpr float& operator[](I i)
    {
        return _v[static_cast<std::size_t>(i)];
    }

    constexpr operator float const*() const { return _v; }
    constexpr operator float*() { return _v; }

    constexpr Vector2 operator+(Vector2 const& o) const { return Vector2(x() + o.x(), y() + o.y()); }
    constexpr Vector2 operator-(Vector2 const& o) const { return Vector2(x() - o.x(), y() - o.y()); }
    constexpr Vector2 operator-() const { return Vector2(-x(), -y()); }
    constexpr Vector2 operator*(float s) const { return Vector2(x() * s, y() * s); }
    constexpr Vector2 operator/(float s) const { return Vector2(x() / s, y() / s); }

    constexpr Vector2& operator+=(Vector2 const& o) { return *this = *this + o; }
    constexpr Vector2& operator-=(Vector2 const& o) { return *this = *this - o; }
    constexpr Vector2& operator*=(float s) { return *this = *this * s; }

    constexpr bool operator==(Vector2 const& o) const { return x() == o.x() && y() == o.y(); }

    /// By x, then by y; a NaN comes last, so that sorting and maps stay sound.
    bool operator<(Vector2 const& o) const;

    float length() const;

    /// Component-wise minimum and maximum of a list, infinities included. A NaN counts as absent; without
    /// any number the component is 0.
    static Vector2 min(std::vector<Vector2> const& points);
    static Vector2 max(std::vector<Vector2> const& points);

private:
    float _v[2] = {0.0f, 0.0f};
};

} // namespace Kes::Math
