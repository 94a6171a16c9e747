#include "services/opengl/VertexArrays.h"

#include <algorithm>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace fen {

static_assert(sizeof(Vector2) == 2 * sizeof(float) && sizeof(Vector3) == 3 * sizeof(float)
                  && sizeof(Rgba) == 4,
              "vertex arrays are read as plain numbers");

namespace {

/// Saves the client state and starts from client memory with every array off.
class ClientScope {
public:
    ClientScope()
    {
        glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
        glClientActiveTexture(GL_TEXTURE0);
        for (GLenum const array :
             {GL_NORMAL_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY, GL_EDGE_FLAG_ARRAY, GL_INDEX_ARRAY})
            glDisableClientState(array);
        glEnableClientState(GL_VERTEX_ARRAY);
    }
    ~ClientScope() { glPopClientAttrib(); }
    ClientScope(ClientScope const&) = delete;
    ClientScope& operator=(ClientScope const&) = delete;
};

void usePositions(std::vector<Vector2> const& points) { glVertexPointer(2, GL_FLOAT, 0, points.data()); }
void usePositions(std::vector<Vector3> const& points) { glVertexPointer(3, GL_FLOAT, 0, points.data()); }

void useColors(std::vector<Rgba> const& colors)
{
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, colors.data());
}

void useTexCoords(std::vector<Vector2> const& texCoords)
{
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(2, GL_FLOAT, 0, texCoords.data());
}

template <class Point>
void drawPlain(GLenum kind, std::vector<Point> const& points)
{
    if (points.empty()) return;
    ClientScope const scope;
    usePositions(points);
    glDrawArrays(kind, 0, GLsizei(points.size()));
}

template <class Point>
void drawColored(GLenum kind, std::vector<Point> const& points, std::vector<Rgba> const& colors)
{
    if (points.empty()) return;
    ClientScope const scope;
    usePositions(points);
    if (colors.size() == points.size()) useColors(colors);
    glDrawArrays(kind, 0, GLsizei(points.size()));
}

template <class Point>
void drawTextured(GLenum kind, std::vector<Point> const& points, std::vector<Vector2> const& texCoords)
{
    if (points.empty()) return;
    ClientScope const scope;
    usePositions(points);
    if (texCoords.size() == points.size()) useTexCoords(texCoords);
    glDrawArrays(kind, 0, GLsizei(points.size()));
}

void useArrays(VertexArrays const& arrays)
{
    size_t const count = arrays.positions.size();
    usePositions(arrays.positions);
    if (arrays.normals.size() == count) {
        glEnableClientState(GL_NORMAL_ARRAY);
        glNormalPointer(GL_FLOAT, 0, arrays.normals.data());
    }
    if (arrays.texCoords.size() == count) useTexCoords(arrays.texCoords);
    if (arrays.colors.size() == count) useColors(arrays.colors);
    if (arrays.edgeFlags.size() == count) {
        glEnableClientState(GL_EDGE_FLAG_ARRAY);
        glEdgeFlagPointer(0, arrays.edgeFlags.data());
    }
}

std::vector<Vector2> corners(float x0, float y0, float x1, float y1)
{
    return {Vector2(x0, y0), Vector2(x1, y0), Vector2(x1, y1), Vector2(x0, y1)};
}

} // namespace

void drawArray(GLenum kind, std::vector<Vector2> const& points) { drawPlain(kind, points); }
void drawArray(GLenum kind, std::vector<Vector3> const& points) { drawPlain(kind, points); }

void drawArray(GLenum kind, std::vector<Vector2> const& points, std::vector<Rgba> const& colors)
{
    drawColored(kind, points, colors);
}

void drawArray(GLenum kind, std::vector<Vector3> const& points, std::vector<Rgba> const& colors)
{
    drawColored(kind, points, colors);
}

void drawTexturedArray(GLenum kind, std::vector<Vector2> const& points, std::vector<Vector2> const& texCoords)
{
    drawTextured(kind, points, texCoords);
}

void drawTexturedArray(GLenum kind, std::vector<Vector3> const& points, std::vector<Vector2> const& texCoords)
{
    drawTextured(kind, points, texCoords);
}

void drawProjectedArray(GLenum kind, std::vector<Vector2> const& points,
                        std::vector<std::array<float, 4>> const& texCoords)
{
    if (points.empty() || texCoords.size() != points.size()) return;
    ClientScope const scope;
    usePositions(points);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(4, GL_FLOAT, 0, texCoords.data());
    glDrawArrays(kind, 0, GLsizei(points.size()));
}

void drawArray(GLenum kind, std::vector<Vector2> const& points, size_t first, size_t count)
{
    drawTexturedArray(kind, points, {}, first, count);
}

void drawTexturedArray(GLenum kind, std::vector<Vector2> const& points, std::vector<Vector2> const& texCoords,
                       size_t first, size_t count)
{
    if (first >= points.size() || count == 0) return;
    ClientScope const scope;
    usePositions(points);
    if (texCoords.size() == points.size()) useTexCoords(texCoords);
    glDrawArrays(kind, GLint(first), GLsizei(std::min(count, points.size() - first)));
}

void drawPieces(GLenum kind, std::vector<Vector2> const& points, std::vector<Vector2> const* texCoords,
                std::vector<GLint> const& firsts, std::vector<GLsizei> const& counts)
{
    if (points.empty() || firsts.empty() || firsts.size() != counts.size()) return;
    ClientScope const scope;
    usePositions(points);
    if (texCoords && texCoords->size() == points.size()) useTexCoords(*texCoords);
    glMultiDrawArrays(kind, firsts.data(), counts.data(), GLsizei(firsts.size()));
}

void VertexArrays::add(Vector3 const& position, Vector3 const& normal)
{
    positions.push_back(position);
    normals.push_back(normal);
}

void VertexArrays::add(Vector3 const& position, Vector2 const& texCoord)
{
    positions.push_back(position);
    texCoords.push_back(texCoord);
}

void VertexArrays::add(Vector3 const& position, Rgba const& color)
{
    positions.push_back(position);
    colors.push_back(color);
}

void VertexArrays::clear() { *this = VertexArrays(); }

void VertexArrays::draw(GLenum kind) const
{
    if (positions.empty()) return;
    ClientScope const scope;
    useArrays(*this);
    glDrawArrays(kind, 0, GLsizei(positions.size()));
}

void VertexArrays::draw(GLenum kind, std::vector<GLuint> const& indices) const
{
    if (positions.empty() || indices.empty()) return;
    ClientScope const scope;
    useArrays(*this);
    glDrawElements(kind, GLsizei(indices.size()), GL_UNSIGNED_INT, indices.data());
}

void drawRectangle(float x0, float y0, float x1, float y1)
{
    drawArray(GL_TRIANGLE_FAN, corners(x0, y0, x1, y1));
}

void drawFrame(float x0, float y0, float x1, float y1) { drawArray(GL_LINE_LOOP, corners(x0, y0, x1, y1)); }

void drawLine(Vector2 const& from, Vector2 const& to) { drawArray(GL_LINES, std::vector<Vector2>{from, to}); }
void drawLine(Vector3 const& from, Vector3 const& to) { drawArray(GL_LINES, std::vector<Vector3>{from, to}); }

} // namespace fen
