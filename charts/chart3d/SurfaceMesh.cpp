#include "charts/chart3d/SurfaceMesh.h"

#include <algorithm>
#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace fen {

namespace {

constexpr std::size_t tileSize = 8; ///< cells along each side of a tile
constexpr GLuint none = Kes::Tess::Tessellate::none;

/// The undirected edge between two vertices as one number, smaller end first.
std::uint64_t edgeKey(GLuint a, GLuint b) { return std::uint64_t(std::min(a, b)) << 32 | std::max(a, b); }

} // namespace

SurfaceMesh::SurfaceMesh(Kes::Tess::Tessellate const& tessellation,
                         std::function<Vector3(Vector3 const&)> const& place,
                         std::function<float(float)> const& ramp)
{
    std::size_t const count = tessellation.points().size();
    vertices.positions.reserve(count);
    vertices.texCoords.reserve(count);
    for (Vector3 const& point : tessellation.points()) {
        // What a hole of a grid leaves in the list is never drawn.
        bool const known = !std::isnan(point.z());
        vertices.positions.push_back(known ? place(point) : Vector3());
        vertices.texCoords.emplace_back(0.0f, known ? ramp(point.z()) : 0.0f);
    }
    if (tessellation.columns() > 0) {
        makeGrid(tessellation);
    } else {
        triangles.reserve(3 * tessellation.triangles().size());
        for (Triangle const& triangle : tessellation.triangles())
            triangles.insert(triangles.end(), triangle.begin(), triangle.end());
    }
    makeNormals();
    makeRim();
    makeTree();
}

void SurfaceMesh::makeGrid(Kes::Tess::Tessellate const& tessellation)
{
    _columns = tessellation.columns();
    _rows = tessellation.rows();
    _grid.resize(_columns * _rows);
    for (std::size_t row = 0; row < _rows; ++row)
        for (std::size_t column = 0; column < _columns; ++column)
            _grid[row * _columns + column] = tessellation.at(column, row);
    makeStrip();
}

/// All rows in one strip. Where it has to jump it runs through triangles without area; it is an even
/// number of vertices long there, so that no triangle is turned over.
void SurfaceMesh::makeStrip()
{
    strip.reserve(_rows * (2 * _columns + 2));
    bool open = false;
    auto const begin = [&](GLuint top, GLuint bottom) {
        if (!strip.empty()) {
            if (strip.size() % 2) strip.push_back(strip.back());
            strip.push_back(strip.back());
            strip.push_back(top);
        }
        strip.push_back(top);
        strip.push_back(bottom);
        open = true;
    };
    for (std::size_t row = 0; row + 1 < _rows; ++row, open = false) {
        for (std::size_t column = 0; column + 1 < _columns; ++column) {
            GLuint const a = at(column, row), b = at(column + 1, row);
            GLuint const c = at(column + 1, row + 1), d = at(column, row + 1);
            if (a != none && b != none && c != none && d != none) {
                if (!open) begin(d, a);
                strip.push_back(c);
                strip.push_back(b);
                continue;
            }
            open = false;
            Triangle found[2];
            if (cell(column, row, found) == 0) continue;
            begin(found[0][0], found[0][1]);
            strip.push_back(found[0][2]);
            open = false;
        }
    }
}

/// The diagonal is the strip's, so that all of this agrees.
unsigned SurfaceMesh::cell(std::size_t column, std::size_t row, Triangle found[2]) const
{
    GLuint const corners[4] = {at(column, row), at(column + 1, row), at(column + 1, row + 1),
                               at(column, row + 1)};
    auto const holes = std::count(corners, corners + 4, none);
    if (holes > 1) return 0;
    if (holes == 1) {
        auto const hole = std::size_t(std::find(corners, corners + 4, none) - corners);
        found[0] = {corners[(hole + 1) % 4], corners[(hole + 2) % 4], corners[(hole + 3) % 4]};
        return 1;
    }
    found[0] = {corners[0], corners[2], corners[3]};
    found[1] = {corners[0], corners[1], corners[2]};
    return 2;
}

std::size_t SurfaceMesh::tilesAcross() const { return (_columns - 1 + tileSize - 1) / tileSize; }

template <class Visit>
void SurfaceMesh::forEachInTile(std::size_t tile, Visit const& visit) const
{
    std::size_t const left = tile % tilesAcross() * tileSize, low = tile / tilesAcross() * tileSize;
    Triangle found[2];
    for (std::size_t row = low; row < std::min(low + tileSize, _rows - 1); ++row)
        for (std::size_t column = left; column < std::min(left + tileSize, _columns - 1); ++column)
            for (unsigned i = 0, count = cell(column, row, found); i < count; ++i) visit(found[i]);
}

template <class Visit>
void SurfaceMesh::forEachTriangle(Visit const& visit) const
{
    Triangle found[2];
    for (std::size_t row = 0; row + 1 < _rows; ++row)
        for (std::size_t column = 0; column + 1 < _columns; ++column)
            for (unsigned i = 0, count = cell(column, row, found); i < count; ++i) visit(found[i]);
    if (_columns == 0)
        for (std::size_t i = 0; i + 2 < triangles.size(); i += 3)
            visit(Triangle{triangles[i], triangles[i + 1], triangles[i + 2]});
}

void SurfaceMesh::listTriangles()
{
    if (_columns == 0 || !triangles.empty()) return;
    std::vector<GLuint> listed;
    listed.reserve(6 * (_columns - 1) * (_rows - 1));
    forEachTriangle(
        [&](Triangle const& triangle) { listed.insert(listed.end(), triangle.begin(), triangle.end()); });
    triangles = std::move(listed);
}

/// The mean of the triangles around a vertex, by their areas.
void SurfaceMesh::makeNormals()
{
    std::vector<Vector3> const& places = vertices.positions;
    std::vector<Vector3>& normals = vertices.normals;
    normals.assign(places.size(), Vector3());
    forEachTriangle([&](Triangle const& t) {
        Vector3 const area = Vector3::xProduct(places[t[1]] - places[t[0]], places[t[2]] - places[t[0]]);
        for (GLuint const corner : t) normals[corner] += area;
    });
    for (Vector3& normal : normals) {
        float const length = std::sqrt(Vector3::dot(normal, normal));
        normal = length > 0 && std::isfinite(length) ? normal / length : Vector3::Z;
    }
}

/// The edges of one triangle only.
void SurfaceMesh::makeRim()
{
    bool const holes = std::find(_grid.begin(), _grid.end(), none) != _grid.end();
    if (_columns > 0 && !holes) {
        auto const add = [&](GLuint a, GLuint b) { rim.insert(rim.end(), {a, b}); };
        for (std::size_t i = 0; i + 1 < _columns; ++i) {
            add(at(i, 0), at(i + 1, 0));
            add(at(i, _rows - 1), at(i + 1, _rows - 1));
        }
        for (std::size_t i = 0; i + 1 < _rows; ++i) {
            add(at(0, i), at(0, i + 1));
            add(at(_columns - 1, i), at(_columns - 1, i + 1));
        }
        return;
    }
    std::vector<std::uint64_t> edges;
    forEachTriangle([&](Triangle const& t) {
        for (std::size_t i = 0; i < 3; ++i) edges.push_back(edgeKey(t[i], t[(i + 1) % 3]));
    });
    std::sort(edges.begin(), edges.end());
    for (std::size_t i = 0; i < edges.size();) {
        std::size_t const first = i;
        while (i < edges.size() && edges[i] == edges[first]) ++i;
        if (i - first == 1) rim.insert(rim.end(), {GLuint(edges[first] >> 32), GLuint(edges[first])});
    }
}

void SurfaceMesh::makeTree()
{
    std::vector<Vector3> const& places = vertices.positions;
    if (_columns == 0) {
        _tree = BoxTree(triangles.size() / 3, [&](std::size_t i) {
            BoundingBox box;
            for (std::size_t k = 0; k < 3; ++k) box.insert(places[triangles[3 * i + k]]);
            return box;
        });
        return;
    }
    std::size_t const tiles = tilesAcross() * ((_rows - 1 + tileSize - 1) / tileSize);
    _tree = BoxTree(
        tiles,
        [&](std::size_t tile) {
            BoundingBox box;
            std::size_t const left = tile % tilesAcross() * tileSize, low = tile / tilesAcross() * tileSize;
            for (std::size_t row = low; row <= std::min(low + tileSize, _rows - 1); ++row)
                for (std::size_t column = left; column <= std::min(left + tileSize, _columns - 1); ++column)
                    if (at(column, row) != none) box.insert(places[at(column, row)]);
            return box;
        },
        1);
}

std::vector<GLuint> SurfaceMesh::trianglesIn(PickVolume const& volume) const
{
    std::vector<GLuint> found;
    auto const add = [&](Triangle const& triangle) {
        BoundingBox box;
        for (GLuint const corner : triangle) box.insert(vertices.positions[corner]);
        if (volume.mayMeet(box)) found.insert(found.end(), triangle.begin(), triangle.end());
    };
    _tree.visit(volume, [&](std::size_t i) {
        if (_columns > 0)
            forEachInTile(i, add);
        else
            add({triangles[3 * i], triangles[3 * i + 1], triangles[3 * i + 2]});
    });
    return found;
}

std::optional<Vector3> SurfaceMesh::firstMeeting(PickRay const& ray, std::vector<GLuint> const& some) const
{
    double nearest = 2;
    for (std::size_t i = 0; i + 2 < some.size(); i += 3) {
        double const share = ray.meets(vertices.positions[some[i]], vertices.positions[some[i + 1]],
                                       vertices.positions[some[i + 2]]);
        if (share >= 0 && share < nearest) nearest = share;
    }
    if (nearest > 1) return std::nullopt;
    return ray.at(nearest);
}

} // namespace fen
