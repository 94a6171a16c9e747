#include "services/math/Vector3.h"

#include "services/math/Angle.h"
#include "services/math/Homogeneous.h"
#include "services/math/Matrix.h"

#include <cmath>
#include <ostream>

namespace Kes::Math {

namespace {

// In double: squares of large floats would overflow.
double exactLength(Vector3 const& v) { return std::hypot(double(v.x()), double(v.y()), double(v.z())); }

bool usable(int const* viewport) { return viewport && viewport[2] > 0 && viewport[3] > 0; }

// Maps -1..1 to a range that starts at `origin`.
double toWindow(double clip, int origin, int extent) { return origin + extent * (clip + 1.0) / 2.0; }

double fromWindow(float window, int origin, int extent)
{
    return (double(window) - origin) / extent * 2.0 - 1.0;
}

} // namespace

Vector3& Vector3::operator*=(Matrix const& m) { return *this = m * *this; }

Vector3 Vector3::mult3x3(Matrix const& m) const
{
    Vector3 result;
    for (int row = 0; row < 3; ++row) {
        result[row] = m(row, 0) * x() + m(row, 1) * y() + m(row, 2) * z();
    }
    return result;
}

Vector3& Vector3::mult3x3(Matrix const& m)
{
    Vector3 const& before = *this;
    return *this = before.mult3x3(m);
}

float Vector3::length() const { return float(exactLength(*this)); }

Vector3& Vector3::normalize()
{
    double const length = exactLength(*this);
    if (length > 0.0 && std::isfinite(length)) {
        *this = {float(x() / length), float(y() / length), float(z() / length)};
    }
    return *this;
}

Vector3 Vector3::normalize(Vector3 const& v) { return Vector3(v).normalize(); }

Vector3 Vector3::xProduct(Vector3 const& a, Vector3 const& b)
{
    return {a.y() * b.z() - a.z() * b.y(), a.z() * b.x() - a.x() * b.z(), a.x() * b.y() - a.y() * b.x()};
}

float Vector3::dot(Vector3 const& a, Vector3 const& b)
{
    return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

Angle Vector3::angle(Vector3 const& a, Vector3 const& b)
{
    // From sine and cosine: the arc cosine alone loses small angles.
    Vector3 const unitA = normalize(a);
    Vector3 const unitB = normalize(b);
    double const sine = exactLength(xProduct(unitA, unitB));
    double const cosine = double(dot(unitA, unitB));
    bool const known = std::isfinite(sine) && std::isfinite(cosine);
    return known ? Angle(std::atan2(sine, cosine)) : Angle();
}

int Vector3::dominant() const
{
    int index = 0;
    for (int i = 1; i < 3; ++i) {
        if (std::fabs(_v[i]) > std::fabs(_v[index]) || std::isnan(_v[index])) index = i;
    }
    return index;
}

Vector3& Vector3::abs() { return *this = {std::fabs(x()), std::fabs(y()), std::fabs(z())}; }

Vector3 Vector3::project(Matrix const& modelView, Matrix const& projection, int const* viewport) const
{
    if (!viewport) return zero;
    Homogeneous const clip = Transform(projection) * (Transform(modelView) * Homogeneous(*this));
    if (!clip.hasPoint()) return zero;
    return Homogeneous(toWindow(clip.x / clip.w, viewport[0], viewport[2]),
                       toWindow(clip.y / clip.w, viewport[1], viewport[3]), toWindow(clip.z / clip.w, 0, 1))
        .point();
}

Vector3 Vector3::unProject(Matrix const& modelView, Matrix const& projection, int const* viewport) const
{
    Transform back = Transform(projection) * Transform(modelView);
    if (!usable(viewport) || !back.invert()) return zero;
    Homogeneous const object = back
        * Homogeneous(fromWindow(x(), viewport[0], viewport[2]), fromWindow(y(), viewport[1], viewport[3]),
                      fromWindow(z(), 0, 1));
    return object.hasPoint() ? object.point() : zero;
}

std::ostream& operator<<(std::ostream& out, Vector3 const& v)
{
    return out << '(' << v.x() << ", " << v.y() << ", " << v.z() << ')';
}

} // namespace Kes::Math
