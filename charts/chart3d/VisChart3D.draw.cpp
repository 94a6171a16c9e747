#include "charts/chart3d/VisChart3D.h"
#include "charts/chart3d/UsabilityPlane.h"
#include "charts/chart3d/VisChart3D.handler.h"
#include "charts/chart3d/VisChart3D.parts.h"
#include "charts/style/Fill.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/hits/VisHitRecordList.h"
#include "picking/select/VisPickScope.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/PixelRatio.h"

#include <boost/pointer_cast.hpp>

#include <algorithm>
#include <cmath>
#include <numeric>

using Kes::Math::Matrix;
using Kes::Math::Vector3;

namespace {

constexpr unsigned leastHits = 100;
constexpr unsigned axisHits = 8; ///< the chart and its axes, and some to spare
/// [depth] A point of a variable wins over its own line or surface up to so far behind it.
constexpr double pointsBefore = 0.02;

/// Front faces run counter-clockwise unless the view mirrors.
void setFrontFace(Matrix const& toClip)
{
    Vector3 const x(toClip(0, 0), toClip(1, 0), toClip(2, 0)), y(toClip(0, 1), toClip(1, 1), toClip(2, 1)),
        z(toClip(0, 2), toClip(1, 2), toClip(2, 2));
    // A projection turns depth over.
    glFrontFace(Vector3::dot(Vector3::xProduct(x, y), z) > 0 ? GL_CW : GL_CCW);
}

/// Within one variable a point wins over the line or surface that it lies on.
void bringPointsForward(std::vector<FenVisHitRecord>& records, FenVisHitTable const& table)
{
    typedef FenVisHitUsabilityPlaneQualifier Plane;
    for (FenVisHitRecord const& shape : std::vector<FenVisHitRecord>(records)) {
        FenVisHitProperty const owner = table.value(shape.context());
        if (!boost::dynamic_pointer_cast<Plane>(owner.qualifier)) continue;
        for (FenVisHitRecord& record : records) {
            FenVisHitProperty const hit = table.value(record.context());
            bool const point = bool(boost::dynamic_pointer_cast<FenVisHitVector3Qualifier>(hit.qualifier));
            bool const behind =
                record.depth() >= shape.depth() && record.depth() - shape.depth() < pointsBefore;
            if (point && behind && hit.isPropertyEqual(owner))
                record = FenVisHitRecord(record.context(), shape.depth());
        }
    }
}

} // namespace

namespace fen {

std::vector<Candidate> nearest(std::vector<Candidate> all, std::size_t most)
{
    std::sort(all.begin(), all.end(), [](Candidate const& a, Candidate const& b) {
        return a.depth != b.depth ? a.depth < b.depth : a.index > b.index;
    });
    if (all.size() > most) all.resize(most);
    std::sort(all.begin(), all.end(), [](auto const& a, auto const& b) { return a.index < b.index; });
    return all;
}

std::vector<unsigned> backToFront(std::vector<unsigned> const& faces, std::size_t corners,
                                  std::vector<Vector3> const& places, Matrix const& modelView)
{
    struct Face {
        float height; // towards the eye
        unsigned first;
    };
    std::vector<Face> sorted;
    sorted.reserve(faces.size() / corners);
    Vector3 const eye(modelView(2, 0), modelView(2, 1), modelView(2, 2));
    for (std::size_t i = 0; i + corners <= faces.size(); i += corners) {
        float sum = 0;
        for (std::size_t k = 0; k < corners; ++k) sum += Vector3::dot(eye, places[faces[i + k]]);
        sorted.push_back({sum, unsigned(i)});
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](Face const& a, Face const& b) { return a.height < b.height; });
    std::vector<unsigned> indices;
    indices.reserve(faces.size());
    for (Face const& face : sorted)
        indices.insert(indices.end(), faces.begin() + face.first, faces.begin() + face.first + long(corners));
    return indices;
}

} // namespace fen

void FenVisChart3D::loadTextures(DrawContext const& context, Variable const& variable) const
{
    fen::VariableStyle const& style = variable.style;
    if (style.fill.mode == fen::FillStyle::Gradient) fen::useRamp(style.fill.ramp, context.cache);
    if (style.line == fen::VariableStyle::Line::Gradient) fen::useRamp(style.ramp, context.cache);
    if (style.symbol < 0) return;
    // Drawn once, where nobody sees it: its masks are loaded then.
    fen::pointSize(float(style.symbolSize));
    drawSymbols(context, variable, {});
}

void FenVisChart3D::DrawVariable(DrawContext const& context, Variable const& variable) const
{
    switch (variable.shape) {
    case fen::Shape3D::Nothing:
        return;
    case fen::Shape3D::Surface:
        if (DrawSymbolVariable(context, variable)) return;
        DrawSurfaceVariable(context, variable);
        return;
    case fen::Shape3D::Line:
        DrawLineVariable(context, variable);
        break;
    case fen::Shape3D::Bars:
        DrawBarVariable(context, variable);
        break;
    }
    DrawSymbolVariable(context, variable);
}

void FenVisChart3D::draw3d(DrawContext const& context) const
{
    if (!_bounds.defined()) return;
    {
        fen::MatrixScope const matrix(GL_MODELVIEW);
        fen::AttribScope const state(0xFFFFF);
        glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
        glEnable(GL_COLOR_MATERIAL);
        glShadeModel(GL_SMOOTH);
        glDisable(GL_CULL_FACE);
        glDisable(GL_TEXTURE_2D);
        glEnable(GL_DEPTH_TEST);
        glDepthFunc(GL_LEQUAL);
        glEnable(GL_NORMALIZE);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        setFrontFace(glGetProjectionMatrix() * glGetModelViewMatrix());
        for (auto const& variable : _variables) {
            if (!variable->variable) continue;
            glDisable(GL_LIGHTING);
            DrawHighlight(context, *variable);
            if (lighting.get()) glEnable(GL_LIGHTING);
            variable->list.draw();
            // A surface hides what glows on it: there the glow is drawn once more, a little before it.
            if (variable->shape != fen::Shape3D::Surface) continue;
            glDisable(GL_LIGHTING);
            glDepthRange(0, 1 - pointsBefore);
            DrawHighlight(context, *variable);
            glDepthRange(0, 1);
        }
        drawTranslucent(context);
    }
    axes.Draw(context, &chart, FenVisOglSelectWeakPtr(), _handler->hovered());
}

/// Faces and symbols that let others shine through, the variables farthest from the eye first.
void FenVisChart3D::drawTranslucent(DrawContext const& context) const
{
    std::vector<Variable const*> waiting;
    for (auto const& variable : _variables)
        if (variable->variable && (variable->translucent || variable->translucentSymbols))
            waiting.push_back(variable.get());
    if (waiting.empty()) return;
    Matrix const view = glGetModelViewMatrix();
    auto const height = [&](Variable const* variable) {
        Kes::Math::BoundingBox box;
        for (Vector3 const& point : variable->places) box.insert(point);
        Vector3 const middle = box.center();
        return view(2, 0) * middle.x() + view(2, 1) * middle.y() + view(2, 2) * middle.z();
    };
    std::stable_sort(waiting.begin(), waiting.end(),
                     [&](Variable const* a, Variable const* b) { return height(a) < height(b); });
    glDepthMask(GL_FALSE);
    for (Variable const* const variable : waiting) {
        if (lighting.get()) glEnable(GL_LIGHTING);
        std::vector<Vector3> const& corners = variable->shape == fen::Shape3D::Bars
            ? variable->boxes.positions
            : variable->surface.vertices.positions;
        if (variable->translucent)
            drawFaces(context, *variable,
                      fen::backToFront(variable->faces, variable->shape == fen::Shape3D::Bars ? 4 : 3,
                                       corners, view));
        if (!variable->translucentSymbols) continue;
        std::vector<unsigned> all(variable->places.size());
        std::iota(all.begin(), all.end(), 0u);
        std::vector<Vector3> sorted;
        for (unsigned const i : fen::backToFront(all, 1, variable->places, view))
            sorted.push_back(variable->places[i]);
        drawSymbols(context, *variable, sorted);
    }
    glDepthMask(GL_TRUE);
}

void FenVisChart3D::DrawHighlight(DrawContext const& context, Variable const& variable) const
{
    FenVisHitProperty const& hovered = _handler->hovered();
    if (!hovered.isPropertyEqual(variable.variable.get())) return;
    auto const* const at = dynamic_cast<FenVisHitVector3Qualifier const*>(hovered.qualifier.get());
    if (!at) return;
    glDepthMask(GL_FALSE);
    highlightShape(context, variable, Vector3(float(at->x), float(at->y), float(at->z)));
    glDepthMask(GL_TRUE);
}

void FenVisChart3D::highlightShape(DrawContext const& context, Variable const& variable,
                                   Vector3 const& point) const
{
    FenOglGeometry const& geometry = context.geometry;
    float const width = variable.style.stroke.width;
    if (variable.shape == fen::Shape3D::Bars) {
        fen::BarBox const box = variable.bars.box(point);
        for (int n = geometry.highlightWidth(); n >= 0; n -= 2) {
            glColor(geometry.calcHighlightColorGradient(n));
            fen::lineWidth(width + float(n));
            FenOglGeometry::drawWireBox(double(box.base.x()), double(box.base.y()), double(box.base.z()),
                                        double(box.top.x()), double(box.top.y()), double(box.top.z()));
        }
        return;
    }
    if (variable.shape == fen::Shape3D::Line && variable.outlined())
        geometry.drawHighlightedLine(double(width), variable.line.positions);
    double const size = variable.hasSymbols() ? variable.style.symbolSize : double(width);
    geometry.drawHighlightedPoint(place(point), size + 2);
}

FenVisHitRecordList FenVisChart3D::select3d(SelectContext const& context) const
{
    if (!_bounds.defined()) return FenVisHitRecordList();
    unsigned const count = std::max(1u, unsigned(_variables.size()));
    unsigned const hits = std::max(leastHits, axisHits + 4 * count);
    FenVisHitRecordList const found =
        pick(context, hits, chart, _handler, [&](FenVisOglSelectWeakPtr select) {
            {
                FenVisPickScope const whole(select, hitProperties(),
                                            [&] { return FenVisHitProperty(&chart); });
            }
            axes.Draw(context, &chart, select, FenVisHitProperty());
            fen::AttribScope const state(0xFFFFF);
            for (GLenum const off : {GL_COLOR_MATERIAL, GL_CULL_FACE, GL_LIGHTING, GL_BLEND}) glDisable(off);
            glShadeModel(GL_FLAT);
            glEnable(GL_DEPTH_TEST);
            glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
            Pick const pass{context, select, std::size_t((hits - axisHits) / count - 1)};
            for (auto const& variable : _variables)
                if (variable->variable) selectVariable(pass, *variable);
        });
    std::vector<FenVisHitRecord> records = found.records(0);
    bringPointsForward(records, hitProperties());
    return FenVisHitRecordList(records, _handler, this, layer.get());
}

void FenVisChart3D::selectVariable(Pick const& pass, Variable const& variable) const
{
    if (variable.shape == fen::Shape3D::Line)
        DrawLineVariable(pass, variable);
    else if (variable.shape == fen::Shape3D::Surface)
        DrawSurfaceVariable(pass, variable);
    else
        DrawBarVariable(pass, variable);
    DrawSymbolVariable(pass, variable);
}
