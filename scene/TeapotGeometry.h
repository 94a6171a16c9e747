#pragma once

#include "services/math/BoundingBox.h"
#include "services/opengl/VertexArrays.h"

#include <vector>

namespace fen {

/// Triangles with normals, wound counter-clockwise seen from outside.
struct TeapotMesh {
    VertexArrays vertices;
    std::vector<GLuint> triangles;
    Kes::Math::BoundingBox box;
};

/// The teapot that Martin Newell modelled at the University of Utah in 1975, as
/// bicubic Bézier patches: it stands on z = 0, its axis is the z axis, its spout
/// points along +x; it is 3.15 high and its body has a radius of 2.
/// @param steps  quads along each side of a patch, at least 1
TeapotMesh teapotMesh(int steps);

} // namespace fen
