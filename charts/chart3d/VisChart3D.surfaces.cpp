#include "charts/chart3d/VisChart3D.h"
#include "charts/chart3d/Stroke3D.h"
#include "charts/chart3d/UsabilityPlane.h"
#include "charts/chart3d/VisChart3D.parts.h"
#include "charts/style/Fill.h"
#include "picking/select/VisPickScope.h"
#include "services/math/IVariableIter.h"
#include "services/opengl/OglGeometry.h"

#include <boost/make_shared.hpp>

using Kes::Math::Vector3;

namespace {

/// [depth] Surfaces are picked a little behind where they are, so that what lies on them wins.
constexpr double behind = 0.001;

} // namespace

void FenVisChart3D::makeSurface(Variable& variable) const
{
    fen::VariableStyle& style = variable.style;
    // A surface has a colour though no fill was asked for, unless its symbols stand for it.
    bool const replaced = variable.hasSymbols() && style.line == fen::VariableStyle::Line::None;
    if (!variable.filled() && !replaced) {
        bool const colored = !variable.variable->colors.get().isEmpty();
        style.fill.mode = colored ? fen::FillStyle::Gradient : fen::FillStyle::Solid;
        if (colored) style.fill.ramp = variable.variable->colors.get();
        if (style.fill.color.alpha() == 0) style.fill.color = style.stroke.color;
    }
    Kes::Math::BoundingBox box;
    for (Vector3 const& point : variable.points) box.insert(point);
    Kes::Tess::Tessellate const tessellation(*variable.variable->iter(), box);
    variable.surface = fen::SurfaceMesh(
        tessellation, [&](Vector3 const& point) { return place(point); },
        [&](float z) { return variable.ramp(z); });
    variable.translucent = variable.filled() && fen::isTranslucent(style.fill);
    if (variable.translucent) variable.surface.listTriangles();
    variable.faces = variable.translucent || variable.surface.strip.empty() ? variable.surface.triangles
                                                                            : variable.surface.strip;
}

/// Faces of a variable in the order of some indices, by the variable's fill.
void FenVisChart3D::drawFaces(DrawContext const& context, Variable const& variable,
                              std::vector<unsigned> const& indices)
{
    if (indices.empty()) return;
    bool const bars = variable.shape == fen::Shape3D::Bars;
    // Whole bodies show no inner sides.
    if (bars && !variable.translucent) glEnable(GL_CULL_FACE);
    glShadeModel(bars ? GL_FLAT : GL_SMOOTH);
    if (!bars) glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
    // Lines on faces are to be seen whole.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1, 1);
    bool const strip = !bars && !variable.translucent && !variable.surface.strip.empty();
    GLenum const kind = bars ? GL_QUADS : strip ? GL_TRIANGLE_STRIP : GL_TRIANGLES;
    fen::VertexArrays const& vertices = bars ? variable.boxes : variable.surface.vertices;
    fen::drawFill(variable.style.fill, context.cache, [&](bool) { vertices.draw(kind, indices); });
    glDisable(GL_POLYGON_OFFSET_FILL);
    if (!bars) glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_FALSE);
    glShadeModel(GL_SMOOTH);
    if (bars && !variable.translucent) glDisable(GL_CULL_FACE);
}

void FenVisChart3D::DrawSurfaceVariable(DrawContext const& context, Variable const& variable) const
{
    fen::SurfaceMesh const& surface = variable.surface;
    if (!variable.translucent) drawFaces(context, variable, variable.faces);
    fen::drawStroke3D(variable.style, context.cache, [&] { surface.vertices.draw(GL_LINES, surface.rim); });
}

void FenVisChart3D::DrawSurfaceVariable(Pick const& pick, Variable const& variable) const
{
    bool const outlined = variable.outlined();
    if (!variable.filled() && !outlined) return;
    std::vector<unsigned> const near = variable.surface.trianglesIn(pick.volume(0));
    if (near.empty()) return;
    SelectContext const& context = pick.context;
    FenVisPickScope const name(pick.select, hitProperties(), [&] {
        auto const plane = makePlane(pick);
        fen::PickRay const ray(context.point, context.viewport, context.modelView, context.projection);
        plane->met = variable.surface.firstMeeting(ray, near);
        return FenVisHitProperty(variable.variable.get(), plane);
    });
    glDepthRange(behind, 1.0);
    variable.surface.vertices.draw(GL_TRIANGLES, near);
    glDepthRange(0.0, 1.0);
}

boost::shared_ptr<FenVisHitUsabilityPlaneQualifier> FenVisChart3D::makePlane(Pick const& pick) const
{
    auto const plane = boost::make_shared<FenVisHitUsabilityPlaneQualifier>();
    plane->modelView = pick.context.modelView;
    plane->projection = pick.context.projection;
    plane->viewport = pick.context.viewport;
    plane->mouse = pick.context.point;
    plane->scaling = _scaling;
    plane->offset = _offset;
    return plane;
}
