#include "charts/chart3d/Stroke3D.h"

#include "charts/style/Fill.h"
#include "charts/style/VariableStyle.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/PixelRatio.h"

#include <algorithm>
#include <cmath>

namespace fen {

void drawStroke3D(VariableStyle const& style, FenOglCache& cache, std::function<void()> const& lines)
{
    if (style.line == VariableStyle::Line::None) return;
    glDisable(GL_LIGHTING);
    lineWidth(style.stroke.width);
    (style.stroke.smooth ? glEnable : glDisable)(GL_LINE_SMOOTH);
    if (!style.stroke.stipple.isEmpty()) {
        glEnable(GL_LINE_STIPPLE);
        glLineStipple(std::max(1, int(std::lround(style.stroke.width))), style.stroke.stipple);
    }
    if (style.line == VariableStyle::Line::Gradient) {
        drawRamp(style.ramp, cache, lines);
    } else {
        glColor(style.stroke.color);
        lines();
    }
    glDisable(GL_LINE_STIPPLE);
    glDisable(GL_LINE_SMOOTH);
    lineWidth(1);
}

} // namespace fen
