#include "services/opengl/OglGeometry.h"

#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/OpenGLExtensions.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector3;

namespace {

constexpr int widestHighlight = 64; // [px]
constexpr float widestPoint = 200; // [px] drivers clamp at 255 device pixels

/// What every point sprite needs; to be called inside an AttribScope of `spriteBits`.
constexpr GLbitfield spriteBits = GL_ENABLE_BIT | GL_POINT_BIT | GL_TEXTURE_BIT | GL_COLOR_BUFFER_BIT
    | GL_CURRENT_BIT | GL_DEPTH_BUFFER_BIT;

void enableSprites()
{
    glDisable(GL_LIGHTING);
    glDisable(GL_POINT_SMOOTH);
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    if (!fen::openGLHasSupport(fen::PointSprite)) {
        glDisable(GL_TEXTURE_2D); // plain square points
        return;
    }
    glEnable(GL_POINT_SPRITE);
    glTexEnvi(GL_POINT_SPRITE, GL_COORD_REPLACE, GL_TRUE);
    glPointParameteri(GL_POINT_SPRITE_COORD_ORIGIN, GL_LOWER_LEFT);
}

float smallestAlpha(std::vector<fen::Rgba> const& colors)
{
    GLubyte smallest = 255;
    for (fen::Rgba const& color : colors) smallest = std::min(smallest, color.alpha);
    return float(smallest) / 255;
}

/// A square picture of the glow's rings, its middle as wide as the thing that glows.
QImage glowPicture(FenOglGeometry const& geometry, double width)
{
    double const outer = width + geometry.highlightWidth();
    int const side = int(std::ceil(outer));
    QImage picture(side, side, QImage::Format_RGBA8888);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            double const diameter = 2 * std::hypot(x + 0.5 - 0.5 * side, y + 0.5 - 0.5 * side);
            QColor color =
                geometry.calcHighlightColorGradient(std::max(0, int(std::lround(diameter - width))));
            // The outermost ring fades over one pixel.
            color.setAlphaF(color.alphaF() * float(std::clamp(0.5 * (outer - diameter) + 0.5, 0.0, 1.0)));
            picture.setPixelColor(x, y, color);
        }
    return picture;
}

} // namespace

struct FenOglGeometry::Glow {
    double width;
    double ratio;
    int highlightWidth;
    QColor color;
    FenOglTexture texture;
};

FenOglGeometry::FenOglGeometry()
    : _highlightColor(255, 150, 0)
{
}

void FenOglGeometry::drawTexturedPoint(FenOglCache& cache, Vector3 const& position, QString const& texture,
                                       unsigned symbol, QColor const& color, QColor const& outline,
                                       bool smooth)
{
    drawTexturedPoints(cache, {position}, texture, symbol, color, outline, smooth);
}

void FenOglGeometry::drawTexturedPoints(FenOglCache& cache, std::vector<Vector3> const& positions,
                                        QString const& texture, unsigned symbol, QColor const& color,
                                        QColor const& outline, bool smooth,
                                        std::vector<fen::Rgba> const& colors)
{
    if (fen::selectionMode()) {
        fen::drawArray(GL_POINTS, positions);
        return;
    }
    fen::AttribScope const attributes(spriteBits);
    int const size = int(std::lround(fen::devicePointSize()));
    enableSprites();
    glDepthFunc(GL_LEQUAL); // the outline has the depth of the area below it
    glEnable(GL_ALPHA_TEST);
    bool const perPoint = colors.size() == positions.size();
    auto const draw = [&](FenOglCache::SymbolKey::Part part, QColor const& one, bool many) {
        if (!many && one.alpha() == 0) return;
        float const opacity = many ? smallestAlpha(colors) : float(one.alphaF());
        glAlphaFunc(GL_GREATER, smooth ? 0.0f : 0.5f * opacity);
        if (smooth || opacity < 1)
            glEnable(GL_BLEND);
        else
            glDisable(GL_BLEND);
        cache.symbolMask({texture, symbol, size, part}).set();
        glColor(one);
        if (many)
            fen::drawArray(GL_POINTS, positions, colors);
        else
            fen::drawArray(GL_POINTS, positions);
    };
    bool const edged = outline.alpha() > 0;
    draw(FenOglCache::SymbolKey::Fill, color, perPoint);
    draw(FenOglCache::SymbolKey::Outline, edged ? outline : color, perPoint && !edged);
}

void FenOglGeometry::drawHighlightedPoint(Vector3 const& position, double width) const
{
    if (!std::isfinite(width)) return;
    double const core = std::clamp(width, 1.0, double(widestPoint));
    if (fen::selectionMode()) {
        fen::drawArray(GL_POINTS, std::vector<Vector3>{position});
        return;
    }
    double const ratio = fen::pixelRatio();
    if (!_glow || _glow->width != core || _glow->ratio != ratio || _glow->highlightWidth != _highlightWidth
        || _glow->color != _highlightColor) {
        FenOglTexture const texture(glowPicture(*this, core), FenOglTexture::Linear, FenOglTexture::Clamp);
        _glow = std::make_shared<Glow>(Glow{core, ratio, _highlightWidth, _highlightColor, texture});
    }
    fen::AttribScope const attributes(spriteBits);
    enableSprites();
    glDepthMask(GL_FALSE);
    glColor(Qt::white);
    fen::pointSize(float(core + _highlightWidth));
    _glow->texture.set();
    fen::drawArray(GL_POINTS, std::vector<Vector3>{position});
}

void FenOglGeometry::drawHighlightedLine(double width, std::vector<Vector3> const& points, bool closed) const
{
    if (!std::isfinite(width) || points.empty()) return;
    fen::AttribScope const attributes(GL_ENABLE_BIT | GL_LINE_BIT | GL_CURRENT_BIT | GL_DEPTH_BUFFER_BIT
                                      | GL_COLOR_BUFFER_BIT);
    for (GLenum const off : {GL_LIGHTING, GL_TEXTURE_2D, GL_LINE_STIPPLE}) glDisable(off);
    glEnable(GL_LINE_SMOOTH);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    for (int n = _highlightWidth; n >= 0; n -= 2) {
        glColor(calcHighlightColorGradient(n));
        fen::lineWidth(float(width + n));
        fen::drawArray(closed ? GL_LINE_LOOP : GL_LINE_STRIP, points);
    }
}

void FenOglGeometry::setHighlightWidth(int width) { _highlightWidth = std::clamp(width, 0, widestHighlight); }

QColor FenOglGeometry::calcHighlightColorGradient(int n) const
{
    return calcHighlightColorGradient(*this, _highlightColor, n);
}

QColor FenOglGeometry::calcHighlightColorGradient(FenOglGeometry const& geometry, QColor const& color, int n)
{
    // Rings overlap: the alpha of one ring is small, so that the sum grows inwards.
    constexpr double mostPaleness = 0.6, innermost = 0.75;
    double const share = std::clamp(double(n) / std::max(geometry.highlightWidth(), 1), 0.0, 1.0);
    auto const pale = [&](int channel) { return qRound(channel + mostPaleness * share * (255 - channel)); };
    QColor ring(pale(color.red()), pale(color.green()), pale(color.blue()));
    ring.setAlphaF(float(innermost * (1 - share) + 0.15 * share));
    return ring;
}

Vector3 FenOglGeometry::Project(Vector3 const& point, Vector3 const& scaling, Vector3 const& offset)
{
    return Project(point.x(), point.y(), point.z(), scaling, offset);
}

Vector3 FenOglGeometry::Project(double x, double y, double z, Vector3 const& scaling, Vector3 const& offset)
{
    return Vector3(float((x + offset.x()) * scaling.x()), float((y + offset.y()) * scaling.y()),
                   float((z + offset.z()) * scaling.z()));
}

Vector3 FenOglGeometry::UnProject(Vector3 const& point, Vector3 const& scaling, Vector3 const& offset)
{
    auto const back = [](float value, float scale, float shift) {
        return value / (scale == 0 ? 1 : scale) - shift;
    };
    return Vector3(back(point.x(), scaling.x(), offset.x()), back(point.y(), scaling.y(), offset.y()),
                   back(point.z(), scaling.z(), offset.z()));
}

Vector3 FenOglGeometry::ProjectNormal(Vector3 const& normal, Vector3 const& scaling, Vector3 const&)
{
    auto const scaled = [](float value, float scale) { return scale == 0 ? value : value / scale; };
    Vector3 const projected(scaled(normal.x(), scaling.x()), scaled(normal.y(), scaling.y()),
                            scaled(normal.z(), scaling.z()));
    float const length = projected.length();
    return length > 0 && std::isfinite(length) ? projected / length : normal;
}
