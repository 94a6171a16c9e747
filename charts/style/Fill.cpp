#include "charts/style/Fill.h"

#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglTexture.h"

#include <algorithm>

namespace fen {

void drawFill(FillStyle const& style, FenOglCache& cache, std::function<void(bool textured)> const& area)
{
    switch (style.mode) {
    case FillStyle::None:
        return;
    case FillStyle::Solid:
        if (style.color.alpha() == 0) return;
        glColor(style.color);
        area(false);
        return;
    case FillStyle::Sparse:
        if (style.back.alpha() > 0) {
            glColor(style.back);
            area(false);
        }
        glColor(style.color);
        glEnable(GL_POLYGON_STIPPLE);
        glPolygonStipple(style.pattern);
        area(false);
        glDisable(GL_POLYGON_STIPPLE);
        return;
    case FillStyle::Gradient:
        drawRamp(style.ramp, cache, [&] { area(true); });
        return;
    }
}

void useRamp(QList<QColor> const& ramp, FenOglCache& cache)
{
    constexpr unsigned steps = 256; // in which none can be seen
    cache.gradient(ramp, steps, false).set();
}

bool isTranslucent(FillStyle const& style)
{
    auto const lucid = [](QColor const& color) { return color.alpha() < 255; };
    switch (style.mode) {
    case FillStyle::None:
    case FillStyle::Sparse: // its pixels are set or not
        return false;
    case FillStyle::Solid:
        return lucid(style.color);
    case FillStyle::Gradient:
        return std::any_of(style.ramp.begin(), style.ramp.end(), lucid);
    }
    return false;
}

void drawRamp(QList<QColor> const& ramp, FenOglCache& cache, std::function<void()> const& geometry)
{
    useRamp(ramp, cache);
    FlatScope::enableTexture(GL_MODULATE);
    glColor(Qt::white);
    geometry();
    glDisable(GL_TEXTURE_2D);
}

} // namespace fen
