#include "scene/VisShadowPlane.h"

#include "framework/VisList.h"
#include "services/properties/SiblingName.h"
#include "services/logging/Checks.h"
#include "services/math/BoundingBox.h"
#include "services/math/Finite.h"
#include "services/math/Matrix.h"
#include "services/math/Plane.h"
#include "services/opengl/Gl.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"

#include <algorithm>
#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Matrix;
using Kes::Math::Plane;
using Kes::Math::Vector3;

namespace {

// A logged text and its line mark, kept as they are.
constexpr char const* missingText = "object && \"Object to be shadowed no longer exists.\"";
constexpr char const* missingMark = "@line104";

/// Bit of the stencil buffer that marks the pixels which are darkened already.
constexpr GLuint darkened = 1;

/// Whether a sibling casts a shadow in a pass; shadow planes cast none.
bool casts(FenVisualization const* node, quint32 flags)
{
    if (!node || !node->enabled.get() || dynamic_cast<FenVisShadowPlane const*>(node)) return false;
    return !(flags & FenVisualization::ThumbnailFlag) || node->thumbnail.get();
}

/// Overlapping shadows darken a pixel once, where the framebuffer can remember it.
void darkenOnce()
{
    GLint bits = 0;
    glGetIntegerv(GL_STENCIL_BITS, &bits);
    if (bits <= 0) return;
    glStencilMask(darkened);
    glClearStencil(0);
    glClear(GL_STENCIL_BUFFER_BIT);
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(GL_NOTEQUAL, darkened, darkened);
    glStencilOp(GL_KEEP, GL_KEEP, GL_REPLACE);
}

/// State in which shadows are drawn: blended, on top of a surface that lies in the plane.
void setShadowState(QColor const& color)
{
    for (GLenum const off :
         {GL_CULL_FACE, GL_LIGHTING, GL_COLOR_MATERIAL, GL_TEXTURE_2D, GL_POLYGON_STIPPLE, GL_ALPHA_TEST})
        glDisable(off);
    glDepthMask(GL_FALSE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(-1, -1);
    darkenOnce();
    glColor(color);
}

/// Adds the shadow of a point; one at the height of the light or beyond it has none.
/// @param height  of the light over the plane, not 0
void insertShadow(BoundingBox& box, Matrix const& shadow, double height, Vector3 const& point)
{
    double const w = double(shadow(3, 0)) * point.x() + double(shadow(3, 1)) * point.y()
        + double(shadow(3, 2)) * point.z() + double(shadow(3, 3));
    constexpr double least = 1e-3; // nearer to the light's height it would be a thousand times as large
    if (!(w > least * std::abs(height))) return;
    Vector3 const fallen = shadow * point;
    if (Kes::Math::finite(fallen)) box.insert(fallen);
}

} // namespace

QString const FenVisShadowPlane::typeString = QStringLiteral("visualization.shadowPlane");

FenVisShadowPlane::FenVisShadowPlane(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , position(*this, "position", Kes::Math::Vector0, QString())
    , normal(*this, "normal", Kes::Math::VectorZ, QString())
    , light(*this, "light", Kes::Math::VectorZ, QString())
    , objects(*this, "objects", QStringList(), QString())
    , color(*this, "color", QColor(0, 0, 0, 128), QString())
{
    rename(typeString);
    setType(typeString);
}

FenVisShadowPlane::FenVisShadowPlane(FenVisShadowPlane const& other)
    : FenVisPassiveNode(other)
    , position(*this, other.position)
    , normal(*this, other.normal)
    , light(*this, other.light)
    , objects(*this, other.objects)
    , color(*this, other.color)
{
    rename(typeString);
    setType(typeString);
}

FenVisShadowPlane::~FenVisShadowPlane() = default;

void FenVisShadowPlane::onDependentRename(QString const& oldName, QString const& newName)
{
    FenVisPassiveNode::onDependentRename(oldName, newName);
    fen::followRename(objects, oldName, newName);
}

std::vector<FenVisualization const*> FenVisShadowPlane::namedSiblings() const
{
    std::vector<FenVisualization const*> siblings;
    auto const* const list = dynamic_cast<FenVisList const*>(parent());
    if (!list) return siblings;
    QStringList names = objects.get();
    names.removeDuplicates();
    for (QString const& name : names) siblings.push_back(list->at(name));
    return siblings;
}

bool FenVisShadowPlane::castsShadows() const
{
    Plane const plane = Plane(position.get(), normal.get()).normalize();
    double const height = plane.distance(light.get());
    bool const usable = Kes::Math::finite(plane.point()) && Kes::Math::finite(plane.normal())
        && Kes::Math::finite(light.get()) && plane.normal().length() > 0.5f;
    constexpr double least = 1e-6; // of the light's distance: in the plane as far as floats can tell
    return usable && std::abs(height) > least * (light.get() - plane.point()).length();
}

void FenVisShadowPlane::draw3d(DrawContext const& context) const
{
    if (context.flags & KeepLightingFlag) return;
    std::vector<FenVisualization const*> nodes = namedSiblings();
    for (FenVisualization const* const object : nodes) FENVIS_WARN_UNLESS(object, missingText, missingMark);
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(),
                               [&](FenVisualization const* node) { return !casts(node, context.flags); }),
                nodes.end());
    if (nodes.empty() || !castsShadows() || color.get().alpha() == 0) return;

    fen::AttribScope const attributes(GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT | GL_COLOR_BUFFER_BIT
                                      | GL_CURRENT_BIT | GL_POLYGON_BIT | GL_STENCIL_BUFFER_BIT);
    fen::MatrixScope const matrix(GL_MODELVIEW);
    glLoadMatrix(Matrix::shadow(Plane(position.get(), normal.get()).normalize(), light.get()));
    glMultMatrix(context.modelView);
    setShadowState(color.get());
    DrawContext shadows(context);
    shadows.flags |= KeepLightingFlag;
    for (FenVisualization const* const node : nodes) node->draw3d(shadows);
}

BoundingBox FenVisShadowPlane::boundingBox() const
{
    BoundingBox box;
    if (!castsShadows()) return box;
    Plane const plane = Plane(position.get(), normal.get()).normalize();
    Matrix const shadow = Matrix::shadow(plane, light.get());
    double const height = plane.distance(light.get());
    for (FenVisualization const* const node : namedSiblings()) {
        if (!casts(node, 0)) continue;
        BoundingBox const solid = node->boundingBox();
        if (!solid.defined()) continue;
        for (float const x : {solid.min().x(), solid.max().x()})
            for (float const y : {solid.min().y(), solid.max().y()})
                for (float const z : {solid.min().z(), solid.max().z()})
                    insertShadow(box, shadow, height, Vector3(x, y, z));
    }
    return box;
}
