#include "scene/VisAnnotation.h"

#include "framework/UpdateContext.h"
#include "scene/AnnotationFrame.h"
#include "scene/VisAnnotation.handler.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace {

constexpr int gripLines = 3;
constexpr float gripStep = 3.0f; // [px] from one line of a grip to the next

/// Corners in pixels, right and upper edge outside.
struct Rectangle {
    float left, bottom, right, top;
};

Rectangle rectangleOf(FenOglViewport const& area)
{
    return {float(area.x()), float(area.y()), float(area.x() + area.width()), float(area.y() + area.height())};
}

/// Areas that are drawn at once: a hundred annotations would else be a thousand draw calls.
class Areas {
public:
    /// Filled, from one colour at the bottom to another at the top.
    void fill(Rectangle const& area, QColor const& lower, QColor const& upper)
    {
        add(area.left, area.bottom, lower);
        add(area.right, area.bottom, lower);
        add(area.right, area.top, upper);
        add(area.left, area.top, upper);
    }
    void fill(Rectangle const& area, QColor const& color) { fill(area, color, color); }
    /// The edge of an area, of a thickness [px] that fits.
    void outline(Rectangle const& area, float thickness, QColor const& color)
    {
        auto const [left, bottom, right, top] = area;
        float const t = std::min({thickness, (right - left) / 2, (top - bottom) / 2});
        fill({left, bottom, right, bottom + t}, color);
        fill({left, top - t, right, top}, color);
        fill({left, bottom + t, left + t, top - t}, color);
        fill({right - t, bottom + t, right, top - t}, color);
    }
    void draw() const { _mesh.draw(GL_QUADS); }

private:
    void add(float x, float y, QColor const& color) { _mesh.add(Kes::Math::Vector3(x, y, 0), color); }

    fen::VertexArrays _mesh;
};

/// Down to the box, so that both are one thing; a pick reaches that far.
Rectangle stripOf(FenOglViewport const& frame)
{
    return rectangleOf(FenOglViewport(
        fen::annotationRim, frame.height() - fen::annotationHigher + fen::annotationRim,
        frame.width() - fen::annotationWider, fen::stripTo + 1 - fen::annotationRim));
}

QColor clear(QColor color)
{
    color.setAlpha(0);
    return color;
}

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
    FenOglViewport const frame(0, 0, context.viewport.width(), context.viewport.height());
    FenOglViewport const content = fen::annotationContent(frame);
    if (!content.valid()) return;
    QColor const line = borderColor.get();
    float const border = borderSize.get();
    Areas areas;
    if (shows(backgroundColor.get())) areas.fill(rectangleOf(content), backgroundColor.get());
    if (shows(line) && draggable()) {
        areas.fill(stripOf(frame), clear(line), line);
        areas.outline(stripOf(frame), 1, line);
    }
    if (shows(line) && border > 0 && std::isfinite(border)) areas.outline(rectangleOf(content), border, line);
    fen::FlatScope const flat;
    areas.draw();
    if (!shows(line) || !draggable() || !_handler->hovered().defined()) return;
    glColor(line);
    drawGrips(context.viewport.size());
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
