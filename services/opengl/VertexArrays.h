#pragma once

#include "../logging/Export.h"
#include "../math/Vector2.h"
#include "../math/Vector3.h"
#include "Gl.h"

#include <QColor>

#include <array>
#include <vector>

namespace fen {

/// Colour of one vertex, four bytes as OpenGL reads them.
struct Rgba {
    Rgba() = default;
    Rgba(QColor const& color)
        : red(GLubyte(color.red()))
        , green(GLubyte(color.green()))
        , blue(GLubyte(color.blue()))
        , alpha(GLubyte(color.alpha()))
    {
    }
    bool operator==(Rgba const&) const = default;

    GLubyte red = 0, green = 0, blue = 0, alpha = 255;
};

/// Draws the vertices as one primitive of `kind` (GL_POINTS, GL_LINE_STRIP, ...)
/// from client memory, in the current colour and state; nothing for no vertices.
/// For drawing, recording into lists and picking alike. Optional arrays have
/// one entry per vertex; one of another length is left out. Client state is
/// as before afterwards.
FENVIS_EXPORT void drawArray(GLenum kind, std::vector<Kes::Math::Vector2> const& points);
FENVIS_EXPORT void drawArray(GLenum kind, std::vector<Kes::Math::Vector3> const& points);
/// One colour per vertex. The current colour is undefined afterwards.
FENVIS_EXPORT void drawArray(GLenum kind, std::vector<Kes::Math::Vector2> const& points,
                             std::vector<Rgba> const& colors);
FENVIS_EXPORT void drawArray(GLenum kind, std::vector<Kes::Math::Vector3> const& points,
                             std::vector<Rgba> const& colors);
/// One texture coordinate pair (s, t) per vertex.
FENVIS_EXPORT void drawTexturedArray(GLenum kind, std::vector<Kes::Math::Vector2> const& points,
                                     std::vector<Kes::Math::Vector2> const& texCoords);
FENVIS_EXPORT void drawTexturedArray(GLenum kind, std::vector<Kes::Math::Vector3> const& points,
                                     std::vector<Kes::Math::Vector2> const& texCoords);

/// Texture coordinates (s, t, r, q): between the vertices each is interpolated before s and t are divided by
/// q.
FENVIS_EXPORT void drawProjectedArray(GLenum kind, std::vector<Kes::Math::Vector2> const& points,
                                      std::vector<std::array<float, 4>> const& texCoords);

/// The `count` vertices from `first` on, without copying; what lies beyond the end is left out.
FENVIS_EXPORT void drawArray(GLenum kind, std::vector<Kes::Math::Vector2> const& points, std::size_t first,
                             std::size_t count);
FENVIS_EXPORT void drawTexturedArray(GLenum kind, std::vector<Kes::Math::Vector2> const& points,
                                     std::vector<Kes::Math::Vector2> const& texCoords, std::size_t first,
                                     std::size_t count);

/// Several primitives of one array, each from `firsts[i]` on `counts[i]` vertices, all within the array.
/// @param texCoords  one pair per vertex, or null
FENVIS_EXPORT void drawPieces(GLenum kind, std::vector<Kes::Math::Vector2> const& points,
                              std::vector<Kes::Math::Vector2> const* texCoords,
                              std::vector<GLint> const& firsts, std::vector<GLsizei> const& counts);

/// A mesh under construction: positions and any of the other arrays.
struct FENVIS_EXPORT VertexArrays {
    std::vector<Kes::Math::Vector3> positions;
    std::vector<Kes::Math::Vector3> normals;
    std::vector<Kes::Math::Vector2> texCoords;
    std::vector<Rgba> colors;
    std::vector<GLboolean> edgeFlags;

    void add(Kes::Math::Vector3 const& position) { positions.push_back(position); }
    void add(Kes::Math::Vector3 const& position, Kes::Math::Vector3 const& normal);
    void add(Kes::Math::Vector3 const& position, Kes::Math::Vector2 const& texCoord);
    void add(Kes::Math::Vector3 const& position, Rgba const& color);
    void clear();
    /// As the free functions above.
    void draw(GLenum kind) const;
    /// The same through an index per vertex drawn, every one below the number of positions.
    void draw(GLenum kind, std::vector<GLuint> const& indices) const;
};

/// Outline (GL_LINE_LOOP) or area of the rectangle between two corners [px].
FENVIS_EXPORT void drawRectangle(float x0, float y0, float x1, float y1);
FENVIS_EXPORT void drawFrame(float x0, float y0, float x1, float y1);
/// One line segment.
FENVIS_EXPORT void drawLine(Kes::Math::Vector2 const& from, Kes::Math::Vector2 const& to);
FENVIS_EXPORT void drawLine(Kes::Math::Vector3 const& from, Kes::Math::Vector3 const& to);

} // namespace fen
