#include "charts/painting/Stroke.h"

#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

namespace {

/// Width from which on the notches at corners can be seen.
constexpr float wide = 3;

void drawAll(GLenum kind, Strips const& strips, StripsRamp const* ramp)
{
    std::vector<GLint> firsts;
    std::vector<GLsizei> counts;
    for (Strips::Piece const& piece : strips.pieces) {
        firsts.push_back(GLint(piece.first));
        counts.push_back(GLsizei(piece.count));
    }
    drawPieces(kind, strips.points, ramp ? &ramp->points : nullptr, firsts, counts);
    drawTexturedArray(GL_LINES, strips.spans, ramp ? ramp->spans : std::vector<Vector2>());
}

} // namespace

void drawStrips(GLenum kind, Strips const& strips)
{
    if (!strips.empty()) drawAll(kind, strips, nullptr);
}

void drawStrips(GLenum kind, Strips const& strips, StripsRamp const& ramp)
{
    bool const complete =
        ramp.points.size() == strips.points.size() && ramp.spans.size() == strips.spans.size();
    if (!strips.empty() && complete) drawAll(kind, strips, &ramp);
}

bool hasCorners(StrokeStyle const& style)
{
    return style.stipple.isEmpty() && style.width >= wide && !style.smooth && style.color.alpha() == 255;
}

std::vector<Vector2> notches(Strips const& line)
{
    std::vector<Vector2> corners;
    auto const steep = [](Vector2 const& a, Vector2 const& b) {
        return std::abs(b.y() - a.y()) > std::abs(b.x() - a.x());
    };
    for (Strips::Piece const& piece : line.pieces)
        for (std::size_t i = piece.first + 1; i + 1 < piece.first + piece.count; ++i) {
            Vector2 const &before = line.points[i - 1], &at = line.points[i], &after = line.points[i + 1];
            if (steep(before, at) != steep(at, after)) corners.push_back(at);
        }
    return corners;
}

void drawStroke(Strips const& line, std::vector<Vector2> const& corners, StrokeStyle const& style)
{
    glColor(style.color);
    lineWidth(style.width);
    if (style.smooth)
        glEnable(GL_LINE_SMOOTH);
    else
        glDisable(GL_LINE_SMOOTH);
    if (!style.stipple.isEmpty()) {
        glEnable(GL_LINE_STIPPLE);
        glLineStipple(std::max(1, int(std::lround(style.width))), style.stipple);
    }
    // Blending takes software renderers a third longer and changes nothing where all is opaque.
    bool const blended = style.smooth || style.color.alpha() < 255;
    if (!blended) glDisable(GL_BLEND);
    drawStrips(GL_LINE_STRIP, line);
    if (!blended) glEnable(GL_BLEND);
    if (!style.stipple.isEmpty()) {
        glDisable(GL_LINE_STIPPLE);
    } else if (hasCorners(style)) {
        pointSize(style.width);
        drawArray(GL_POINTS, corners);
    }
}

void drawGlow(FenOglGeometry const& geometry, Strips const& line, QColor const& color, float width)
{
    FlatScope const flat; // and not a scope of a few groups: Mesa would forget the width
    glEnable(GL_LINE_SMOOTH);
    for (int n = geometry.highlightWidth(); n >= 0; n -= 2) {
        glColor(FenOglGeometry::calcHighlightColorGradient(geometry, color, n));
        lineWidth(width + float(n));
        drawStrips(GL_LINE_STRIP, line);
    }
}

} // namespace fen
