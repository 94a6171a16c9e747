#include "scene/VisImage.h"

#include "framework/DrawContext.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/VertexArrays.h"

using Kes::Math::Vector2;

QString const FenVisImage::typeString = QStringLiteral("visualization.image");

FenVisImage::FenVisImage(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , texture(*this, "texture", QString(), QString())
    , tiled(*this, "tiled", false, QString())
    , color(*this, "color", Qt::white, QString())
    , blended(*this, "blended", false, QString())
{
    rename(typeString);
    setType(typeString);
    layer.set(100);
    lineColor.set(Qt::transparent);
}

FenVisImage::FenVisImage(FenVisImage const& other)
    : FenVisPassiveNode(other)
    , texture(*this, other.texture)
    , tiled(*this, other.tiled)
    , color(*this, other.color)
    , blended(*this, other.blended)
{
    rename(typeString);
    setType(typeString);
}

FenVisImage::~FenVisImage() = default;

void FenVisImage::draw2d(DrawContext const& context) const { doDraw2d(context); }

void FenVisImage::doDraw2d(DrawContext const& context) const
{
    if (!context.viewport.valid()) return;
    FenOglTexture const& picture = context.cache.texture(texture.get(), tiled.get());
    bool const missing = picture.width() <= 0 || picture.height() <= 0;
    float const width = float(context.viewport.width()), height = float(context.viewport.height());
    bool const stretched = missing || !tiled.get();
    Vector2 const end = stretched ? Vector2(1, 1)
                                  : Vector2(width / float(picture.width()), height / float(picture.height()));
    fen::FlatScope const flat;
    if (!missing) fen::FlatScope::enableTexture(GL_MODULATE);
    if (!blended.get()) glDisable(GL_BLEND);
    glColor(color.get());
    picture.set();
    fen::drawTexturedArray(GL_TRIANGLE_FAN, std::vector<Vector2>{{0, 0}, {width, 0}, {width, height}, {0, height}},
                           {{0, 0}, {end.x(), 0}, end, {0, end.y()}});
}
