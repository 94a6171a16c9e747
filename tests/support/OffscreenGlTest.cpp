#include "tests/support/OffscreenGlTest.h"

#include "host/headless/OffscreenContext.h"
#include "services/opengl/GlWrappers.h"
#include "tests/support/GlState.h"

#include <array>
#include <string>

namespace {

std::string glErrors()
{
    std::string text;
    for (int i = 0; i < 10; ++i) { // a lost context reports errors without end
        GLenum const error = glGetError();
        if (error == GL_NO_ERROR) break;
        text += QString(" 0x%1").arg(error, 0, 16).toStdString();
    }
    return text;
}

} // namespace

OffscreenGlTest::OffscreenGlTest() = default;
OffscreenGlTest::~OffscreenGlTest() = default;

FenOffscreenContext& OffscreenGlTest::context()
{
    // Never destroyed: drivers unload in an order of their own at the end of the process.
    static auto* const shared = new FenOffscreenContext(QSize(400, 300));
    return *shared;
}

void OffscreenGlTest::SetUp()
{
    ASSERT_TRUE(context().valid()) << context().error().toStdString();
    ASSERT_TRUE(context().makeCurrent());
    context().resize(QSize(_width, _height));
    // Tests set what they like; the next one starts from the defaults again.
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    cache = std::make_unique<FenOglCache>(resource);
    text = std::make_unique<FenOglText>(*cache);
    clear();
    pixelMode();
    ASSERT_EQ("", glErrors());
}

void OffscreenGlTest::TearDown()
{
    EXPECT_EQ("", glErrors()) << "OpenGL errors at the end";
    auto const value = [](GLenum key) {
        GLint number = 0;
        glGetIntegerv(key, &number);
        return number;
    };
    EXPECT_EQ(GL_RENDER, value(GL_RENDER_MODE));
    EXPECT_EQ(0, value(GL_LIST_INDEX)) << "a display list is still open";
    EXPECT_EQ(1, value(GL_ATTRIB_STACK_DEPTH)) << "attributes pushed and not popped, or the reverse";
    EXPECT_EQ(0, value(GL_CLIENT_ATTRIB_STACK_DEPTH));
    EXPECT_EQ(1, value(GL_MODELVIEW_STACK_DEPTH));
    EXPECT_EQ(1, value(GL_PROJECTION_STACK_DEPTH));
    while (value(GL_ATTRIB_STACK_DEPTH) > 0) glPopAttrib();
    text.reset();
    cache.reset();
    log.check();
}

void OffscreenGlTest::resizePicture(int width, int height)
{
    _width = width;
    _height = height;
    ASSERT_TRUE(context().resize(QSize(width, height)));
    clear();
    pixelMode();
}

void OffscreenGlTest::clear(QColor const& color)
{
    glClearColor(color.redF(), color.greenF(), color.blueF(), 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

void OffscreenGlTest::pixelMode()
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluOrtho2D(viewport());
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void OffscreenGlTest::view3d(double extent)
{
    double const aspect = double(_width) / _height;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(-extent * aspect, extent * aspect, -extent, extent, -10 * extent, 10 * extent);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(1, -1.5, 1, 0, 0, 0, 0, 0, 1);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_NORMALIZE);
}

Picture OffscreenGlTest::picture() const { return Picture(context().grab()); }

void OffscreenGlTest::expectPassKeepsState(std::function<void()> const& pass)
{
    EXPECT_EQ("", glErrors()) << "OpenGL errors before the pass";
    GlState const before = GlState::now();
    pass();
    EXPECT_EQ("", glErrors()) << "OpenGL errors in the pass";
    QStringList const differences = before.differences(GlState::now());
    EXPECT_TRUE(differences.isEmpty()) << "state changed: " << differences.join("; ").toStdString();
}

std::vector<GLuint> OffscreenGlTest::pick(int x, int y, int size, std::function<void()> const& draw)
{
    std::array<GLuint, 4096> buffer{};
    glSelectBuffer(GLsizei(buffer.size()), buffer.data());
    std::array<GLdouble, 16> projection{};
    glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluPickMatrix(QPoint(x, y), QSize(size, size), viewport());
    glMultMatrixd(projection.data());
    glMatrixMode(GL_MODELVIEW);
    glRenderMode(GL_SELECT);
    glInitNames();
    glPushName(0);
    draw();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    GLint const hits = glRenderMode(GL_RENDER);
    std::vector<GLuint> names;
    GLuint const* record = buffer.data();
    for (GLint i = 0; i < hits; ++i, record += 3 + record[0])
        if (record[0] > 0) names.push_back(record[2 + record[0]]);
    return names;
}
