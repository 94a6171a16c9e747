#include "services/math/BoundingBox.h"
#include "services/math/Matrix.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/Ogl2D.h"
#include "services/opengl/OpenGLExtensions.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"
#include "services/properties/ModifiedGroup.h"
#include "services/properties/Viewport.h"
#include "tests/support/OffscreenGlTest.h"

#include <cmath>
#include <limits>

using Kes::Math::BoundingBox;
using Kes::Math::Matrix;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

class GlWrappers : public OffscreenGlTest { };

TEST_F(GlWrappers, LoadMultiplyAndReadMatricesInTheSameLayout)
{
    Matrix const turn = Matrix::rotate(Vector3(0, 0, 1), 90), move = Matrix::translation(Vector3(5, 0, 0));
    glLoadMatrix(move);
    glMultMatrix(turn);
    EXPECT_EQ(move * turn, glGetModelViewMatrix());
    glScale(Vector3(2, 3, 4));
    EXPECT_EQ(move * turn * Matrix::scaling(Vector3(2, 3, 4)), glGetModelViewMatrix());
    EXPECT_NEAR(2.0 / 400, glGetProjectionMatrix()(0, 0), 1e-7);
}

TEST_F(GlWrappers, ViewportsAreLogicalAtEveryPixelRatio)
{
    for (double const ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        fen::PixelRatioScope const scope(ratio);
        for (int x = 0; x < 40; ++x) {
            FenOglViewport const viewport(x, 2 * x + 1, 30 + x, 17 + 3 * x);
            glViewport(viewport);
            EXPECT_EQ(viewport, glGetViewport()) << "ratio " << ratio;
        }
    }
    fen::PixelRatioScope const broken(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(1, fen::pixelRatio());
    glViewport(FenOglViewport(10, 20, 200, 100));
    FenModifiedGroup group;
    FenViewport relative(group);
    relative.width.set(0.5);
    relative.placement.set("topRight");
    glViewport(relative);
    EXPECT_EQ(FenOglViewport(110, 20, 100, 100), glGetViewport());
    glViewport(FenOglViewport(0, 0, -5, -5)); // no error
}

TEST_F(GlWrappers, FitABoxIntoAViewportWithoutStretchingIt)
{
    struct {
        FenOglViewport viewport;
        BoundingBox box;
        float width, height; ///< of the box as a share of the viewport
    } const rows[] = {
        {{0, 0, 400, 200}, BoundingBox(Vector3(-3, -1, 0), Vector3(1, 1, 5)), 1, 1},
        {{0, 0, 200, 200}, BoundingBox(Vector3(0, 0, 0), Vector3(4, 1, 1)), 1, 0.25f},
        {{0, 0, 800, 200}, BoundingBox(Vector3(0, 0, 0), Vector3(1, 1, 1)), 0.25f, 1},
        {{0, 0, 200, 200}, BoundingBox(Vector3(7, 7, 7), Vector3(7, 7, 7)), 0, 0},
    };
    for (auto const& row : rows)
        for (double const degrees : {0.0, 90.0}) { // what the eye sees is the row's box
            Matrix const view = Matrix::rotate(Vector3(1, 0, 0), degrees);
            glMatrixMode(GL_PROJECTION);
            glLoadIdentity();
            glOrtho(row.viewport, row.box * view.inverse(), view);
            BoundingBox const clip = row.box * glGetProjectionMatrix();
            EXPECT_NEAR(row.width, 0.5f * clip.extent().x(), 1e-5);
            EXPECT_NEAR(row.height, 0.5f * clip.extent().y(), 1e-5);
            EXPECT_NEAR(0, clip.center().x(), 1e-4);
            EXPECT_NEAR(0, clip.center().y(), 1e-4);
            EXPECT_LT(clip.max().z(), 1) << "nothing on the far plane";
            EXPECT_GT(clip.min().z(), -1);
        }
    log.expect("bounding box of a projection");
    float const inf = std::numeric_limits<float>::infinity();
    glLoadIdentity();
    glOrtho(FenOglViewport(), BoundingBox(Vector3(-inf, 0, 0), Vector3(inf, 1, 1)), Matrix());
    glOrtho(FenOglViewport(), BoundingBox(), Matrix());
    for (float const far : {1e-40f, 1e-3f, 1e10f, 1e29f}) // a point, which has no extent, near and far
        glOrtho(FenOglViewport(), BoundingBox(Vector3(far, far, far), Vector3(far, far, far)), Matrix());
    EXPECT_EQ(GLenum(GL_NO_ERROR), glGetError());
    EXPECT_TRUE(std::isfinite(glGetProjectionMatrix()(0, 0)));
}

TEST_F(GlWrappers, PickThePixelUnderThePoint)
{
    auto const pickLine = [&](int x, int y, int size) {
        return pick(x, y, size, [] {
            glLoadName(7);
            fen::drawLine(Vector2(100.5f, 0), Vector2(100.5f, 300));
        });
    };
    EXPECT_EQ(std::vector<GLuint>{7}, pickLine(100, 50, 0)) << "sizes below 1 count as 1";
    EXPECT_TRUE(pickLine(99, 50, 1).empty());
    EXPECT_TRUE(pickLine(101, 50, -4).empty());
    EXPECT_FALSE(pickLine(102, 50, 5).empty());
    EXPECT_TRUE(pickLine(103, 50, 4).empty());
    gluPickMatrix(QPoint(0, 0), QSize(0, 0), FenOglViewport()); // no error
}

TEST_F(GlWrappers, SetColoursLightsAndStipples)
{
    GLfloat values[4] = {};
    glColor(QColor(255, 0, 51, 102));
    glGetFloatv(GL_CURRENT_COLOR, values);
    EXPECT_NEAR(0.2f, values[2], 1e-3);
    EXPECT_NEAR(0.4f, values[3], 1e-3);
    glLight(GL_LIGHT0, GL_POSITION, Vector3(1, 2, 3));
    glGetLightfv(GL_LIGHT0, GL_POSITION, values);
    EXPECT_EQ(1, values[3]) << "a position, not a direction";
    glLight(GL_LIGHT0, GL_DIFFUSE, QColor(0, 255, 0, 0));
    glGetLightfv(GL_LIGHT0, GL_DIFFUSE, values);
    EXPECT_EQ(1, values[1]);
    EXPECT_EQ(0, values[3]);

    fen::PixelRatioScope const ratio(2);
    GLint bits = 0, factor = 0;
    glLineStipple(3, "0x0F0F");
    glGetIntegerv(GL_LINE_STIPPLE_PATTERN, &bits);
    glGetIntegerv(GL_LINE_STIPPLE_REPEAT, &factor);
    EXPECT_EQ(0x0F0F, bits);
    EXPECT_EQ(6, factor);
    glLineStipple(-1000000, "solid");
    glGetIntegerv(GL_LINE_STIPPLE_REPEAT, &factor);
    EXPECT_EQ(2, factor);
    fen::lineWidth(1.5f);
    glGetFloatv(GL_LINE_WIDTH, values);
    EXPECT_EQ(3, values[0]);
    fen::lineWidth(std::numeric_limits<float>::quiet_NaN());
    fen::pointSize(0); // no error
    fen::pointSize(4);
    EXPECT_EQ(8, fen::devicePointSize());
}

TEST_F(GlWrappers, StippleWhatIsDrawn)
{
    glColor(Qt::black);
    glEnable(GL_LINE_STIPPLE);
    int y = 10;
    for (char const* name : {"solid", "dash", "dot", "dashDot"}) {
        glLineStipple(1, name);
        fen::drawLine(Vector2(0.5f, float(y) + 0.5f), Vector2(320.5f, float(y) + 0.5f));
        y += 10;
    }
    glEnable(GL_POLYGON_STIPPLE);
    int x = 10;
    for (char const* name : {"solid", "sparse", "dense", "horizontal", "vertical", "diagonal"}) {
        glPolygonStipple(name);
        fen::drawRectangle(float(x), 100, float(x + 32), 132);
        x += 40;
    }
    Picture const shown = picture();
    shown.magnified(2).save("stipples");
    auto const line = [&](int row) { return shown.count(Qt::black, QRect(0, 300 - 1 - row, 320, 1)); };
    EXPECT_EQ(320, line(10));
    EXPECT_EQ(160, line(20));
    EXPECT_EQ(160, line(30));
    EXPECT_EQ(200, line(40));
    auto const area = [&](int index) { return shown.count(Qt::black, QRect(10 + 40 * index, 168, 32, 32)); };
    EXPECT_EQ(1024, area(0));
    EXPECT_EQ(128, area(1));
    EXPECT_EQ(512, area(2));
}

TEST_F(GlWrappers, DrawInPixelsInsideThePixelMode)
{
    view3d(3);
    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    expectPassKeepsState([&] {
        FenOgl2D mode(viewport());
        mode.begin();
        mode.begin(); // once is enough
        glColor(Qt::red);
        fen::drawRectangle(10, 20, 13, 22);
        mode.end();
        mode.end();
    });
    expectPassKeepsState([&] { // left without an end, and over nothing
        FenOgl2D mode((FenOglViewport()));
        mode.begin();
    });
    EXPECT_EQ(QRect(10, 278, 3, 2), picture().boundingBox());
}

TEST_F(GlWrappers, KnowWhatTheContextCan)
{
    EXPECT_TRUE(fen::openGLHasSupport(fen::PointSprite));
    EXPECT_TRUE(fen::openGLHasSupport(fen::NonPowerOfTwo));
}

TEST_F(GlWrappers, VertexArraysDrawColoursRangesAndIndices)
{
    expectPassKeepsState([] {
        std::vector<Vector2> const row{Vector2(0, 10.5f), Vector2(10, 10.5f), Vector2(20, 10.5f),
                                       Vector2(30, 10.5f)};
        glColor(Qt::black);
        fen::drawArray(GL_LINE_STRIP, row, 1, 2);
        fen::drawArray(GL_LINE_STRIP, row, 3, 99); // one point: nothing
        fen::drawArray(GL_LINE_STRIP, row, 4, 1);
        fen::drawArray(GL_LINE_STRIP, std::vector<Vector3>());
        fen::VertexArrays triangles;
        for (float const x : {100.f, 110.f, 110.f, 100.f}) {
            float const y = triangles.positions.size() < 2 ? 100.f : 110.f;
            triangles.add(Vector3(x, y, 0), fen::Rgba(Qt::green));
        }
        triangles.draw(GL_TRIANGLES, {0, 1, 2, 0, 2, 3});
    });
    Picture const shown = picture();
    EXPECT_EQ(10, shown.count(Qt::black));
    EXPECT_EQ(100, shown.count(Qt::green));
    EXPECT_TRUE(shown.pixelGl(15, 10) == Qt::black);
}

} // namespace
