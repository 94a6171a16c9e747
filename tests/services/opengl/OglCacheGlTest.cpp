#include "services/opengl/GlNames.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/VertexArrays.h"
#include "services/opengl/oglft/Face.h"
#include "tests/support/OffscreenGlTest.h"

using Kes::Math::Vector2;

namespace {

class OglCache : public OffscreenGlTest {
protected:
    /// Draws the texture over `area` [px, y up], texture coordinates 0..1.
    void show(FenOglTexture const& texture, QRect const& area)
    {
        glEnable(GL_TEXTURE_2D);
        glColor(Qt::white);
        texture.set();
        drawQuad(area);
    }
    static void drawQuad(QRect const& a)
    {
        float const x0 = float(a.x()), x1 = float(a.x() + a.width());
        float const y0 = float(a.y()), y1 = float(a.y() + a.height());
        fen::drawTexturedArray(GL_QUADS, {Vector2(x0, y0), Vector2(x1, y0), Vector2(x1, y1), Vector2(x0, y1)},
                               {Vector2(0, 0), Vector2(1, 0), Vector2(1, 1), Vector2(0, 1)});
    }
    static QImage corners()
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.setPixelColor(0, 0, Qt::red);
        image.setPixelColor(1, 0, Qt::green);
        image.setPixelColor(0, 1, Qt::blue);
        image.setPixelColor(1, 1, Qt::black);
        return image;
    }
};

TEST_F(OglCache, ShowsImagesUprightAndFollowsTheResource)
{
    resource.setImage("corners", corners());
    FenOglTexture const& texture = cache->texture("corners", false);
    EXPECT_EQ(2, texture.width());
    show(texture, QRect(0, 0, 400, 300));
    Picture shown = picture();
    EXPECT_TRUE(shown.is(10, 10, Qt::red));
    EXPECT_TRUE(shown.is(390, 10, Qt::green));
    EXPECT_TRUE(shown.is(10, 290, Qt::blue));
    EXPECT_TRUE(shown.is(390, 290, Qt::black));

    QImage other(5, 3, QImage::Format_RGB32);
    other.fill(Qt::yellow);
    resource.setImage("corners", other);
    EXPECT_EQ(&texture, &cache->texture("corners", false));
    EXPECT_EQ(3, texture.height());
    show(texture, QRect(0, 0, 400, 300));
    EXPECT_TRUE(picture().is(200, 150, Qt::yellow));
}

TEST_F(OglCache, RepeatsOrClampsAsAsked)
{
    resource.setImage("corners", corners());
    for (bool const repeat : {true, false}) {
        glEnable(GL_TEXTURE_2D);
        glColor(Qt::white);
        cache->texture("corners", repeat).set();
        fen::drawTexturedArray(GL_QUADS, {Vector2(0, 0), Vector2(400, 0), Vector2(400, 300), Vector2(0, 300)},
                               {Vector2(0, 0), Vector2(2, 0), Vector2(2, 2), Vector2(0, 2)});
        EXPECT_TRUE(picture().is(250, 262, repeat ? Qt::blue : Qt::black, 4)) << repeat;
    }
}

TEST_F(OglCache, GivesATextureWithoutSizeForAnUnknownImage)
{
    log.expect("Unknown image \"nowhere.png\"");
    FenOglTexture const& texture = cache->texture("nowhere.png", true);
    EXPECT_EQ(0, texture.width());
    EXPECT_EQ(0, texture.height());
    EXPECT_EQ(&texture, &cache->texture("", false)) << "no name, no complaint";
    cache->texture("nowhere.png", false);
    EXPECT_LE(log.count("nowhere.png"), 1) << "said once";
    cache->gradient({Qt::red}, 2, true).set();
    texture.set();
    GLint bound = 1;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(0, bound);
}

TEST_F(OglCache, RampsRunThroughTheirColoursFromBelow)
{
    QList<QColor> const colors{Qt::red, Qt::green, Qt::blue};
    show(cache->gradient(colors, 256, false), QRect(0, 0, 20, 300));
    show(cache->gradient(colors, 3, true), QRect(40, 0, 20, 300));
    show(cache->gradient({}, 0, true), QRect(80, 0, 20, 300));
    show(cache->gradient({Qt::cyan}, 256, false), QRect(120, 0, 20, 300));
    Picture const shown = picture();
    shown.save("gradients");
    EXPECT_TRUE(shown.pixelGl(10, 0).red() > 250 && shown.pixelGl(10, 299).blue() > 250);
    EXPECT_TRUE(shown.is(10, 150, Qt::green, 4));
    EXPECT_TRUE(shown.is(10, 225, QColor(128, 128, 0), 4));
    EXPECT_EQ(3, shown.copy(QRect(40, 0, 20, 300)).colors()) << "bins have hard edges";
    EXPECT_EQ(2000, shown.count(Qt::red, QRect(40, 0, 20, 300)));
    EXPECT_TRUE(shown.is(90, 150, Qt::black));
    EXPECT_TRUE(shown.is(130, 20, Qt::cyan));
    GLint width = 0, height = 0;
    cache->gradient(colors, 7, true).set();
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    EXPECT_EQ(1, width);
    EXPECT_EQ(7, height);
}

TEST_F(OglCache, KeepsWhatItReturnedAndABoundedNumberOfTextures)
{
    FenOglTexture const& first = cache->gradient({Qt::red, Qt::blue}, 256, false);
    for (int i = 0; i < 1000; ++i) cache->gradient({QColor::fromRgb(QRgb(i))}, 4, true);
    EXPECT_EQ(&first, &cache->gradient({Qt::red, Qt::blue}, 256, false));
    EXPECT_NE(&first, &cache->gradient({Qt::red, Qt::blue}, 256, true));

    auto const countTextures = [] {
        int count = 0;
        for (GLuint name = 1; name < 20000; ++name) count += glIsTexture(name);
        return count;
    };
    int const before = countTextures();
    for (int i = 0; i < 6000; ++i) cache->gradient({QColor::fromRgb(QRgb(i + 5000))}, 2, true).set();
    EXPECT_LE(countTextures(), before + 4096);
    show(first, QRect(0, 0, 20, 300));
    EXPECT_GT(picture().pixelGl(10, 299).blue(), 250) << "it is still referred to in this pass";
    cache->clear();
    EXPECT_EQ(before, countTextures()) << "cleared, nothing is left behind";
    EXPECT_EQ(13, text->height()) << "texts find their faces anew";
    EXPECT_EQ(cache->font(""), cache->font(""));
}

TEST_F(OglCache, MakesItsTexturesAnewAfterAChangeOfContext)
{
    FenOglTexture const& ramp = cache->gradient({Qt::red, Qt::red}, 4, true);
    show(ramp, QRect(0, 0, 400, 300));
    text->draw(QPoint(10, 10), "before");
    GLint old = 0;
    ramp.set();
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &old);
    unsigned const generation = cache->generation();
    cache->contextChanged();
    EXPECT_NE(generation, cache->generation());
    EXPECT_TRUE(glIsTexture(GLuint(old))) << "names of a lost context are never deleted";
    clear();
    show(ramp, QRect(0, 0, 100, 100));
    EXPECT_TRUE(picture().pixelGl(50, 50) == Qt::red);
    glDisable(GL_TEXTURE_2D);
    clear();
    text->draw(QPoint(10, 10), "before");
    EXPECT_GT(picture().count(Qt::black, 60), 20);
}

class OglDisplayList : public OglCache { };

TEST_F(OglDisplayList, ReplaysWhatWasRecordedAndSharesItWithCopies)
{
    FenOglDisplayList list;
    EXPECT_FALSE(list.compiled());
    list.draw();
    list.end(); // nothing was begun
    {
        fen::ListScope const scope(list);
        EXPECT_FALSE(list.compiled()) << "not before its end";
        glColor(Qt::red);
        fen::drawRectangle(0, 0, 10, 10);
    }
    EXPECT_TRUE(picture().boundingBox().isNull()) << "recorded, not drawn";
    FenOglDisplayList copy = list, assigned;
    assigned = list;
    list.begin(GL_COMPILE);
    glColor(Qt::green);
    fen::drawRectangle(20, 0, 30, 10);
    list.end();
    for (FenOglDisplayList const* each : {&copy, &list}) each->draw();
    Picture const shown = picture();
    EXPECT_EQ(100, shown.count(Qt::red));
    EXPECT_EQ(100, shown.count(Qt::green));
    copy.clear();
    EXPECT_FALSE(copy.compiled());
    EXPECT_TRUE(assigned.compiled()) << "one copy still holds the recording";
}

TEST_F(OglDisplayList, CannotBeRecordedInsideAnother)
{
    log.expect("inside another");
    FenOglDisplayList outer, inner;
    outer.begin(GL_COMPILE);
    inner.begin(GL_COMPILE);
    inner.end();
    EXPECT_FALSE(inner.compiled());
    outer.end();
    EXPECT_TRUE(outer.compiled());
    FenOglDisplayList abandoned;
    abandoned.begin(GL_COMPILE);
    abandoned.clear();
    GLint open = 1;
    glGetIntegerv(GL_LIST_INDEX, &open);
    EXPECT_EQ(0, open) << "recording ends with its list";
}

TEST_F(OglDisplayList, IsForgottenWithItsContextAndFreedOtherwise)
{
    FenOglDisplayList list;
    list.begin(GL_COMPILE);
    list.end();
    cache->contextChanged();
    EXPECT_FALSE(list.compiled());
    list.draw();
    list.begin(GL_COMPILE);
    list.end();
    EXPECT_TRUE(list.compiled());

    // A cache with scopes: its lists wait for its own context before they are deleted.
    FenOglCache other(resource);
    GLuint const before = glGenLists(1);
    {
        FenOglContextScope const scope(other);
        list.begin(GL_COMPILE);
        list.end();
    }
    EXPECT_TRUE(glIsList(before + 1));
    list.clear();
    EXPECT_TRUE(glIsList(before + 1)) << "its context may not be current";
    FenOglContextScope const scope(other);
    EXPECT_FALSE(glIsList(before + 1));
}

TEST_F(OglDisplayList, KeepsTheTexturesThatItBinds)
{
    FenOglDisplayList bound, uploaded;
    FenOglTexture const& ramp = cache->gradient({Qt::red, Qt::red}, 4, true);
    ramp.set();
    bound.begin(GL_COMPILE);
    show(ramp, QRect(0, 0, 50, 50));
    bound.end();
    uploaded.begin(GL_COMPILE); // the texture is made while the list records
    show(cache->gradient({Qt::blue, Qt::blue}, 4, true), QRect(50, 0, 50, 50));
    uploaded.end();
    cache->clear();
    bound.draw();
    uploaded.draw();
    show(cache->gradient({Qt::blue, Qt::blue}, 4, true), QRect(100, 0, 50, 50));
    Picture const shown = picture();
    EXPECT_EQ(2500, shown.count(Qt::red));
    EXPECT_EQ(5000, shown.count(Qt::blue));
}

} // namespace
