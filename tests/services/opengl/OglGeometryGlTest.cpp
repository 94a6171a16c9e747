#include "services/math/Matrix.h"
#include "services/opengl/GlScopes.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglTessellator.h"
#include "services/opengl/OglTexture.h"
#include "tests/support/OffscreenGlTest.h"

#include <limits>

using Kes::Math::Matrix;
using Kes::Math::Vector3;

namespace {

double const nan = std::numeric_limits<double>::quiet_NaN();

class OglGeometryGl : public OffscreenGlTest { };

TEST_F(OglGeometryGl, SolidsAreClosedAndWoundOutwards)
{
    // Drawn from a side with only the front faces: full area; with only the back faces: the same outline,
    // since every ray through a closed body leaves it again.
    struct Solid {
        char const* name;
        std::function<void()> draw;
        double area; ///< [px] of its outline seen along -y, 100 px per unit
    };
    Solid const solids[] = {
        {"box", [] { FenOglGeometry::drawSolidBox(1, -.5, 1, -1, .5, -.5); }, 200 * 150},
        {"box as textured", [] { FenOglGeometry::drawTexturedBox(1, 0, 1, -1, -.5, -.5, 1, .5, 1); },
         200 * 150},
        {"sphere", [] { FenOglGeometry::drawSolidSphere(Vector3(0, 0, 0), 1); }, 3.1416 * 100 * 100},
        {"cone", [] { FenOglGeometry::drawSolidCone(Vector3(-1, 0, 0), Vector3(1, 0, 0), .5); }, 100 * 100},
        {"cylinder",
         [] { FenOglGeometry::drawSolidCylinder(Vector3(0, 0, -1), Vector3(0, 0, 1), .5, .5, 0, 0); },
         100 * 200},
        {"frustum",
         [] { FenOglGeometry::drawSolidCylinder(Vector3(0, 0, -1), Vector3(0, 0, 1), 1, .5, 0, 0); },
         150 * 200},
    };
    for (Solid const& solid : solids)
        for (GLenum const cull : {GL_BACK, GL_FRONT}) {
            clear();
            glMatrixMode(GL_PROJECTION);
            glLoadIdentity();
            glOrtho(-2, 2, -1.5, 1.5, -5, 5);
            glMatrixMode(GL_MODELVIEW);
            glLoadIdentity();
            gluLookAt(0, -1, 0, 0, 0, 0, 0, 0, 1);
            glEnable(GL_CULL_FACE);
            glCullFace(cull);
            glColor(Qt::blue);
            expectPassKeepsState(solid.draw);
            EXPECT_NEAR(solid.area, picture().count(Qt::blue), 0.025 * solid.area) << solid.name;
        }
}

TEST_F(OglGeometryGl, SolidsAreLitFromTheRightSide)
{
    resizePicture(600, 400);
    clear(QColor(40, 40, 50));
    view3d(2);
    GLfloat const fromAbove[] = {0, 0, 1, 0};
    glLightfv(GL_LIGHT0, GL_POSITION, fromAbove);
    glColor(Qt::red);
    geometry.drawSolidSphere(Vector3(-1.2f, 1.2f, 0), 0.6);
    glColor(Qt::green);
    geometry.drawSolidBox(-.4, -.4, -.4, .4, .4, .4);
    glColor(Qt::white);
    geometry.drawWireBox(-.5, -.5, -.5, .5, .5, .5);
    geometry.drawWireSphere(Vector3(1.3f, 1.3f, 0), .5);
    glColor(Qt::cyan);
    geometry.drawSolidCone(Vector3(1, -1, 0), Vector3(1, -1, 1), .4);
    glColor(Qt::yellow);
    geometry.drawSolidCylinder(Vector3(-1, -1, -.5f), Vector3(-1, -1, .5f), .3, .3, 0, .2);
    Picture const shown = picture();
    shown.save("solids");
    auto const lit = [&](Vector3 const& point) {
        GLint const area[] = {0, 0, 600, 400};
        Vector3 const at = point.project(glGetModelViewMatrix(), glGetProjectionMatrix(), area);
        return shown.pixelGl(int(at.x()), int(at.y()));
    };
    EXPECT_GT(lit(Vector3(0, 0, .4f)).green(), 200) << "the top of the box";
    EXPECT_LT(lit(Vector3(0, -.4f, 0)).green(), 120) << "its side";
    EXPECT_GT(lit(Vector3(-1.2f, 1.2f, .6f)).red(), 200);
    EXPECT_LT(lit(Vector3(-1.1f, .62f, 0)).red(), 120);
    EXPECT_GT(shown.count(Qt::cyan, 250), 500);
    EXPECT_GT(lit(Vector3(-1, -1.25f, .5f)).green(), 150) << "rim of the cylinder's open end";
    EXPECT_LT(lit(Vector3(-1, -.87f, .5f)).green(), 120) << "inside its hole";
}

TEST_F(OglGeometryGl, TexturesRunUpBoxesAndAlongSections)
{
    glEnable(GL_TEXTURE_2D);
    glColor(Qt::white);
    cache->gradient({Qt::red, Qt::blue}, 2, true).set();
    glMatrixMode(GL_MODELVIEW);
    glMultMatrix(Matrix::rotate(Vector3(1, 0, 0), -90)); // z upwards on the screen
    geometry.drawTexturedBox(1, 0, 1, 0, 0, 0, 50, .5, 100);
    geometry.drawTexturedBox(1, 1, 0, 60, 0, 100, 110, .5, 0);
    geometry.drawSectionTexturedTriangleStrip(1, true, 0, 120, 0, 100, 170, 0, 100, 0, 1, 1);
    geometry.drawSectionTexturedTriangleStrip(1, true, 0, 180, 0, 100, 230, 0, 100, 1, 0, 0);
    glLoadIdentity();
    geometry.drawSectionTexturedTriangleStrip(4, false, 10, 240, 110, 0, 290, 110, 0, 0, 1, 1);
    Picture const shown = picture();
    shown.save("textured boxes");
    for (int const x : {25, 85, 145}) {
        EXPECT_TRUE(shown.pixelGl(x, 20) == Qt::red) << x;
        EXPECT_TRUE(shown.pixelGl(x, 80) == Qt::blue) << x;
    }
    EXPECT_TRUE(shown.pixelGl(205, 20) == Qt::blue);
    EXPECT_TRUE(shown.pixelGl(265, 30) == Qt::red && shown.pixelGl(265, 90) == Qt::blue);
}

TEST_F(OglGeometryGl, SectionsThatCrossTheirBaseAreTwoTriangles)
{
    glColor(Qt::black);
    geometry.drawSectionSolidTriangleStrip(1, false, 100, 50, 50, 0, 150, 150, 0);
    geometry.drawSectionSolidTriangleStrip(0, false, 100, 200, 150, 0, 300, 150, 0);
    Picture const shown = picture();
    EXPECT_NEAR(2 * 50 * 50 / 2, shown.count(Qt::black, QRect(50, 0, 101, 300)), 60);
    EXPECT_EQ(100 * 50, shown.count(Qt::black, QRect(200, 0, 100, 300)));
    EXPECT_TRUE(shown.pixelGl(55, 90) == Qt::black && shown.pixelGl(145, 110) == Qt::black);
    EXPECT_TRUE(shown.pixelGl(55, 110) == Qt::white && shown.pixelGl(145, 90) == Qt::white);
}

TEST_F(OglGeometryGl, RectanglesFollowTheirMatrix)
{
    Matrix const move = Matrix::translation(Vector3(100, 50, 0));
    glColor(Qt::red);
    geometry.drawSolidRectangle(Vector3(0, 0, 0), Vector3(40, 20, 0), move);
    glColor(Qt::blue);
    geometry.drawWireRectangle(Vector3(100.5f, 0.5f, 0), Vector3(140.5f, 20.5f, 0), move);
    Picture const shown = picture();
    EXPECT_EQ(40 * 20, shown.count(Qt::red));
    EXPECT_TRUE(shown.pixelGl(100, 50) == Qt::red && shown.pixelGl(139, 69) == Qt::red);
    EXPECT_NEAR(2 * 40 + 2 * 20, shown.count(Qt::blue), 2);
}

TEST_F(OglGeometryGl, SolidsArePickedWhereTheyAreSeen)
{
    auto const hit = [&](int x, int y, std::function<void()> const& draw) {
        return !pick(x, y, 1, draw).empty();
    };
    EXPECT_TRUE(hit(100, 100, [] { FenOglGeometry::drawSolidSphere(Vector3(100, 100, 0), 0.9); }));
    auto const cylinder = [] {
        FenOglGeometry::drawSolidCylinder(Vector3(50, 50, 0), Vector3(150, 50, 0), .9, .9, 0, 0);
    };
    EXPECT_TRUE(hit(100, 50, cylinder));
    EXPECT_FALSE(hit(100, 53, cylinder));
    auto const point = [&] {
        geometry.drawTexturedPoint(*cache, Vector3(20.5f, 20.5f, 0), "plotSymbols.png", 3, Qt::red, Qt::black,
                                   true);
    };
    EXPECT_TRUE(hit(20, 20, point));
    EXPECT_FALSE(hit(25, 20, point));
}

TEST_F(OglGeometryGl, DrawsNothingForSizesThatAreNoNumbers)
{
    glColor(Qt::black);
    expectPassKeepsState([&] {
        geometry.drawSolidBox(nan, 0, 0, 1, 1, 1);
        geometry.drawWireBox(0, 0, nan, 1, 1, 1);
        geometry.drawSolidSphere(Vector3(100, 100, 0), nan);
        geometry.drawSolidSphere(Vector3(100, 100, 0), -5);
        geometry.drawSolidCone(Vector3(5, 5, 5), Vector3(5, 5, 5), 10);
        geometry.drawSolidCylinder(Vector3(0, 0, 0), Vector3(1, 1, 1), nan, 1, 0, 0);
        geometry.drawSectionSolidTriangleStrip(1, true, nan, 0, 0, 0, 1, 1, 1);
        geometry.drawHighlightedPoint(Vector3(50, 50, 0), nan);
        geometry.drawHighlightedLine(nan, {Vector3(), Vector3(100, 100, 0)});
        geometry.drawHighlightedLine(1, {});
    });
    EXPECT_TRUE(picture().boundingBox().isNull());
}

TEST_F(OglGeometryGl, GlowsAreStrongestInTheMiddle)
{
    expectPassKeepsState([&] {
        geometry.drawHighlightedPoint(Vector3(100, 100, 0), 10);
        geometry.drawHighlightedPoint(Vector3(200, 100, 0), 30);
        geometry.drawHighlightedLine(3, {Vector3(50, 200.5f, 0), Vector3(150, 200.5f, 0)});
        geometry.drawHighlightedLine(3, {Vector3(250, 180, 0), Vector3(300, 180, 0), Vector3(300, 230, 0)},
                                     true);
    });
    Picture const shown = picture();
    shown.magnified(2).save("glows");
    auto const strength = [&](int x, int y) { return 255 - shown.pixelGl(x, y).blue(); };
    EXPECT_GT(strength(100, 100), strength(106, 100));
    EXPECT_GT(strength(106, 100), strength(108, 100));
    EXPECT_EQ(0, strength(110, 100)) << "9 pixels around a point of 10 with a glow of 8";
    EXPECT_EQ(0, strength(92, 92)) << "round";
    EXPECT_GT(strength(213, 100), 100);
    EXPECT_GT(strength(100, 200), strength(100, 203));
    EXPECT_GT(strength(100, 203), strength(100, 205));
    EXPECT_EQ(0, strength(100, 208));
    EXPECT_GT(strength(275, 205), 0) << "closed";
}

TEST_F(OglGeometryGl, TessellatorCutsHolesAndCrossings)
{
    FenOglTessellator tessellator;
    glColor(Qt::black);
    auto const square = [&](float x, float y, float side) {
        tessellator.beginContour();
        tessellator.vertex(x, y);
        tessellator.vertex(Vector3(x + side, y, 0));
        tessellator.vertex(x + side, y + side);
        tessellator.vertex(x, y + side);
        tessellator.endContour();
    };
    expectPassKeepsState([&] {
        tessellator.beginPolygon();
        square(10, 10, 100);
        square(40, 40, 20);
        tessellator.endPolygon();
        tessellator.beginPolygon();
        tessellator.beginContour();
        for (auto const& [x, y] : {std::pair(200.f, 10.f), {300.f, 110.f}, {200.f, 110.f}, {300.f, 10.f}})
            tessellator.vertex(x, y); // a bow tie: GLU adds the crossing
        tessellator.endContour();
        tessellator.endPolygon();
    });
    Picture shown = picture();
    EXPECT_EQ(100 * 100 - 20 * 20, shown.count(Qt::black, QRect(0, 0, 150, 300)));
    EXPECT_TRUE(shown.pixelGl(50, 50) == Qt::white);
    EXPECT_NEAR(100 * 100 / 2, shown.count(Qt::black, QRect(190, 0, 150, 300)), 110);
    EXPECT_TRUE(shown.pixelGl(205, 60) == Qt::white && shown.pixelGl(250, 20) == Qt::black);

    clear();
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    for (bool const boundary : {false, true}) {
        clear();
        tessellator.boundary(boundary);
        tessellator.beginPolygon();
        square(50.5f, 50.5f, 100);
        tessellator.endPolygon();
        int const inside = picture().count(Qt::black, QRect(60, 160, 80, 80));
        EXPECT_EQ(boundary, inside == 0) << "the diagonal between the triangles";
        EXPECT_GT(picture().count(Qt::black), 390);
    }
}

TEST_F(OglGeometryGl, TessellatorIgnoresWhatMakesNoSense)
{
    log.expect("not finite is left out");
    expectPassKeepsState([&] {
        FenOglTessellator tessellator;
        tessellator.vertex(1, 1);
        tessellator.endContour();
        tessellator.endPolygon();
        tessellator.beginPolygon();
        tessellator.beginPolygon();
        tessellator.beginContour();
        tessellator.vertex(float(nan), 0);
        tessellator.vertex(5, 5);
        tessellator.endPolygon(); // refused: the contour is open
        tessellator.endContour();
        tessellator.endPolygon();
        tessellator.beginPolygon();
        tessellator.beginContour(); // left open
    });
    EXPECT_TRUE(picture().boundingBox().isNull());
}

} // namespace
