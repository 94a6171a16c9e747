#include "services/opengl/OglTessellator.h"

#include "services/math/Vector3.h"
#include "services/opengl/Gl.h"
#include "services/opengl/LogOnce.h"
#include "services/opengl/VertexArrays.h"

#include <QString>

#include <array>
#include <cmath>
#include <deque>

using Kes::Math::Vector3;

namespace {

using Callback = void (*)();

struct DeleteTess {
    void operator()(GLUtesselator* tess) const { gluDeleteTess(tess); }
};

} // namespace

struct FenOglTessellator::Work {
    using Point = std::array<GLdouble, 3>;
    enum State { Idle, InPolygon, InContour };

    std::unique_ptr<GLUtesselator, DeleteTess> tess{gluNewTess()};
    std::deque<Point> points; ///< stable addresses: GLU keeps them until the polygon ends
    fen::VertexArrays triangles;
    State state = Idle;
    bool boundary = false;
    bool failed = false;
    GLboolean edge = GL_TRUE;

    static void vertex(void* point, void* work)
    {
        auto* const self = static_cast<Work*>(work);
        auto const& p = *static_cast<Point*>(point);
        self->triangles.add(Vector3(float(p[0]), float(p[1]), float(p[2])));
        self->triangles.edgeFlags.push_back(self->boundary ? self->edge : GLboolean(GL_TRUE));
    }
    /// With this callback GLU gives single triangles only, which is what is wanted in any case.
    static void edgeFlag(GLboolean flag, void* work) { static_cast<Work*>(work)->edge = flag; }
    static void combine(GLdouble const at[3], void* [4], GLfloat const[4], void** made, void* work)
    {
        auto& points = static_cast<Work*>(work)->points;
        points.push_back({at[0], at[1], at[2]});
        *made = &points.back();
    }
    static void error(GLenum, void* work) { static_cast<Work*>(work)->failed = true; }
};

FenOglTessellator::FenOglTessellator()
    : _work(std::make_unique<Work>())
{
    GLUtesselator* const tess = _work->tess.get();
    gluTessCallback(tess, GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(&Work::vertex));
    gluTessCallback(tess, GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Callback>(&Work::edgeFlag));
    gluTessCallback(tess, GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(&Work::combine));
    gluTessCallback(tess, GLU_TESS_ERROR_DATA, reinterpret_cast<Callback>(&Work::error));
}

FenOglTessellator::~FenOglTessellator()
{
    endContour();
    endPolygon();
}

void FenOglTessellator::beginPolygon()
{
    if (_work->state != Work::Idle) return;
    _work->state = Work::InPolygon;
    _work->points.clear();
    _work->triangles.clear();
    _work->failed = false;
    gluTessBeginPolygon(_work->tess.get(), _work.get());
}

void FenOglTessellator::beginContour()
{
    if (_work->state != Work::InPolygon) return;
    _work->state = Work::InContour;
    gluTessBeginContour(_work->tess.get());
}

void FenOglTessellator::vertex(Vector3 const& point)
{
    if (_work->state != Work::InContour) return;
    if (!std::isfinite(point.x()) || !std::isfinite(point.y()) || !std::isfinite(point.z())) {
        fen::warnOnce("A point of a polygon that is not finite is left out.", "@line 93");
        return;
    }
    _work->points.push_back({point.x(), point.y(), point.z()});
    gluTessVertex(_work->tess.get(), _work->points.back().data(), &_work->points.back());
}

void FenOglTessellator::vertex(float x, float y) { vertex(Vector3(x, y, 0)); }

void FenOglTessellator::boundary(bool flag) { _work->boundary = flag; }

void FenOglTessellator::endContour()
{
    if (_work->state != Work::InContour) return;
    gluTessEndContour(_work->tess.get());
    _work->state = Work::InPolygon;
}

void FenOglTessellator::endPolygon()
{
    if (_work->state != Work::InPolygon) return;
    gluTessEndPolygon(_work->tess.get());
    _work->state = Work::Idle;
    if (_work->failed)
        fen::warnOnce("A polygon could not be cut into triangles.", "@line 117");
    else
        _work->triangles.draw(GL_TRIANGLES);
}
