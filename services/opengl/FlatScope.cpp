#include "services/opengl/FlatScope.h"

#include "services/opengl/PixelRatio.h"

#include <algorithm>
#include <array>

namespace fen {

namespace {

int& depth()
{
    static int scopes = 0;
    return scopes;
}

bool isIdentity(std::array<GLfloat, 16> const& matrix)
{
    for (std::size_t i = 0; i < matrix.size(); ++i)
        if (matrix[i] != (i % 5 == 0 ? 1.0f : 0.0f)) return false;
    return true;
}

} // namespace

// All groups: Mesa forgets changes of groups that an inner scope does not name.
FlatScope::FlatScope()
    : _attributes(GL_ALL_ATTRIB_BITS)
{
    if (depth()++ == 0) leaveHostBehind();
    for (GLenum const off :
         {GL_LIGHTING, GL_DEPTH_TEST, GL_ALPHA_TEST, GL_CULL_FACE, GL_TEXTURE_2D, GL_LINE_SMOOTH,
          GL_LINE_STIPPLE, GL_POINT_SMOOTH, GL_POLYGON_SMOOTH, GL_POLYGON_STIPPLE})
        glDisable(off);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    lineWidth(1);
}

FlatScope::~FlatScope()
{
    --depth();
    if (!_textureMatrix) return;
    glActiveTexture(GL_TEXTURE0);
    glMatrixMode(GL_TEXTURE);
    glPopMatrix();
}

/// Switches off what only code that is not ours leaves on.
void FlatScope::leaveHostBehind()
{
    GLint units = 1;
    glGetIntegerv(GL_MAX_TEXTURE_UNITS, &units);
    for (GLint unit = std::max<GLint>(units, 1); unit-- > 0;) { // ends with unit 0, where ours are
        glActiveTexture(GLenum(GL_TEXTURE0 + unit));
        for (GLenum const target : {GL_TEXTURE_1D, GL_TEXTURE_2D, GL_TEXTURE_3D, GL_TEXTURE_CUBE_MAP})
            glDisable(target);
    }
    for (GLenum const off : {GL_FOG, GL_COLOR_LOGIC_OP, GL_COLOR_SUM, GL_POLYGON_OFFSET_FILL,
                             GL_TEXTURE_GEN_S, GL_TEXTURE_GEN_T, GL_TEXTURE_GEN_R, GL_TEXTURE_GEN_Q})
        glDisable(off);
    constexpr GLenum planes = 6; // that every OpenGL has
    for (GLenum i = 0; i < planes; ++i) glDisable(GL_CLIP_PLANE0 + i);
    glShadeModel(GL_SMOOTH);
    glBlendEquation(GL_FUNC_ADD);
    std::array<GLfloat, 16> matrix = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    glGetFloatv(GL_TEXTURE_MATRIX, matrix.data());
    _textureMatrix = !isIdentity(matrix);
    if (!_textureMatrix) return;
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
}

void FlatScope::enableTexture(GLint environment)
{
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, environment);
}

} // namespace fen
