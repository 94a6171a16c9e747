#include "framework/UpdateContext.h"

#include "services/math/BoundingBox.h"
#include "services/opengl/GlWrappers.h"

#include "services/opengl/Gl.h"

#include <algorithm>
#include <limits>

namespace {

/// Position relative to the child's origin along one axis [px], of one relative to the parent's.
int relative(int position, int parentOrigin, int origin)
{
    qint64 const moved = qint64(position) + qint64(parentOrigin) - qint64(origin);
    return int(std::clamp<qint64>(moved, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

// The pushes stand in the constructors and the pops in the destructor, in this order.

FenVisualization::UpdateDrawContext::UpdateDrawContext(DrawContext const& parent, FenOglViewport const& own)
    : DrawContext(parent)
{
    if (!enterViewport(own)) return;
    projection = Kes::Math::Matrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    gluOrtho2D(own);
    modelView = glGetModelViewMatrix();
}

FenVisualization::UpdateDrawContext::UpdateDrawContext(DrawContext const& parent, FenOglViewport const& own,
                                                       Kes::Math::BoundingBox const& box)
    : DrawContext(parent)
{
    if (!enterViewport(own)) return;
    glOrtho(own, box, modelView);
    projection = glGetProjectionMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
}

FenVisualization::UpdateDrawContext::~UpdateDrawContext()
{
    if (viewport.valid()) {
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
        glPopMatrix();
    }
    glPopAttrib();
}

bool FenVisualization::UpdateDrawContext::enterViewport(FenOglViewport const& own)
{
    glPushAttrib(GL_VIEWPORT_BIT);
    viewport = own;
    if (!own.valid()) return false;
    glViewport(own);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    return true;
}

FenVisualization::UpdateSelectContext::UpdateSelectContext(SelectContext const& parent,
                                                           FenOglViewport const& own)
    : SelectContext(parent)
    , _draw(parent, own)
{
    takeOver(parent.viewport);
}

FenVisualization::UpdateSelectContext::UpdateSelectContext(SelectContext const& parent,
                                                           FenOglViewport const& own,
                                                           Kes::Math::BoundingBox const& box)
    : SelectContext(parent)
    , _draw(parent, own, box)
{
    takeOver(parent.viewport);
}

FenVisualization::UpdateSelectContext::~UpdateSelectContext() = default;

void FenVisualization::UpdateSelectContext::takeOver(FenOglViewport const& parent)
{
    viewport = _draw.viewport;
    modelView = _draw.modelView;
    projection = _draw.projection;
    point =
        QPoint(relative(point.x(), parent.x(), viewport.x()), relative(point.y(), parent.y(), viewport.y()));
    _inside = pointInside();
}
