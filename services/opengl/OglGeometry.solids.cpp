#include "services/opengl/OglGeometry.h"

#include "services/math/Finite.h"
#include "services/opengl/VertexArrays.h"

#include <array>
#include <cmath>
#include <numbers>

using Kes::Math::Vector3;

namespace {

constexpr int slices = 24; // around an axis
constexpr int stacks = 12; // from pole to pole

/// Directions around an axis: the unit vector at each of `slices` + 1 angles, the last equal to the first.
using Ring = std::array<Vector3, slices + 1>;

/// @param axis  length 1
Ring ringAround(Vector3 const& axis)
{
    Vector3 const other = std::abs(axis.z()) < 0.9f ? Vector3(0, 0, 1) : Vector3(1, 0, 0);
    Vector3 const u = Vector3::normalize(Vector3::xProduct(other, axis));
    Vector3 const v = Vector3::xProduct(axis, u);
    Ring ring;
    for (int i = 0; i <= slices; ++i) {
        double const angle = 2 * std::numbers::pi * (i % slices) / slices;
        ring[size_t(i)] = u * float(std::cos(angle)) + v * float(std::sin(angle));
    }
    return ring;
}

/// Side of a cone or cylinder as a triangle strip, wound counter-clockwise seen from outside.
void drawSide(Vector3 const& a, Vector3 const& b, Vector3 const& axis, float ra, float rb, Ring const& ring)
{
    float const length = (b - a).length();
    Vector3 const slope = axis * ((ra - rb) / length); // normals of a cone lean towards its tip
    fen::VertexArrays side;
    for (Vector3 const& out : ring) {
        Vector3 const normal = Vector3::normalize(out + slope);
        side.add(b + out * rb, normal);
        side.add(a + out * ra, normal);
    }
    side.draw(GL_TRIANGLE_STRIP);
}

/// Flat end with a hole (none for 0); `normal` looks out of the body.
void drawEnd(Vector3 const& center, Vector3 const& normal, float radius, float hole, Ring const& ring,
             bool forward)
{
    if (!(radius > hole)) return;
    fen::VertexArrays end;
    for (int i = 0; i <= slices; ++i) {
        Vector3 const& out = ring[size_t(forward ? i : slices - i)];
        end.add(center + out * hole, normal);
        end.add(center + out * radius, normal);
    }
    end.draw(GL_TRIANGLE_STRIP);
}

Vector3 onSphere(int stack, int slice)
{
    double const polar = std::numbers::pi * stack / stacks;
    double const angle = 2 * std::numbers::pi * (slice % slices) / slices;
    double const ring = stack % stacks == 0 ? 0 : std::sin(polar);
    return Vector3(float(ring * std::cos(angle)), float(ring * std::sin(angle)), float(std::cos(polar)));
}

bool usable(Vector3 const& center, double radius)
{
    return Kes::Math::finite(center) && std::isfinite(radius) && radius > 0;
}

} // namespace

void FenOglGeometry::drawSolidSphere(Vector3 const& center, double radius)
{
    if (!usable(center, radius)) return;
    for (int stack = 0; stack < stacks; ++stack) {
        fen::VertexArrays band;
        for (int slice = 0; slice <= slices; ++slice)
            for (int const row : {stack, stack + 1}) {
                Vector3 const out = onSphere(row, slice);
                band.add(center + out * float(radius), out);
            }
        band.draw(GL_TRIANGLE_STRIP);
    }
}

void FenOglGeometry::drawWireSphere(Vector3 const& center, double radius)
{
    if (!usable(center, radius)) return;
    std::vector<Vector3> lines;
    auto const edge = [&](int stack0, int slice0, int stack1, int slice1) {
        lines.push_back(center + onSphere(stack0, slice0) * float(radius));
        lines.push_back(center + onSphere(stack1, slice1) * float(radius));
    };
    constexpr int meridianStep = 2;
    for (int stack = 0; stack < stacks; ++stack)
        for (int slice = 0; slice < slices; ++slice) {
            if (slice % meridianStep == 0) edge(stack, slice, stack + 1, slice);
            if (stack > 0 && stack % meridianStep == 0) edge(stack, slice, stack, slice + 1);
        }
    fen::drawArray(GL_LINES, lines);
}

void FenOglGeometry::drawSolidCone(Vector3 const& base, Vector3 const& tip, double radius)
{
    drawSolidCylinder(base, tip, radius, 0, 0, 0);
}

void FenOglGeometry::drawSolidCylinder(Vector3 const& a, Vector3 const& b, double r0, double r1, double hole0,
                                       double hole1)
{
    float const length = (b - a).length();
    if (!Kes::Math::finite(a) || !Kes::Math::finite(b) || !std::isfinite(r0 + r1 + hole0 + hole1)
        || !(length > 0))
        return;
    Vector3 const axis = (b - a) / length;
    Ring const ring = ringAround(axis);
    auto const radius = [](double r) { return float(std::max(r, 0.0)); };
    drawSide(a, b, axis, radius(r0), radius(r1), ring);
    drawEnd(a, -axis, radius(r0), radius(hole0), ring, true);
    drawEnd(b, axis, radius(r1), radius(hole1), ring, false);
}
