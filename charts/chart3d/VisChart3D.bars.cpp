#include "charts/chart3d/VisChart3D.h"
#include "charts/chart3d/Stroke3D.h"
#include "charts/chart3d/VisChart3D.parts.h"
#include "charts/style/Fill.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisPickScope.h"
#include "picking/select/VisWidePick.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/PixelRatio.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

constexpr unsigned corners = 8;

/// Each face ends in a corner of its own, whose normal is the normal of the face: drawn with flat shading
/// a box needs no corner twice. Corner by three bits: x, y, z at their high ends.
constexpr unsigned faces[6][4] = {{4, 6, 2, 0}, {7, 5, 1, 3}, {5, 4, 0, 1},
                                  {7, 3, 2, 6}, {3, 1, 0, 2}, {5, 7, 6, 4}};
constexpr float normals[corners][3] = {{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}, {1, 0, 0},
                                       {0, 0, 1},  {0, 0, 1},  {0, 1, 0},  {0, 0, 1}};
constexpr unsigned edges[12][2] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 2}, {1, 3},
                                   {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};

bool isFinite(Vector3 const& p)
{
    return std::isfinite(p.x()) && std::isfinite(p.y()) && std::isfinite(p.z());
}

template <std::size_t Count, std::size_t Size>
void addIndices(std::vector<unsigned>& indices, unsigned const (&table)[Count][Size], unsigned bar)
{
    for (auto const& row : table)
        for (unsigned const corner : row) indices.push_back(corners * bar + corner);
}

/// Edges of all bars; of a bar without footprint just the upright line.
std::vector<unsigned> outlines(std::size_t bars, bool upright)
{
    std::vector<unsigned> indices;
    indices.reserve(bars * (upright ? 2 : 24));
    for (unsigned bar = 0; bar < bars; ++bar)
        if (upright)
            indices.insert(indices.end(), {corners * bar, corners * bar + 4});
        else
            addIndices(indices, edges, bar);
    return indices;
}

} // namespace

void FenVisChart3D::makeBars(Variable& variable) const
{
    fen::VariableStyle const& style = variable.style;
    float const factor = float(style.barWidth);
    variable.bars = {variable.barDelta * factor, variable.source.base, _scaling, _offset};
    for (unsigned i = 0; i < variable.points.size(); ++i) {
        fen::BarBox const box = variable.bars.box(variable.points[i]);
        if (!isFinite(box.base) || !isFinite(box.top)) continue;
        bool const upwards = box.base.z() <= box.top.z();
        float const base = variable.ramp(float(variable.source.base)),
                    top = variable.ramp(variable.points[i].z());
        for (unsigned k = 0; k < corners; ++k) {
            bool const high = bool(k & 4) == upwards;
            Vector3 const corner((k & 1 ? box.top : box.base).x(), (k & 2 ? box.top : box.base).y(),
                                 (high ? box.top : box.base).z());
            variable.boxes.add(corner, Vector3(normals[k][0], normals[k][1], normals[k][2]));
            variable.boxes.texCoords.emplace_back(0.0f, high ? top : base);
        }
        variable.boxOf.push_back(i);
    }
    bool const solid = variable.filled() && !(variable.bars.footprint == Vector2());
    for (unsigned bar = 0; solid && bar < variable.boxOf.size(); ++bar)
        addIndices(variable.faces, faces, bar);
    variable.translucent = solid && fen::isTranslucent(style.fill);
    variable.shapeTree = fen::BoxTree(variable.boxOf.size(), [&](std::size_t bar) {
        Kes::Math::BoundingBox box;
        for (std::size_t k = 0; k < corners; ++k) box.insert(variable.boxes.positions[corners * bar + k]);
        return box;
    });
}

void FenVisChart3D::DrawBarVariable(DrawContext const& context, Variable const& variable) const
{
    if (!variable.translucent) drawFaces(context, variable, variable.faces);
    bool const upright = variable.bars.footprint == Vector2();
    fen::drawStroke3D(variable.style, context.cache,
                      [&] { variable.boxes.draw(GL_LINES, outlines(variable.boxOf.size(), upright)); });
}

/// @return false when the variable has no bars
bool FenVisChart3D::DrawBarVariable(Pick const& pick, Variable const& variable) const
{
    if (variable.shape != fen::Shape3D::Bars) return false;
    bool const outlined = variable.outlined();
    if (variable.faces.empty() && !outlined) return true;
    bool const upright = variable.bars.footprint == Vector2();
    int const extra = outlined ? int(std::ceil(variable.style.stroke.width)) : 0;
    fen::PickVolume const volume = pick.volume(extra);
    std::vector<fen::Candidate> met;
    variable.shapeTree.visit(volume, [&](std::size_t bar) {
        Kes::Math::BoundingBox box;
        float depth = 1;
        for (std::size_t k = 0; k < corners; ++k) {
            Vector3 const& corner = variable.boxes.positions[corners * bar + k];
            box.insert(corner);
            depth = std::min(depth, volume.depthAnywhere(corner));
        }
        if (volume.mayMeet(box)) met.push_back({depth, bar});
    });
    for (fen::Candidate const& candidate : fen::nearest(std::move(met), pick.most)) {
        FenVisPickScope const name(pick.select, hitProperties(), [&] {
            Vector3 const& at = variable.points[variable.boxOf[candidate.index]];
            return FenVisHitProperty(variable.variable.get(),
                                     boost::make_shared<FenVisHitVector3Qualifier>(at.x(), at.y(), at.z()));
        });
        std::vector<unsigned> indices;
        if (!variable.faces.empty()) {
            addIndices(indices, faces, unsigned(candidate.index));
            variable.boxes.draw(GL_QUADS, indices);
        }
        if (!outlined) continue;
        indices.clear();
        if (upright)
            indices = {corners * unsigned(candidate.index), corners * unsigned(candidate.index) + 4};
        else
            addIndices(indices, edges, unsigned(candidate.index));
        FenVisWidePick const wide(pick.context, extra);
        variable.boxes.draw(GL_LINES, indices);
    }
    return true;
}
