#include "host/scene/PlanePainter.h"

#include "host/scene/PlaneSection.h"

#include "framework/VisList.h"
#include "scene/VisPlane.h"
#include "services/math/BoundingBox.h"
#include "services/math/Finite.h"
#include "services/math/Plane.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>
#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Plane;
using Kes::Math::Vector3;

namespace {

/// With a normal of length 1; false when the numbers describe no plane.
bool planeOf(FenVisPlane const& node, Plane& plane)
{
    plane = Plane(node.position.get(), node.normal.get()).normalize();
    return Kes::Math::finite(plane.point()) && Kes::Math::finite(plane.normal())
        && plane.normal().length() > 0.5f;
}

/// Lines and outlines lie a little before the area that they are on.
void drawLines(GLenum kind, std::vector<Vector3> const& points, QColor const& color)
{
    glColor(color);
    fen::drawArray(kind, points);
}

void drawSolid(FenVisPlane const& node, fen::PlaneSection const& section)
{
    QColor color = node.solidColor.get();
    double const clear = node.solidTransparency.get();
    color.setAlphaF(color.alphaF() * float(1 - std::clamp(clear, 0.0, 1.0)));
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1, 1);
    drawLines(GL_TRIANGLE_FAN, section.corners, color);
}

void drawPlane(FenVisPlane const& node, fen::PlaneSection const& section, Vector3 const& normal)
{
    if (node.solid.get()) drawSolid(node, section);
    if (node.grid.get()) {
        drawLines(GL_LINES, section.grid(node.gridMinor.get()), node.gridMinorColor.get());
        drawLines(GL_LINES, section.grid(node.gridMajor.get()), node.gridMajorColor.get());
    }
    Vector3 const center = section.center();
    if (node.wireframe.get()) {
        std::vector<Vector3> spokes;
        for (Vector3 const& corner : section.corners) spokes.insert(spokes.end(), {center, corner});
        drawLines(GL_LINES, spokes, node.wireframeColor.get());
    }
    if (node.polygon.get()) drawLines(GL_LINE_LOOP, section.corners, node.polygonColor.get());
    if (!node.vector.get()) return;
    float const length = float(node.vectorScale.get());
    constexpr float shaft = 0.75f, radius = 0.08f; // of the length
    glColor(node.vectorColor.get());
    FenOglGeometry::drawSolidCylinder(center, center + normal * (length * shaft), double(radius * length) / 3,
                                      double(radius * length) / 3, 0, 0);
    FenOglGeometry::drawSolidCone(center + normal * (length * shaft), center + normal * length,
                                  double(radius * length));
}

/// Where planes are shown: the box of the scene and some air around it.
BoundingBox stage(BoundingBox const& box)
{
    Vector3 const one(1, 1, 1);
    if (!box.defined()) return BoundingBox(-one, one);
    constexpr float air = 0.03f; // no more: the depth range of the pass ends soon behind the box
    Vector3 const extent = box.extent();
    Vector3 const margin = one * (air * std::max({extent.x(), extent.y(), extent.z()}));
    return BoundingBox(box.min() - margin, box.max() + margin);
}

bool translucent(FenVisPlane const& node) { return node.solid.get() && node.solidTransparency.get() > 0; }

} // namespace

void FenPlanePainter::draw(FenVisList const& nodes, Order order,
                           FenVisualization::DrawContext const& context) const
{
    if (!enabled) return;
    for (QString const& name : nodes.listPlane()) {
        auto const* const node = dynamic_cast<FenVisPlane const*>(nodes.at(name));
        Plane plane;
        if (!node || !node->enabled.get() || translucent(*node) != (order == Translucent)) continue;
        if ((context.flags & FenVisualization::ThumbnailFlag) && !node->thumbnail.get()) continue;
        if (!planeOf(*node, plane)) continue;
        fen::PlaneSection const section(stage(nodes.boundingBox()), plane);
        if (section.empty()) continue;
        fen::FlatScope const flat;
        glEnable(GL_DEPTH_TEST);
        if (order == Translucent) glDepthMask(GL_FALSE);
        drawPlane(*node, section, plane.normal());
    }
}

fen::ClipScope::ClipScope(FenVisualization const& node)
{
    auto const* const list = dynamic_cast<FenVisList const*>(node.parent());
    GLint most = 0; // stays so without a context
    glGetIntegerv(GL_MAX_CLIP_PLANES, &most);
    if (!list) return;
    for (QString const& name : list->listPlane()) {
        auto const* const cut = dynamic_cast<FenVisPlane const*>(list->at(name));
        Plane plane;
        if (_planes >= unsigned(most)) break;
        if (!cut || !cut->enabled.get() || !cut->clip.get() || !cut->clipObjects.get().contains(node.name()))
            continue;
        if (!planeOf(*cut, plane)) continue;
        Vector3 const n = plane.normal();
        // What the normal points to goes: what stays is where this is positive.
        GLdouble const stays[] = {-double(n.x()), -double(n.y()), -double(n.z()), -plane.distance(Vector3())};
        glClipPlane(GL_CLIP_PLANE0 + _planes, stays);
        glEnable(GL_CLIP_PLANE0 + _planes++);
    }
}

fen::ClipScope::~ClipScope()
{
    for (unsigned i = 0; i < _planes; ++i) glDisable(GL_CLIP_PLANE0 + i);
}
