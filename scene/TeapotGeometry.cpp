#include "scene/TeapotGeometry.h"

#include <algorithm>
#include <array>

using Kes::Math::Vector3;

namespace fen {

namespace {

/// Point of the outline of a surface of revolution: distance from the axis and height.
struct OutlinePoint {
    float radius, z;
};
typedef std::array<OutlinePoint, 4> Outline;

// Newell's numbers. The parts around the axis, from the top of each to its bottom.
constexpr Outline outlines[] = {
    {{{1.4f, 2.4f}, {1.3375f, 2.53125f}, {1.4375f, 2.53125f}, {1.5f, 2.4f}}}, // rim
    {{{1.5f, 2.4f}, {1.75f, 1.875f}, {2.0f, 1.35f}, {2.0f, 0.9f}}}, // body
    {{{2.0f, 0.9f}, {2.0f, 0.45f}, {1.5f, 0.225f}, {1.5f, 0.15f}}},
    {{{0.0f, 3.15f}, {0.8f, 3.15f}, {0.0f, 2.85f}, {0.2f, 2.7f}}}, // lid
    {{{0.2f, 2.7f}, {0.4f, 2.55f}, {1.3f, 2.55f}, {1.3f, 2.4f}}},
    {{{1.5f, 0.15f}, {1.5f, 0.075f}, {1.425f, 0.0f}, {0.0f, 0.0f}}}, // bottom
};
/// A Bézier curve with this handle length is nearly a quarter of a circle of radius 1.
constexpr float circleHandle = 0.56f;

/// Cross-section of a tube: from its inner to its outer edge in the plane y = 0, and half its width.
struct Section {
    float x0, z0, x1, z1, halfWidth;
};
typedef std::array<Section, 7> Tube; ///< two patches, which share the section in the middle

constexpr Tube handle = {{{-1.6f, 2.025f, -1.5f, 2.25f, 0.3f},
                          {-2.3f, 2.025f, -2.5f, 2.25f, 0.3f},
                          {-2.7f, 2.025f, -3.0f, 2.25f, 0.3f},
                          {-2.7f, 1.8f, -3.0f, 1.8f, 0.3f},
                          {-2.7f, 1.575f, -3.0f, 1.35f, 0.3f},
                          {-2.5f, 1.125f, -2.65f, 0.9375f, 0.3f},
                          {-2.0f, 0.9f, -1.9f, 0.6f, 0.3f}}};
constexpr Tube spout = {{{1.7f, 1.425f, 1.7f, 0.6f, 0.66f},
                         {2.6f, 1.425f, 3.1f, 0.825f, 0.66f},
                         {2.3f, 2.1f, 2.4f, 2.025f, 0.25f},
                         {2.7f, 2.4f, 3.3f, 2.4f, 0.25f},
                         {2.8f, 2.475f, 3.525f, 2.49375f, 0.25f},
                         {2.9f, 2.475f, 3.45f, 2.5125f, 0.15f},
                         {2.8f, 2.4f, 3.2f, 2.4f, 0.15f}}};

typedef std::array<std::array<Vector3, 4>, 4> Patch; ///< control points

/// A quarter turn of an outline about the z axis, `quarter` times 90 degrees from +x.
Patch revolved(Outline const& outline, int quarter)
{
    Patch patch;
    for (size_t row = 0; row < 4; ++row) {
        auto const [r, z] = outline[row];
        float const c = r * circleHandle;
        std::array<Vector3, 4> const arc = {Vector3(r, 0, z), Vector3(r, c, z), Vector3(c, r, z),
                                            Vector3(0, r, z)};
        for (size_t i = 0; i < 4; ++i) {
            Vector3 point = arc[i];
            for (int turn = 0; turn < quarter; ++turn) point = Vector3(-point.y(), point.x(), point.z());
            patch[row][i] = point;
        }
    }
    return patch;
}

/// Half of a tube, at the side of `sign` in y.
Patch half(Tube const& tube, size_t first, float sign)
{
    Patch patch;
    for (size_t row = 0; row < 4; ++row) {
        Section const& at = tube[first + row];
        float const y = sign * at.halfWidth;
        patch[row] = {Vector3(at.x0, 0, at.z0), Vector3(at.x0, y, at.z0), Vector3(at.x1, y, at.z1),
                      Vector3(at.x1, 0, at.z1)};
        if (sign < 0) std::reverse(patch[row].begin(), patch[row].end()); // wound as the other half
    }
    return patch;
}

/// Point and derivative of a cubic Bézier curve (Bernstein polynomials).
struct CurvePoint {
    Vector3 place, along;
};
CurvePoint curveAt(std::array<Vector3, 4> const& p, float t)
{
    float const s = 1 - t;
    return {p[0] * (s * s * s) + p[1] * (3 * s * s * t) + p[2] * (3 * s * t * t) + p[3] * (t * t * t),
            (p[1] - p[0]) * (3 * s * s) + (p[2] - p[1]) * (6 * s * t) + (p[3] - p[2]) * (3 * t * t)};
}

/// Point of a patch, u down the rows and v along them, and its normal.
struct SurfacePoint {
    Vector3 place, normal;
};
SurfacePoint surfaceAt(Patch const& patch, float u, float v)
{
    std::array<Vector3, 4> places, slopes;
    for (size_t i = 0; i < 4; ++i) {
        std::array<Vector3, 4> const column = {patch[0][i], patch[1][i], patch[2][i], patch[3][i]};
        CurvePoint const down = curveAt(column, u);
        places[i] = down.place;
        slopes[i] = down.along;
    }
    CurvePoint const across = curveAt(places, v);
    Vector3 const down = curveAt(slopes, v).place;
    return {across.place, Vector3::xProduct(down, across.along)};
}

/// At the poles a patch has no area, hence no normal: there the axis is it.
Vector3 usableNormal(SurfacePoint const& at)
{
    constexpr float least = 1e-6f;
    if (at.normal.length() > least) return Vector3::normalize(at.normal);
    return Vector3(0, 0, at.place.z() > 1 ? 1.0f : -1.0f);
}

void append(TeapotMesh& mesh, Patch const& patch, int steps)
{
    auto const first = GLuint(mesh.vertices.positions.size());
    auto const side = GLuint(steps + 1);
    for (int row = 0; row <= steps; ++row)
        for (int column = 0; column <= steps; ++column) {
            SurfacePoint const at = surfaceAt(patch, float(row) / float(steps), float(column) / float(steps));
            mesh.vertices.add(at.place, usableNormal(at));
            mesh.box.insert(at.place);
        }
    for (GLuint row = 0; row + 1 < side; ++row)
        for (GLuint column = 0; column + 1 < side; ++column) {
            GLuint const corner = first + row * side + column;
            for (GLuint const offset : {0u, side, side + 1, 0u, side + 1, 1u})
                mesh.triangles.push_back(corner + offset);
        }
}

} // namespace

TeapotMesh teapotMesh(int steps)
{
    int const usable = std::max(1, steps);
    TeapotMesh mesh;
    for (Outline const& outline : outlines)
        for (int quarter = 0; quarter < 4; ++quarter) append(mesh, revolved(outline, quarter), usable);
    for (Tube const* const tube : {&handle, &spout})
        for (size_t const from : {0u, 3u})
            for (float const sign : {-1.0f, 1.0f}) append(mesh, half(*tube, from, sign), usable);
    return mesh;
}

} // namespace fen
