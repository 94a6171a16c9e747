#pragma once

#include "charts/chart3d/BoxTree.h"
#include "services/math/Tessellate.h"
#include "services/opengl/VertexArrays.h"

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace fen {

/// A surface over sample points, ready for vertex arrays: each sample once, with its normal.
struct SurfaceMesh {
    /// [scene] positions and normals, texture coordinate t along the colour ramp
    VertexArrays vertices;
    /// A grid as one strip, row by row; empty for other surfaces.
    std::vector<GLuint> strip;
    /// Corners of all triangles, three after three; of a grid only after `listTriangles`.
    std::vector<GLuint> triangles;
    /// Its edges: the outline and around holes, two ends after two ends.
    std::vector<GLuint> rim;

    SurfaceMesh() = default;
    /// @param place  [data] to [scene]
    /// @param ramp   [data] z to its place on the colour ramp, 0 to 1
    SurfaceMesh(Kes::Tess::Tessellate const& tessellation,
                std::function<Kes::Math::Vector3(Kes::Math::Vector3 const&)> const& place,
                std::function<float(float)> const& ramp);

    bool empty() const { return vertices.positions.empty(); }
    /// Makes `triangles` of a grid, for whoever draws them in an order of their own.
    void listTriangles();
    /// Corners of the triangles that may lie in the volume.
    std::vector<GLuint> trianglesIn(PickVolume const& volume) const;
    /// [scene] where a ray first meets one of some triangles.
    std::optional<Kes::Math::Vector3> firstMeeting(PickRay const& ray, std::vector<GLuint> const& some) const;

private:
    typedef Kes::Tess::Tessellate::Triangle Triangle;
    typedef Kes::Math::Vector3 Vector3;

    void makeGrid(Kes::Tess::Tessellate const& tessellation);
    void makeStrip();
    void makeNormals();
    void makeRim();
    void makeTree();
    GLuint at(std::size_t column, std::size_t row) const { return _grid[row * _columns + column]; }
    unsigned cell(std::size_t column, std::size_t row, Triangle found[2]) const;
    template <class Visit>
    void forEachTriangle(Visit const& visit) const;
    template <class Visit>
    void forEachInTile(std::size_t tile, Visit const& visit) const;
    std::size_t tilesAcross() const;

    std::size_t _columns = 0, _rows = 0; // of a grid
    std::vector<GLuint> _grid;
    BoxTree _tree; // of the tiles of a grid, else of the triangles
};

} // namespace fen
