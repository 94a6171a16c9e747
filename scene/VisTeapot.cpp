#include "scene/VisTeapot.h"

#include "framework/DrawContext.h"
#include "scene/NodeLighting.h"
#include "scene/TeapotGeometry.h"
#include "services/math/Finite.h"

using Kes::Math::BoundingBox;

namespace {

constexpr int steps = 12; // along a side of a patch: smooth at any usual size

fen::TeapotMesh const& mesh()
{
    static fen::TeapotMesh const made = fen::teapotMesh(steps);
    return made;
}

} // namespace

QString const FenVisTeapot::typeString = QStringLiteral("visualization.teapot");

FenVisTeapot::FenVisTeapot(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , transform(group)
{
    insert(&transform, true);
    rename(typeString);
    setType(typeString);
}

FenVisTeapot::FenVisTeapot(FenVisTeapot const& other)
    : FenVisPassiveNode(other)
    , transform(other.transform)
    , _surface(other._surface)
{
    insert(&transform, true);
    rename(typeString);
    setType(typeString);
}

FenVisTeapot::~FenVisTeapot() = default;

void FenVisTeapot::update(DrawContext const&)
{
    if (_surface.compiled()) return;
    fen::ListScope const recording(_surface);
    mesh().vertices.draw(GL_TRIANGLES, mesh().triangles);
}

void FenVisTeapot::draw3d(DrawContext const& context) const
{
    fen::NodeLighting const lit(*this, context);
    fen::MatrixScope const matrix(GL_MODELVIEW);
    glMultMatrix(transform.matrix());
    lit.setColor(Qt::white);
    _surface.draw();
}

BoundingBox FenVisTeapot::boundingBox() const
{
    BoundingBox const box = mesh().box * transform.matrix();
    return box.defined() && Kes::Math::finite(box.min()) && Kes::Math::finite(box.max()) ? box : BoundingBox();
}
