#include "host/camera/Camera.h"

#include "framework/DrawContext.h"
#include "framework/VisPassiveNode.h"
#include "host/camera/CameraPose.h"
#include "host/input/MouseTracker.h"
#include "host/scene/Scene.h"
#include "services/math/BoundingBox.h"
#include "services/opengl/GlScopes.h"
#include "tests/support/OffscreenGlTest.h"

#include <QUndoStack>

namespace {

using Kes::Math::BoundingBox;
using Kes::Math::Matrix;
using Kes::Math::Vector3;

/// A lit box away from the origin, in a viewport of its own.
class BoxNode : public FenVisPassiveNode {
public:
    using FenVisPassiveNode::FenVisPassiveNode;

    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override
    {
        own = parent;
        return true;
    }
    BoundingBox boundingBox() const override { return BoundingBox(Vector3(1, -2, 3), Vector3(5, 2, 4)); }
    void draw3d(DrawContext const& context) const override
    {
        fen::AttribScope const state(GL_LIGHTING_BIT | GL_CURRENT_BIT | GL_ENABLE_BIT);
        glEnable(GL_LIGHTING);
        Vector3 const low = boundingBox().min(), high = boundingBox().max();
        context.geometry.drawSolidBox(low.x(), low.y(), low.z(), high.x(), high.y(), high.z());
    }
};

class CameraGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        scene = std::make_unique<FenVisScene>();
        scene->add<BoxNode>(QStringLiteral("box")).lineColor.set(Qt::transparent);
        scene->resize(QSize(400, 300));
        scene->update();
        camera = std::make_unique<FenCamera>(*scene);
    }
    void TearDown() override
    {
        camera.reset();
        scene.reset();
        OffscreenGlTest::TearDown();
    }
    Picture draw()
    {
        scene->update();
        scene->draw();
        return picture();
    }

    std::unique_ptr<FenVisScene> scene;
    std::unique_ptr<FenCamera> camera;
};

} // namespace

TEST(CameraPose, AMatrixKeepsThePoseAndNoPoseIsTheIdentity)
{
    BoundingBox const box(Vector3(1, -2, 3), Vector3(5, 2, 4));
    for (fen::CameraPose const& pose :
         {fen::CameraPose{0, 90}, fen::CameraPose{180, -90}, fen::CameraPose{-170, 12, 3, 0.5, -0.25},
          fen::CameraPose{30, 0, 0.5, -0.5, 1}}) {
        Matrix const matrix = pose.matrix(box, 1.5);
        EXPECT_FALSE(matrix == Matrix());
        fen::CameraPose const again = fen::CameraPose::of(matrix, box, 1.5);
        EXPECT_NEAR(0, std::remainder(pose.azimuth - again.azimuth, 360), 1e-3);
        EXPECT_NEAR(pose.elevation, again.elevation, 0.05);
        EXPECT_NEAR(pose.zoom, again.zoom, 1e-5);
        EXPECT_NEAR(pose.panX, again.panX, 1e-4);
        EXPECT_NEAR(pose.panY, again.panY, 1e-4);
    }
    Matrix const front = fen::CameraPose::named(QStringLiteral("front"))->rotation();
    EXPECT_NEAR(1, (front * Vector3(0, 0, 1)).y(), 1e-6) << "z points up";
    EXPECT_NEAR(1, (front * Vector3(0, -1, 0)).z(), 1e-6) << "the viewer stands at -y";
    Matrix const right = fen::CameraPose::named(QStringLiteral("right"))->rotation();
    EXPECT_NEAR(1, (right * Vector3(1, 0, 0)).z(), 1e-6);
}

TEST_F(CameraGlTest, EachChangeShowsAndIsOneStep)
{
    Picture const untouched = draw();
    QRect const shown = untouched.boundingBox();
    EXPECT_TRUE(shown.left() > 10 && shown.right() < 390 && shown.top() > 10 && shown.bottom() < 290);
    EXPECT_TRUE(shown.width() > 300 || shown.height() > 230) << "it is fitted";
    EXPECT_EQ(4, untouched.colors()) << "three faces, each lit in its own way";
    EXPECT_FALSE(camera->look(QStringLiteral("iso")) && draw().differingPixels(untouched, 8) > 0)
        << "what is shown before anything was chosen";
    QUndoStack& steps = scene->undoStack();
    int const before = steps.count();
    EXPECT_TRUE(camera->look(QStringLiteral("top")));
    EXPECT_TRUE(camera->turn(30, 200));
    EXPECT_EQ(90, camera->elevation()) << "not past the pole";
    EXPECT_TRUE(camera->turn(30, 20));
    EXPECT_TRUE(camera->zoomTo(1e9));
    EXPECT_NEAR(100, camera->zoom(), 1e-3);
    EXPECT_TRUE(camera->fit());
    EXPECT_TRUE(camera->setPerspective(true));
    EXPECT_EQ(before + 6, steps.count());
    EXPECT_FALSE(camera->look(QStringLiteral("inside")));
    EXPECT_NE(0, draw().differingPixels(untouched));
    while (steps.canUndo()) steps.undo();
    EXPECT_EQ(0, draw().differingPixels(untouched));
}

TEST_F(CameraGlTest, TheMouseTurnsMovesAndZoomsAtThePointer)
{
    FenMouseTracker tracker(*scene);
    auto const drag = [&](Qt::MouseButton button, QPoint way) {
        tracker.press(QPoint(200, 150), button);
        tracker.move(QPoint(200, 150) + way / 2);
        tracker.move(QPoint(200, 150) + way);
        tracker.release(QPoint(200, 150) + way, button);
    };
    double const azimuth = camera->azimuth();
    drag(Qt::LeftButton, QPoint(75, 0));
    EXPECT_NEAR(azimuth - 45, camera->azimuth(), 0.1) << "a quarter of the height";
    Picture const turned = draw();
    drag(Qt::RightButton, QPoint(40, 20));
    EXPECT_NEAR(turned.boundingBox().left() + 40, draw().boundingBox().left(), 2);
    EXPECT_EQ(2, scene->undoStack().count());
    EXPECT_TRUE(tracker.wheel(QPoint(100, 75), 2));
    EXPECT_GT(camera->zoom(), 1.5);
    for (int i = 0; i < 40; ++i) {
        tracker.wheel(QPoint(10, 10), -3);
        drag(Qt::RightButton, QPoint(150, 100));
    }
    EXPECT_FALSE(draw().boundingBox().isEmpty()) << "it cannot be lost";
    EXPECT_TRUE(tracker.doubleClick(QPoint(5, 5), Qt::LeftButton));
    EXPECT_NEAR(1, camera->zoom(), 1e-5);
    EXPECT_TRUE(tracker.key(Qt::Key_5));
    EXPECT_NEAR(90, camera->elevation(), 0.05);
}
