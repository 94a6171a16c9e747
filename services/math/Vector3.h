#pragma once

#include "../logging/Export.h"
#include "Vector2.h"

#include <concepts>
#include <cstddef>
#include <iosfwd>

namespace Kes::Math {

class Angle;
class Matrix;

/// A point or direction in space: three floats.
///
/// Converts to a pointer to its components, as OpenGL takes them; so compare vectors, never pointers.
class FENVIS_EXPORT Vector3 {
public:
    enum Comp { CompX, CompY, CompZ };

    static Vector3 const zero;
    static Vector3 const X;
    static Vector3 const Z;

    constexpr Vector3() = default;
    constexpr Vector3(float x, float y, float z)
        : _v{x, y, z}
    {
    }
    /// With z = 0.
    explicit constexpr Vector3(Vector2 const& v)
        : _v{v.x(), v.y(), 0.0f}
    {
    }

    constexpr float x() const { return _v[0]; }
    constexpr float y() const { return _v[1]; }
    constexpr float z() const { return _v[2]; }
    constexpr float& x() { return _v[0]; }
    constexpr float& y() { return _v[1]; }
    constexpr float& z() { return _v[2]; }

    /// Component 0, 1 or 2.
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
    constexpr float operator[](Comp c) const { return _v[static_cast<std::size_t>(c)]; }
    constexpr float& operator[](Comp c) { return _v[static_cast<std::size_t>(c)]; }

    constexpr operator float const*() const { return _v; }
    constexpr operator float*() { return _v; }

    constexpr Vector3 operator+(Vector3 const& o) const { return {x() + o.x(), y() + o.y(), z() + o.z()}; }
    constexpr Vector3 operator-(Vector3 const& o) const { return {x() - o.x(), y() - o.y(), z() - o.z()}; }
    constexpr Vector3 operator-() const { return {-x(), -y(), -z()}; }
    constexpr Vector3 operator*(float s) const { return {x() * s, y() * s, z() * s}; }
    constexpr Vector3 operator/(float s) const { return {x() / s, y() / s, z() / s}; }
    /// Component by component.
    constexpr Vector3 operator/(Vector3 const& o) const { return {x() / o.x(), y() / o.y(), z() / o.z()}; }
    constexpr Vector3& operator+=(Vector3 const& o) { return *this = *this + o; }
    constexpr Vector3& operator-=(Vector3 const& o) { return *this = *this - o; }
    constexpr Vector3& operator*=(float s) { return *this = *this * s; }
    /// Transforms a point; divides by w unless that is 0.
    Vector3& operator*=(Matrix const& m);
    /// Transforms a direction by the upper left 3 x 3 of a matrix, in place as `*=`; a constant vector stays
    /// as it is.
    /// @return the transformed direction
    Vector3& mult3x3(Matrix const& m);
    Vector3 mult3x3(Matrix const& m) const;

    constexpr bool operator==(Vector3 const& o) const { return x() == o.x() && y() == o.y() && z() == o.z(); }

    float length() const;
    /// To length 1; a vector without length or with a component that is not finite stays as it is.
    Vector3& normalize();
    static Vector3 normalize(Vector3 const& v);

    /// The cross product a x b.
    static Vector3 xProduct(Vector3 const& a, Vector3 const& b);
    static float dot(Vector3 const& a, Vector3 const& b);
    /// The angle between two directions, 0 to 180 degrees; 0 when one has no length.
    static Angle angle(Vector3 const& a, Vector3 const& b);

    /// Index of the component of largest magnitude, the first of equal ones.
    int dominant() const;
    /// Makes every component non-negative, in place.
    Vector3& abs();

    /// From object to window coordinates: x and y in [px], z is the depth 0..1 between the clip planes.
    /// @param viewport  x, y, width, height
    /// @return zero when the point lies in the plane of the eye (w is 0)
    Vector3 project(Matrix const& modelView, Matrix const& projection, int const* viewport) const;
    /// From window to object coordinates, the inverse of `project`.
    /// @return zero when the matrices cannot be inverted or the viewport is empty
    Vector3 unProject(Matrix const& modelView, Matrix const& projection, int const* viewport) const;

private:
    float _v[3] = {0.0f, 0.0f, 0.0f};
};

inline constexpr Vector3 Vector3::zero{0.0f, 0.0f, 0.0f};
inline constexpr Vector3 Vector3::X{1.0f, 0.0f, 0.0f};
inline constexpr Vector3 Vector3::Z{0.0f, 0.0f, 1.0f};

inline constexpr Vector3 Vector0{0.0f, 0.0f, 0.0f};
inline constexpr Vector3 Vector1{1.0f, 1.0f, 1.0f};
inline constexpr Vector3 VectorX{1.0f, 0.0f, 0.0f};
inline constexpr Vector3 VectorY{0.0f, 1.0f, 0.0f};
inline constexpr Vector3 VectorZ{0.0f, 0.0f, 1.0f};

inline Vector2::Vector2(Vector3 const& v)
    : _v{v.x(), v.y()}
{
}

/// Writes "(x, y, z)".
FENVIS_EXPORT std::ostream& operator<<(std::ostream& out, Vector3 const& v);
/// Writes "(x, y)".
FENVIS_EXPORT std::ostream& operator<<(std::ostream& out, Vector2 const& v);

} // namespace Kes::Math
