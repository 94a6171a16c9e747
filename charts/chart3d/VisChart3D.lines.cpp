#include "charts/chart3d/VisChart3D.h"
#include "charts/chart3d/LineShape.h"
#include "charts/chart3d/Stroke3D.h"
#include "charts/chart3d/UsabilityPlane.h"
#include "charts/chart3d/VisChart3D.parts.h"
#include "charts/style/Fill.h"
#include "picking/select/VisPickScope.h"
#include "picking/select/VisWidePick.h"
#include "services/opengl/OglGeometry.h"

#include <boost/make_shared.hpp>

#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

bool FenVisChart3D::hasArea(Variable const& variable)
{
    return variable.filled() && !variable.fillsSymbols();
}

void FenVisChart3D::makeLine(Variable& variable) const
{
    bool const spline = variable.style.shape == fen::CurveShape::Spline;
    fen::LinePlane const plane(variable.source.mode, variable.points);
    // A filled line is cut at its base line: in data, so that colours follow the values.
    std::vector<Vector3> const line = fen::linePoints(variable.points, plane, spline);
    for (Vector3 const& point : line) {
        variable.line.add(place(point), Vector2(0, variable.ramp(point.z())));
    }
    if (hasArea(variable)) {
        for (Vector3 const& point : fen::areaStrip(line, float(variable.source.base)))
            variable.area.add(place(point), Vector2(0, variable.ramp(point.z())));
    }
    std::vector<Vector3> const& curve = variable.line.positions;
    float const base = place(Vector3(0, 0, float(variable.source.base))).z();
    variable.shapeTree = fen::BoxTree(curve.size() < 2 ? 0 : curve.size() - 1, [&](std::size_t i) {
        BoundingBox box(curve[i], curve[i]);
        box.insert(curve[i + 1]);
        if (hasArea(variable)) box.insert(curve[i].x(), curve[i].y(), base);
        return box;
    });
}

void FenVisChart3D::DrawLineVariable(DrawContext const& context, Variable const& variable) const
{
    if (!variable.area.positions.empty()) {
        glDisable(GL_LIGHTING);
        glEnable(GL_POLYGON_OFFSET_FILL);
        glPolygonOffset(1, 1);
        fen::drawFill(variable.style.fill, context.cache,
                      [&](bool) { variable.area.draw(GL_TRIANGLE_STRIP); });
        glDisable(GL_POLYGON_OFFSET_FILL);
    }
    fen::drawStroke3D(variable.style, context.cache, [&] { variable.line.draw(GL_LINE_STRIP); });
}

void FenVisChart3D::DrawLineVariable(Pick const& pick, Variable const& variable) const
{
    bool const drawn = variable.outlined();
    if (!drawn && !hasArea(variable)) return;
    int const extra = drawn ? int(std::ceil(variable.style.stroke.width)) : 0;
    fen::PickVolume const volume = pick.volume(extra);
    std::vector<Vector3> const& curve = variable.line.positions;
    float const base = place(Vector3(0, 0, float(variable.source.base))).z();
    std::vector<Vector3> pieces, areas;
    variable.shapeTree.visit(volume, [&](std::size_t i) {
        Vector3 const &a = curve[i], &b = curve[i + 1];
        pieces.insert(pieces.end(), {a, b});
        if (!hasArea(variable)) return;
        for (Vector3 const& corner : fen::areaStrip({a, b}, base)) areas.push_back(corner);
        // From strip to strip without an area between.
        areas.push_back(areas.back());
    });
    if (pieces.empty()) return;
    FenVisPickScope const name(pick.select, hitProperties(), [&] {
        auto const plane = makePlane(pick);
        fen::LinePlane const lies(variable.source.mode, variable.points);
        plane->index = lies.index;
        plane->value = double(lies.value);
        return FenVisHitProperty(variable.variable.get(), plane);
    });
    if (!areas.empty()) fen::drawArray(GL_TRIANGLE_STRIP, areas);
    if (!drawn) return;
    FenVisWidePick const wide(pick.context, extra);
    fen::drawArray(GL_LINES, pieces);
}
