#include "services/opengl/OglGeometry.h"

#include "services/math/Matrix.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

Vector3 point(double x, double y, double z) { return Vector3(float(x), float(y), float(z)); }

/// Two opposite corners in ascending order.
struct Box {
    double low[3], high[3];

    Box(double x0, double y0, double z0, double x1, double y1, double z1)
        : low{std::min(x0, x1), std::min(y0, y1), std::min(z0, z1)}
        , high{std::max(x0, x1), std::max(y0, y1), std::max(z0, z1)}
    {
    }
    bool finite() const
    {
        return std::all_of(low, low + 3, [](double v) { return std::isfinite(v); })
            && std::all_of(high, high + 3, [](double v) { return std::isfinite(v); });
    }
    /// Corner by three bits: x, y, z at their high ends.
    Vector3 corner(int bits) const
    {
        return point(bits & 1 ? high[0] : low[0], bits & 2 ? high[1] : low[1], bits & 4 ? high[2] : low[2]);
    }
};

struct Face {
    int corners[4]; ///< counter-clockwise seen from outside
    float normal[3];
};
constexpr Face faces[] = {
    {{0, 4, 6, 2}, {-1, 0, 0}}, {{1, 3, 7, 5}, {1, 0, 0}},  {{0, 1, 5, 4}, {0, -1, 0}},
    {{2, 6, 7, 3}, {0, 1, 0}},  {{0, 2, 3, 1}, {0, 0, -1}}, {{4, 5, 7, 6}, {0, 0, 1}},
};

fen::VertexArrays boxFaces(Box const& box)
{
    fen::VertexArrays arrays;
    for (Face const& face : faces)
        for (int const corner : face.corners)
            arrays.add(box.corner(corner), point(face.normal[0], face.normal[1], face.normal[2]));
    return arrays;
}

/// Section between a segment and its base as points of a triangle strip.
struct Section {
    unsigned count;
    bool alongZ;
    double base;
    double from[4]; ///< x, y, z, t
    double to[4];

    int up() const { return alongZ ? 2 : 1; }
    bool finite() const
    {
        double const sum = base + from[0] + from[1] + from[2] + from[3] + to[0] + to[1] + to[2] + to[3];
        return std::isfinite(sum);
    }
    /// Shares of the segment at which the strip has a pair of points.
    std::vector<double> shares() const
    {
        constexpr unsigned most = 1024;
        unsigned const pieces = std::clamp(count, 1u, most);
        std::vector<double> list;
        for (unsigned i = 0; i <= pieces; ++i) list.push_back(double(i) / pieces);
        double const a = from[up()] - base, b = to[up()] - base;
        if (a * b < 0) list.insert(std::upper_bound(list.begin(), list.end(), a / (a - b)), a / (a - b));
        return list;
    }
    fen::VertexArrays strip(double tBase) const
    {
        fen::VertexArrays arrays;
        for (double const share : shares()) {
            double at[4];
            for (int i = 0; i < 4; ++i) at[i] = from[i] + share * (to[i] - from[i]);
            arrays.add(point(at[0], at[1], at[2]), Vector2(0, float(at[3])));
            at[up()] = base;
            arrays.add(point(at[0], at[1], at[2]), Vector2(0, float(tBase)));
        }
        return arrays;
    }
};

std::vector<Vector3> rectangle(Vector3 const& min, Vector3 const& max, Matrix const& matrix)
{
    return {matrix * min, matrix * Vector3(max.x(), min.y(), min.z()),
            matrix * Vector3(max.x(), max.y(), min.z()), matrix * Vector3(min.x(), max.y(), min.z())};
}

} // namespace

void FenOglGeometry::drawSolidBox(double x0, double y0, double z0, double x1, double y1, double z1)
{
    Box const box(x0, y0, z0, x1, y1, z1);
    if (box.finite()) boxFaces(box).draw(GL_QUADS);
}

void FenOglGeometry::drawWireBox(double x0, double y0, double z0, double x1, double y1, double z1)
{
    Box const box(x0, y0, z0, x1, y1, z1);
    if (!box.finite()) return;
    std::vector<Vector3> edges;
    for (int corner = 0; corner < 8; ++corner)
        for (int const axis : {1, 2, 4})
            if (!(corner & axis)) {
                edges.push_back(box.corner(corner));
                edges.push_back(box.corner(corner | axis));
            }
    fen::drawArray(GL_LINES, edges);
}

void FenOglGeometry::drawTexturedBox(unsigned texCoords, double t0, double t1, double x0, double y0,
                                     double z0, double x1, double y1, double z1)
{
    Box const box(x0, y0, z0, x1, y1, z1);
    if (!box.finite()) return;
    fen::VertexArrays arrays = boxFaces(box);
    bool const upward = z0 <= z1; // the box itself has its corners in ascending order
    float const low = float(upward ? t0 : t1), high = float(upward ? t1 : t0);
    for (Face const& face : faces)
        for (int const corner : face.corners)
            arrays.texCoords.emplace_back(texCoords > 1 && corner & 1 ? 1.0f : 0.0f, corner & 4 ? high : low);
    arrays.draw(GL_QUADS);
}

void FenOglGeometry::drawSectionSolidTriangleStrip(unsigned count, bool alongZ, double base, double x0,
                                                   double y0, double z0, double x1, double y1, double z1)
{
    Section const section{count, alongZ, base, {x0, y0, z0, 0}, {x1, y1, z1, 0}};
    if (section.finite()) fen::drawArray(GL_TRIANGLE_STRIP, section.strip(0).positions);
}

void FenOglGeometry::drawSectionTexturedTriangleStrip(unsigned count, bool alongZ, double base, double x0,
                                                      double y0, double z0, double x1, double y1, double z1,
                                                      double tBase, double t0, double t1)
{
    Section const section{count, alongZ, base, {x0, y0, z0, t0}, {x1, y1, z1, t1}};
    if (section.finite() && std::isfinite(tBase)) section.strip(tBase).draw(GL_TRIANGLE_STRIP);
}

void FenOglGeometry::drawSolidRectangle(Vector3 const& min, Vector3 const& max, Matrix const& matrix)
{
    fen::drawArray(GL_TRIANGLE_FAN, rectangle(min, max, matrix));
}

void FenOglGeometry::drawWireRectangle(Vector3 const& min, Vector3 const& max, Matrix const& matrix)
{
    fen::drawArray(GL_LINE_LOOP, rectangle(min, max, matrix));
}
