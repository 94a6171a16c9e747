#include "charts/chart3d/VisChart3D.h"
#include "charts/chart3d/VisChart3D.parts.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisPickScope.h"
#include "picking/select/VisWidePick.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/PixelRatio.h"
#include "services/properties/ColorMap.h"

#include <boost/make_shared.hpp>

using Kes::Math::Vector3;

/// @return true when the symbols stand for the surface
bool FenVisChart3D::DrawSymbolVariable(DrawContext const& context, Variable const& variable) const
{
    if (!variable.hasSymbols()) return false;
    if (!variable.translucentSymbols) drawSymbols(context, variable, variable.places);
    return !variable.filled() && variable.style.line == fen::VariableStyle::Line::None;
}

void FenVisChart3D::drawSymbols(DrawContext const& context, Variable const& variable,
                                std::vector<Vector3> const& places) const
{
    fen::VariableStyle const& style = variable.style;
    std::vector<fen::Rgba> colors;
    // They take the colours of their values where nothing else of the variable shows them.
    if (style.valueRamp && variable.shape == fen::Shape3D::Line) {
        FenColorMap map(variable.variable->group());
        map.colors.set(style.valueColors());
        colors.reserve(places.size());
        for (Vector3 const& at : places)
            colors.push_back(
                map.color(double(variable.ramp(FenOglGeometry::UnProject(at, _scaling, _offset).z()))));
    }
    glDisable(GL_LIGHTING);
    fen::pointSize(float(style.symbolSize));
    FenOglGeometry::drawTexturedPoints(context.cache, places, plotSymbols, unsigned(style.symbol),
                                       style.symbolColor, style.symbolOutline, variable.translucentSymbols,
                                       colors);
    fen::pointSize(1);
}

void FenVisChart3D::DrawSymbolVariable(Pick const& pick, Variable const& variable) const
{
    int const size = variable.hasSymbols() ? variable.style.symbolSize : 1;
    fen::PickVolume const volume = pick.volume(size);
    std::vector<fen::Candidate> met;
    variable.pointTree.visit(volume, [&](std::size_t i) {
        float const depth = volume.depthOf(variable.places[i]);
        if (depth >= 0) met.push_back({depth, i});
    });
    if (met.empty()) return;
    FenVisWidePick const wide(pick.context, size);
    for (fen::Candidate const& candidate : fen::nearest(std::move(met), pick.most)) {
        FenVisPickScope const name(pick.select, hitProperties(), [&] {
            Vector3 const& at = variable.points[candidate.index];
            return FenVisHitProperty(variable.variable.get(),
                                     boost::make_shared<FenVisHitVector3Qualifier>(at.x(), at.y(), at.z()));
        });
        fen::drawArray(GL_POINTS, std::vector<Vector3>{variable.places[candidate.index]});
    }
}
