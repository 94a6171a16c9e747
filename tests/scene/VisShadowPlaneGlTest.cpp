#include "scene/VisPlane.h"
#include "scene/VisShadowPlane.h"
#include "services/math/Matrix.h"
#include "services/math/Plane.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/VertexArrays.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/RecordingNode.h"

#include <cmath>

using Kes::Math::BoundingBox, Kes::Math::Matrix, Kes::Math::Vector2, Kes::Math::Vector3;

namespace {

/// The plane z = 0 below a light 20 high; objects draw a square of 20 x 20 at height 10, which is
/// twice as large on the plane.
class VisShadowPlaneGl : public OffscreenGlTest {
protected:
    VisShadowPlaneGl()
    {
        passes.viewport = FenOglViewport(0, 0, 400, 300);
        list.insert(&plane, true);
        plane.rename("shadow");
        plane.light.set(Vector3(0, 0, 20));
    }
    RecordingNode& object(QString const& name)
    {
        auto* const node = new RecordingNode(group, name);
        node->box = BoundingBox(Vector3(0, 0, 10), Vector3(20, 20, 10));
        node->inside = [](FenVisualization::DrawContext const& context) {
            EXPECT_TRUE(context.flags & FenVisualization::KeepLightingFlag);
            std::vector<Vector3> const square = {Vector3(0, 0, 10), Vector3(20, 0, 10), Vector3(20, 20, 10),
                                                 Vector3(0, 20, 10)};
            fen::drawArray(GL_TRIANGLE_FAN, square);
        };
        list.insert(node, false);
        plane.objects.set(plane.objects.get() + QStringList(name));
        return *node;
    }
    Picture draw()
    {
        clear();
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(0, 400, 0, 300, -100, 100);
        glMatrixMode(GL_MODELVIEW);
        auto context = passes.draw();
        context.modelView = view;
        expectPassKeepsState([&] { plane.draw3d(context); });
        EXPECT_EQ(0u, context.flags);
        return picture();
    }
    static QRect square(int x, int y, int side) { return QRect(x, 300 - y - side, side, side); }

    Matrix view;
    Passes passes;
    FenModifiedGroup group;
    FenVisList list{group, "node"};
    FenVisShadowPlane plane{group};
};

} // namespace

TEST_F(VisShadowPlaneGl, FlattensItsObjectsAlongTheLightAndDarkensEachPixelOnce)
{
    object("a");
    object("b");
    view = Matrix::translation(Vector3(50, 30, 0));
    Picture const shadow = draw();
    EXPECT_EQ(square(100, 60, 40), shadow.boundingBox());
    EXPECT_TRUE(shadow.is(110, 300 - 70, QColor(127, 127, 127)));
    // In the middle of a shadow: the depth buffer and its mask are as they were.
    glEnable(GL_DEPTH_TEST);
    EXPECT_EQ(square(100, 60, 40), draw().boundingBox());
    plane.position.set(Vector3(0, 0, 10)); // through the objects: they are their own shadows
    plane.normal.set(Vector3(0, 0, -5));
    EXPECT_EQ(square(50, 30, 20), draw().boundingBox());
}

TEST_F(VisShadowPlaneGl, DrawsNothingWithoutObjectsOrLightAndReportsNamesThatNobodyHas)
{
    EXPECT_TRUE(draw().boundingBox().isNull());
    object("a");
    plane.objects.set({"gone", "a", "gone", "shadow"}); // itself too
    plane.normal.set(Vector3(0, 0, 3));
    EXPECT_EQ(square(0, 0, 40), draw().boundingBox());
    QStringList const lines = log.take();
    ASSERT_EQ(1, lines.size());
    EXPECT_TRUE(lines[0].startsWith("WARNING: object && \"Object to be shadowed no longer exists.\" - "));
    EXPECT_TRUE(lines[0].endsWith(" @line104"));
    plane.objects.set({"a"});
    struct Row {
        Vector3 position, normal, light;
    };
    Row const rows[] = {{{0, 0, 0}, {0, 0, 0}, {0, 0, 20}},
                        {{0, 0, 0}, {0, 0, 1}, {5, 5, 0}},
                        {{0, 0, 0}, {0, 0, 1}, {NAN, 0, 20}},
                        {{INFINITY, 0, 0}, {0, 0, 1}, {0, 0, 20}}};
    for (Row const& row : rows) {
        plane.position.set(row.position);
        plane.normal.set(row.normal);
        plane.light.set(row.light);
        EXPECT_TRUE(draw().boundingBox().isNull()) << row.light;
        EXPECT_FALSE(plane.boundingBox().defined());
    }
    FenVisShadowPlane alone(plane);
    alone.draw3d(passes.draw());
}

TEST_F(VisShadowPlaneGl, ShadowPlanesAndDisabledNodesCastNone)
{
    object("a").enabled.set(false);
    auto* const other = new FenVisShadowPlane(group);
    other->rename("other");
    other->enabled.set(true);
    other->objects.set({"a", "shadow"});
    list.insert(other, false);
    plane.enabled.set(true);
    plane.objects.set({"a", "other"});
    EXPECT_TRUE(draw().boundingBox().isNull());
    EXPECT_FALSE(list.boundingBox().max().x() > 20) << "and they widen no box";
}

TEST_F(VisShadowPlaneGl, ItsBoxHoldsTheShadowsAndStaysFinite)
{
    RecordingNode& node = object("a");
    EXPECT_EQ(BoundingBox(Vector3(0, 0, 0), Vector3(40, 40, 0)), plane.boundingBox());
    node.box = BoundingBox(Vector3(0, 0, 10), Vector3(20, 20, 99)); // past the light
    EXPECT_EQ(BoundingBox(Vector3(0, 0, 0), Vector3(40, 40, 0)), plane.boundingBox());
    node.box = BoundingBox(Vector3(0, 0, 20), Vector3(20, 20, 30));
    EXPECT_FALSE(plane.boundingBox().defined());
    node.box = BoundingBox();
    EXPECT_FALSE(plane.boundingBox().defined());
}

TEST_F(VisShadowPlaneGl, PlanesFollowTheNamesOfTheirSiblings)
{
    RecordingNode& node = object("a");
    auto* const section = new FenVisPlane(group);
    section->clipObjects.set({"b", "a"});
    section->colorMap.set("a");
    list.insert(section, false);
    node.rename("new");
    EXPECT_EQ(QStringList("new"), plane.objects.get());
    EXPECT_EQ(QStringList({"b", "new"}), section->clipObjects.get());
    EXPECT_EQ("new", section->colorMap.get());
    FenVisPlane const copy(*section);
    EXPECT_EQ(&copy.debug, copy.at("debug"));
}
