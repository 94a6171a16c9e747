#include "host/scene/Scene.h"

#include "charts/chart2d/VisChart2D.h"
#include "host/headless/OffscreenContext.h"
#include "tests/host/ProbeNode.h"
#include "tests/support/OffscreenGlTest.h"

#include <QUndoStack>

#include <limits>

namespace {

using Kes::Math::Vector3;

class SceneGlTest : public OffscreenGlTest {
protected:
    /// A chart with one thick red curve.
    FenVisChart2D& addChart(FenVisScene& scene)
    {
        FenVisChart2D& plot = scene.add<FenVisChart2D>(QStringLiteral("plot"));
        FenChartVariable& curve = plot.chart.variables.append(QStringLiteral("curve"));
        curve.setData(Vector3::CompY, {0, 1, 4, 9, 16});
        curve.lineColor.set(Qt::red);
        curve.lineWidth.set(5);
        return plot;
    }
    Picture draw(FenVisScene& scene, QSize size = QSize(400, 300), double ratio = 1)
    {
        scene.resize(size, ratio);
        scene.update();
        scene.draw();
        return picture();
    }
};

TEST_F(SceneGlTest, DrawsOnItsBackgroundAndLeavesAllStateAsItWas)
{
    FenVisScene scene;
    addChart(scene);
    scene.background.set(QColor(10, 20, 30));
    glEnable(GL_SCISSOR_TEST); // whatever the caller left
    glScissor(0, 0, 5, 5);
    glColorMask(GL_FALSE, GL_TRUE, GL_TRUE, GL_TRUE);
    scene.resize(QSize(400, 300));
    expectPassKeepsState([&] { scene.update(); });
    expectPassKeepsState([&] { scene.draw(); });
    expectPassKeepsState([&] { scene.select(QPoint(200, 150), QSize(6, 6)); });
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDisable(GL_SCISSOR_TEST);
    EXPECT_TRUE(picture().is(399, 0, QColor(10, 20, 30)));
    EXPECT_GT(picture().count(Qt::red), 300);
}

TEST_F(SceneGlTest, NothingIsDoneForAnUnchangedScene)
{
    FenVisScene scene;
    FenVisChart2D& plot = addChart(scene);
    ProbeNode& probe = scene.add<ProbeNode>(QStringLiteral("probe"));
    EXPECT_TRUE(scene.modified());
    draw(scene);
    EXPECT_FALSE(scene.modified());
    EXPECT_FALSE(plot.watcher().modified());
    draw(scene);
    EXPECT_EQ(1, probe.updates);
    EXPECT_EQ(1, probe.resizes);
    draw(scene, QSize(399, 300));
    EXPECT_EQ(1, probe.updates);
    EXPECT_EQ(2, probe.resizes);
    probe.x.set(5);
    EXPECT_TRUE(scene.modified());
    draw(scene, QSize(399, 300));
    EXPECT_EQ(2, probe.updates);
    EXPECT_EQ(3, probe.resizes);
    plot.chart.title.set(QStringLiteral("title"));
    draw(scene, QSize(399, 300));
    EXPECT_EQ(3, probe.resizes) << "only what changed is laid out again";
    EXPECT_EQ(0, scene.undoStack().count()) << "ranges that passes found are no steps";
}

TEST_F(SceneGlTest, AnotherContextDrawsTheSamePicture)
{
    FenVisScene scene;
    addChart(scene);
    Picture const first = draw(scene);
    {
        FenOffscreenContext other(QSize(400, 300));
        ASSERT_TRUE(other.valid());
        scene.contextChanged();
        scene.update();
        scene.draw();
        EXPECT_EQ(0, first.differingPixels(Picture(other.grab())));
        scene.contextChanged();
    }
    context().makeCurrent();
    clear();
    EXPECT_EQ(0, first.differingPixels(draw(scene)));
}

TEST_F(SceneGlTest, SizesAndContextsMayBeMissing)
{
    FenVisScene scene;
    addChart(scene);
    for (QSize const size : {QSize(), QSize(0, 0), QSize(1, 1), QSize(400, 0), QSize(-5, 7)}) {
        for (double const ratio : {1.0, 0.0, -1.0, std::numeric_limits<double>::quiet_NaN()})
            draw(scene, size, ratio);
        scene.select(QPoint(0, 0), QSize());
    }
    constexpr int largest = std::numeric_limits<int>::max();
    scene.resize(QSize(largest, largest), 2);
    EXPECT_EQ(QSize(8192, 8192), scene.size());
    EXPECT_EQ(1, log.take().size());
    context().doneCurrent();
    FenVisScene early;
    addChart(early);
    early.resize(QSize(400, 300));
    early.update();
    early.draw();
    EXPECT_EQ(0u, early.select(QPoint(200, 150), QSize(6, 6)).size());
    context().makeCurrent();
    clear();
    early.draw();
    EXPECT_GT(picture().count(Qt::red), 300) << "what was recorded without a context is made again";
}

} // namespace
