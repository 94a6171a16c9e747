#include "framework/VisList.h"

#include "framework/UpdateContext.h"
#include "services/logging/Checks.h"
#include "services/math/BoundingBox.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/VertexArrays.h"

#include "services/opengl/Gl.h"

#include <algorithm>
#include <utility>

namespace {

constexpr char const* updateMark = " @line 200";
constexpr char const* nestedPickText = "renderMode == GL_RENDER && \"a pick inside a pick finds nothing\"";

typedef FenVisualization::DrawContext DrawContext;
typedef FenVisualization::SelectContext SelectContext;

/// The context that a child with its own viewport gets, per kind of pass.
template <class Context>
struct Derived;
template <>
struct Derived<DrawContext> {
    typedef FenVisualization::UpdateDrawContext Type;
};
template <>
struct Derived<SelectContext> {
    typedef FenVisualization::UpdateSelectContext Type;
};

bool takesPart(FenVisualization const& child, DrawContext const& context)
{
    if ((context.flags & FenVisualization::ThumbnailFlag) && !child.thumbnail.get()) return false;
    return child.enabled.get();
}

bool takesPart(FenVisualization const& child, SelectContext const& context)
{
    return takesPart(child, static_cast<DrawContext const&>(context)) && child.selectable.get();
}

/// Whether a pass has anything to do in a context's viewport.
bool reaches(DrawContext const&) { return true; }

bool reaches(SelectContext const& context) { return context.pointInside(); }

/// The outermost pixels of a rectangle at the origin, each drawn once: lines would miss a corner.
void drawRim(float width, float height)
{
    fen::drawRectangle(0.0f, 0.0f, width, 1.0f);
    if (height > 1.0f) fen::drawRectangle(0.0f, height - 1.0f, width, height);
    if (height <= 2.0f) return;
    fen::drawRectangle(0.0f, 1.0f, 1.0f, height - 1.0f);
    if (width > 1.0f) fen::drawRectangle(width - 1.0f, 1.0f, width, height - 1.0f);
}

/// An invalid colour, as a text that is no colour gives, is not drawn.
bool shows(QColor const& color) { return color.isValid() && color.alpha() != 0; }

/// Veil and frame of a child's own viewport, in its pixels. The veil comes after
/// the child's own drawing on purpose: it dims the child, it is no background.
void decorate(FenVisualization const& child, FenOglViewport const& own)
{
    QColor const fill = child.fillColor.get();
    QColor const line = child.lineColor.get();
    fen::FlatScope const flat;
    if (shows(fill)) {
        glColor(fill);
        fen::drawRectangle(0.0f, 0.0f, float(own.width()), float(own.height()));
    }
    if (shows(line)) {
        glColor(line);
        drawRim(float(own.width()), float(own.height()));
    }
}

/// False, and logged, while a pick is going on: OpenGL can do only one.
bool mayPick()
{
    GLint renderMode = GL_RENDER; // stays so without a context
    glGetIntegerv(GL_RENDER_MODE, &renderMode);
    return FENVIS_ENSURE(renderMode == GL_RENDER, nestedPickText);
}

} // namespace

/// Calls visit(child, context) for the children that take part in a pass, in
/// visiting order, each in the parent's context or in one of its own. A visit may
/// destroy any node, also this one: nothing of a node is looked at before it is
/// known to live, and the derived contexts restore OpenGL without it.
template <class Context, class Visit>
void FenVisList::forEachVisited(Context const& context, Space space, Visit const& visit) const
{
    typedef typename Derived<Context>::Type Own;
    auto const visitOwn = [&](Child const& child, Own const& own) {
        if (child && own.viewport.valid() && reaches(own)) visit(child, static_cast<Context const&>(own));
    };
    fen::view_ptr<FenVisList const> const self(this);
    for (std::size_t i = 0; self && i < _order.size(); ++i) {
        Child const child = _order[i];
        if (!child || !takesPart(*child, context)) continue;
        FenOglViewport own;
        bool const hasOwn = child->getViewport(context.viewport, own);
        if (!child) continue;
        if (!hasOwn) {
            if (reaches(context)) visit(child, context);
        } else if (space == Solid) {
            visitOwn(child, Own(context, own, child->boundingBox()));
        } else {
            visitOwn(child, Own(context, own));
        }
    }
}

bool FenVisList::getViewport(FenOglViewport const&, FenOglViewport&) const { return false; }

void FenVisList::update(DrawContext const& context)
{
    FENVIS_TRACE(updateMark);
    typedef std::pair<int, Child> Visit;
    fen::view_ptr<FenVisList> const self(this);
    _order.clear();
    std::vector<Visit> work;
    for (unsigned int i = 0; i < size(); ++i) {
        FenVisualization* const child = at(i);
        if (child && child->enabled.get()) work.emplace_back(child->layer.get(), child);
    }
    std::stable_sort(work.begin(), work.end(),
                     [](Visit const& a, Visit const& b) { return a.first < b.first; });
    std::vector<Child> order;
    order.reserve(work.size());
    for (Visit const& visit : work) {
        Child const& child = visit.second;
        if (child && child->watcher().modified()) {
            child->update(context);
            if (child) child->watcher().reset();
        }
        order.push_back(child);
    }
    if (self) _order = std::move(order);
}

void FenVisList::resize(DrawContext const& context)
{
    forEachVisited(context, Flat, [](Child const& child, DrawContext const& own) { child->resize(own); });
}

void FenVisList::drawChild3d(FenVisualization const& child, DrawContext const& context) const
{
    child.draw3d(context);
}

FenVisHitRecordList FenVisList::selectChild3d(FenVisualization const& child,
                                              SelectContext const& context) const
{
    return child.select3d(context);
}

void FenVisList::draw3d(DrawContext const& context) const
{
    forEachVisited(context, Solid,
                   [this](Child const& child, DrawContext const& own) { drawChild3d(*child, own); });
}

void FenVisList::draw2d(DrawContext const& context) const
{
    forEachVisited(context, Flat, [&](Child const& child, DrawContext const& own) {
        child->draw2d(own);
        if (child && own.viewport != context.viewport) decorate(*child, own.viewport);
    });
}

FenVisHitRecordList FenVisList::select3d(SelectContext const& context) const
{
    FenVisHitRecordList hits;
    if (!mayPick()) return hits;
    forEachVisited(context, Solid, [&](Child const& child, SelectContext const& own) {
        hits.insert(selectChild3d(*child, own));
    });
    return hits;
}

FenVisHitRecordList FenVisList::select2d(SelectContext const& context) const
{
    FenVisHitRecordList hits;
    if (!mayPick()) return hits;
    forEachVisited(context, Flat,
                   [&](Child const& child, SelectContext const& own) { hits.insert(child->select2d(own)); });
    return hits;
}
