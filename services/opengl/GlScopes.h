#pragma once

#include "Gl.h"
#include "OglDisplayList.h"

namespace fen {

/// Saves the attribute groups of `mask` and restores them at scope end. The
/// attribute stack may be only 16 deep: at most one of these per routine.
class AttribScope {
public:
    explicit AttribScope(GLbitfield mask) { glPushAttrib(mask); }
    ~AttribScope() { glPopAttrib(); }
    AttribScope(AttribScope const&) = delete;
    AttribScope& operator=(AttribScope const&) = delete;
};

/// Selects the matrix of `mode` and saves it; restores it at scope end and
/// leaves the matrix mode at GL_MODELVIEW.
class MatrixScope {
public:
    explicit MatrixScope(GLenum mode)
        : _mode(mode)
    {
        glMatrixMode(_mode);
        glPushMatrix();
    }
    ~MatrixScope()
    {
        glMatrixMode(_mode);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }
    MatrixScope(MatrixScope const&) = delete;
    MatrixScope& operator=(MatrixScope const&) = delete;

private:
    GLenum _mode;
};

/// Records what follows into a display list (GL_COMPILE).
class ListScope {
public:
    explicit ListScope(FenOglDisplayList& list)
        : _list(list)
    {
        _list.begin(GL_COMPILE);
    }
    ~ListScope() { _list.end(); }
    ListScope(ListScope const&) = delete;
    ListScope& operator=(ListScope const&) = delete;

private:
    FenOglDisplayList& _list;
};

} // namespace fen
