#include "picking/select/VisWidePick.h"

#include "services/opengl/GlWrappers.h"

FenVisWidePick::FenVisWidePick(FenVisualization::SelectContext const& context, int extra)
    : _matrix(GL_PROJECTION)
{
    glLoadIdentity();
    gluPickMatrix(context.point + context.viewport.origin(), context.size + QSize(extra, extra),
                  context.viewport);
    glMultMatrix(context.projection);
}
