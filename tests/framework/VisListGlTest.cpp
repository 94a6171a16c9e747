#include "services/opengl/GlWrappers.h"
#include "services/opengl/VertexArrays.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/RecordingNode.h"

namespace {

using Kes::Math::Matrix, Kes::Math::Vector2, Kes::Math::Vector3;

class VisListGl : public OffscreenGlTest {
protected:
    RecordingNode& add(FenOglViewport const& own)
    {
        auto* const node = new RecordingNode(group);
        node->own = own;
        list.insert(node, false);
        list.update(passes.draw());
        return *node;
    }
    void draw()
    {
        clear();
        pixelMode();
        expectPassKeepsState([&] { list.draw2d(passes.draw()); });
    }
    Passes passes;
    FenModifiedGroup group;
    FenVisList list{group, "node"};
};

} // namespace

TEST_F(VisListGl, FramesAChildAndLaysTheVeilOverItAfterItHasDrawn)
{
    RecordingNode& node = add(FenOglViewport(100, 50, 40, 30));
    draw();
    EXPECT_EQ(QRect(100, 300 - 80, 40, 30), picture().boundingBox());
    EXPECT_EQ(2 * 40 + 2 * 28, picture().count(QColor(Qt::lightGray))); // nothing but the outermost pixels
    node.lineColor.set(Qt::transparent);
    node.fillColor.set(QColor(0, 0, 255, 128));
    node.inside = [](FenVisualization::DrawContext const&) {
        glColor(Qt::black);
        fen::drawRectangle(0.0f, 0.0f, 20.0f, 30.0f); // the left half, in the child's own pixels
    };
    draw();
    EXPECT_TRUE(picture().is(110, 300 - 60, QColor(0, 0, 128)));
    EXPECT_TRUE(picture().is(130, 300 - 60, QColor(127, 127, 255)));
    EXPECT_EQ(QRect(100, 300 - 80, 40, 30), picture().boundingBox());
    node.inside = {};
    node.own = FenOglViewport(10, 10, 0, 30);
    draw();
    EXPECT_TRUE(picture().boundingBox().isNull());
}

TEST_F(VisListGl, GivesAChildItsOwnPixelsFitsItsBoxAndTakesBothBack)
{
    FenOglViewport const own(100, 50, 40, 30);
    RecordingNode& node = add(own);
    node.box = Kes::Math::BoundingBox(Vector3(-9, -9, -9), Vector3(9, 9, 9));
    int asked = 0;
    bool flat = true;
    node.inside = [&](FenVisualization::DrawContext const& context) {
        ++asked;
        EXPECT_EQ(own, context.viewport);
        EXPECT_EQ(own, node.getDataViewport());
        EXPECT_EQ(flat ? Matrix() : glGetProjectionMatrix(), context.projection);
        EXPECT_EQ(flat ? glGetModelViewMatrix() : Matrix(), context.modelView);
        Vector3 const corner =
            flat ? context.modelView * Vector3(40, 30, 0) : context.projection * Vector3(12, 9, 9);
        EXPECT_NEAR(0.0, (Vector2(corner) - Vector2(1, 1)).length(), 1e-5);
        EXPECT_LT(-1.0f, corner.z());
    };
    expectPassKeepsState([&] {
        list.resize(passes.draw());
        list.draw2d(passes.draw());
        list.select2d(passes.select(QPoint(100, 79)));
        flat = false;
        list.draw3d(passes.draw());
        list.select3d(passes.select(QPoint(100, 79)));
    });
    EXPECT_EQ(5, asked);
    EXPECT_EQ(QPoint(0, 29), node.picked);
}

TEST_F(VisListGl, APickInsideAPickFindsNothingAndLogsOneCheck)
{
    RecordingNode& node = add(viewport());
    node.inside = [&](FenVisualization::DrawContext const&) { ADD_FAILURE() << "must not be asked"; };
    pick(10, 10, 3, [&] { EXPECT_EQ(0u, list.select2d(passes.select(QPoint(10, 10))).size()); });
    EXPECT_EQ(1, log.take().filter("renderMode == GL_RENDER").size());
}

TEST_F(VisListGl, EveryTypeSurvivesEveryPassWithoutRoomAndLeavesNoTrace)
{
    for (QString const& type : FenVisList::creatableTypes()) {
        SCOPED_TRACE(type.toStdString());
        FenVisualization& node = list.child("node", type);
        node.enabled.set(true);
        node.selectable.set(true);
        for (QSize const& size : {QSize(400, 300), QSize(1, 1)}) {
            resizePicture(size.width(), size.height());
            expectPassKeepsState([&] {
                list.update(passes.draw());
                list.resize(passes.draw());
                list.draw3d(passes.draw());
                list.draw2d(passes.draw());
                for (QPoint const& point : {QPoint(0, 0), QPoint(200, 150), QPoint(-5, 9999)})
                    for (int const side : {3, 0, -1, 9999}) {
                        list.select2d(passes.select(point, QSize(side, side)));
                        list.select3d(passes.select(point, QSize(side, side)));
                    }
            });
            EXPECT_FALSE(node.watcher().modified()) << "a pass of an unchanged node changes nothing";
        }
        EXPECT_TRUE(list.erase(&node));
    }
}
