#include "scene/VisAnnotation.h"

#include "framework/UpdateContext.h"
#include "scene/AnnotationFrame.h"
#include "scene/VisAnnotation.handler.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace {

constexpr unsigned stripShades = 64;
constexpr int gripLines = 3;
constexpr float gripStep = 3.0f; // [px] from one line of a grip to the next

/// Corners in pixels, right and upper edge outside.
struct Rectangle {
    float left, bottom, right, top;

    explicit Rectangle(FenOglViewport const& area)
        : left(float(area.x()))
        , bottom(float(area.y()))
        , right(float(area.x() + area.width()))
        , top(float(area.y() + area.height()))
    {
    }
    void draw() const { fen::drawRectangle(left, bottom, right, top); }
    /// Its edge, of a thickness [px] that fits.
    void drawEdge(float thickness) const
    {
        float const t = std::min({thickness, (right - left) / 2, (top - bottom) / 2});
        fen::drawRectangle(left, bottom, right, bottom + t);
        fen::drawRectangle(left, top - t, right, top);
        fen::drawRectangle(left, bottom + t, left + t, top - t);
        fen::drawRectangle(right - t, bottom + t, right, top - t);
    }
};

bool shows(QColor const& color) { return color.isValid() && color.alpha() > 0; }

} // namespace

void FenVisAnnotation::draw2d(DrawContext const& context) const
{
    decorate(context);
    FenOglViewport const content = fen::annotationContent(context.viewport);
    if (!content.valid()) return;
    UpdateDrawContext const inside(context, content);
    doDraw2d(inside);
}

void FenVisAnnotation::decorate(DrawContext const& context) const
{
    fen::FlatScope const flat;
    Rectangle const box(fen::annotationContent(FenOglViewport(
        0, 0, context.viewport.width(), context.viewport.height())));
    if (box.right <= box.left || box.top <= box.bottom) return;
    if (shows(backgroundColor.get())) {
        glColor(backgroundColor.get());
        box.draw();
    }
    if (!shows(borderColor.get())) return;
    if (draggable()) drawStrip(context);
    glColor(borderColor.get());
    float const border = borderSize.get();
    if (border > 0 && std::isfinite(border)) box.drawEdge(border);
    if (draggable() && _handler->hovered().defined()) drawGrips(context.viewport.size());
}

void FenVisAnnotation::drawStrip(DrawContext const& context) const
{
    // Drawn down to the box, so that both are one thing; a pick reaches that far.
    int const height = context.viewport.height() - fen::annotationHigher;
    Rectangle const strip(FenOglViewport(fen::annotationRim, height + fen::annotationRim,
                                         context.viewport.width() - fen::annotationWider,
                                         fen::stripTo + 1 - fen::annotationRim));
    QColor clear = borderColor.get();
    clear.setAlpha(0);
    context.cache.gradient({clear, borderColor.get()}, stripShades, false).set();
    fen::FlatScope::enableTexture(GL_REPLACE);
    fen::drawTexturedArray(GL_TRIANGLE_FAN,
                           std::vector<Vector2>{{strip.left, strip.bottom},
                                                {strip.right, strip.bottom},
                                                {strip.right, strip.top},
                                                {strip.left, strip.top}},
                           {{0, 0}, {0, 0}, {0, 1}, {0, 1}});
    glDisable(GL_TEXTURE_2D);
    glColor(borderColor.get());
    strip.drawEdge(1);
}

/// Three lines across each corner, from edge to edge.
void FenVisAnnotation::drawGrips(QSize const& size) const
{
    std::vector<Vector2> lines;
    float const right = float(size.width()), top = float(size.height());
    for (int i = 1; i <= gripLines; ++i) {
        float const reach = float(i) * gripStep;
        for (float const x : {0.0f, right})
            for (float const y : {0.0f, top}) {
                lines.emplace_back(x > 0 ? x - reach : reach, y);
                lines.emplace_back(x, y > 0 ? y - reach : reach);
            }
    }
    fen::drawArray(GL_LINES, lines);
}
