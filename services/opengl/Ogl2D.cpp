#include "services/opengl/Ogl2D.h"

#include "services/opengl/GlWrappers.h"

FenOgl2D::FenOgl2D(FenOglViewport const& viewport)
    : _viewport(viewport)
{
}

FenOgl2D::~FenOgl2D() { end(); }

// The brackets stand in two functions here, because the callers ask for it.
void FenOgl2D::begin()
{
    if (_begun) return;
    _begun = true;
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluOrtho2D(_viewport);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
}

void FenOgl2D::end()
{
    if (!_begun) return;
    _begun = false;
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}
