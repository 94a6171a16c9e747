#include "charts/chart2d/VisChart2D.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SceneBuilder.h"

#include <gtest/gtest.h>

// Update and resize measure texts but draw nothing, so none of this needs a context.

TEST(VisChart2D, LeavesTheRimAndTheTitleBandFree)
{
    struct Row {
        QSize size;
        char const* title;
        FenOglViewport data; // inside the margins of axes that are not shown, 13 px each
    };
    Row const rows[] = {{{400, 300}, "", {20, 20, 360, 260}},
                        {{400, 300}, "Title", {20, 20, 360, 239}},
                        {{41, 41}, "", {20, 20, 1, 1}},
                        {{40, 41}, "", {}},
                        {{12, 300}, "", {}},
                        {{1, 1}, "Title", {}}};
    for (Row const& row : rows) {
        ChartScene scene(row.size);
        scene.chart->chart.title.set(QString::fromLatin1(row.title));
        scene.axis("x").shown.set(false);
        scene.axis("y").shown.set(false);
        scene.line("a", {{0, 0}, {1, 1}});
        scene.update();
        EXPECT_EQ(row.data, scene.data()) << row.size.width() << 'x' << row.size.height() << row.title;
    }
}

TEST(VisChart2D, WritesFoundRangesBackOnceAndIsQuietThen)
{
    ChartScene scene;
    scene.line("a", {{0, -50}, {10, 100}});
    scene.range("x", 2, 8);
    scene.update();
    ASSERT_EQ(4, scene.edits.size()) << scene.edits.join(' ').toStdString();
    EXPECT_EQ("begin", scene.edits[0]);
    EXPECT_TRUE(scene.edits[1].startsWith("y.min=-")) << scene.edits[1].toStdString();
    EXPECT_TRUE(scene.edits[2].startsWith("y.max=1")) << scene.edits[2].toStdString();
    EXPECT_EQ("end", scene.edits[3]);
    scene.chart->watcher().reset();
    scene.update();
    scene.resize(QSize(900, 700));
    EXPECT_EQ(4, scene.edits.size());
    EXPECT_FALSE(scene.chart->watcher().modified());
}

TEST(VisChart2D, SurvivesAHostThatDeletesChartOrAxisWhenItIsToldOfARange)
{
    struct Row {
        char const* what;
        std::function<void(ChartScene&)> remove;
        QStringList edits;
    };
    Row const rows[] = {{"chart", [](ChartScene& s) { s.chart.reset(); }, {"begin", "x.min=-0.02", "end"}},
                        {"axis",
                         [](ChartScene& s) { s.chart->chart.xAxes.setFirst("x", QString()); },
                         {"begin", "x.min=-0.02", "end", "begin", "y.min=2.8", "y.max=7.2", "end"}}};
    for (Row const& row : rows) {
        ChartScene scene;
        scene.line("a", {{0, 3}, {1, 7}});
        scene.onEdit = [&] { row.remove(scene); };
        scene.update();
        EXPECT_EQ(row.edits, scene.edits.mid(0, row.edits.size())) << row.what;
        EXPECT_EQ(scene.edits.count("begin"), scene.edits.count("end")) << row.what;
    }
}

TEST(VisChart2D, TellsWhichVariablesAreFitToBeDrawn)
{
    ChartScene scene;
    scene.line("lost", {{0, 0}}).yAxis.set("no such axis"); // the first, so that indices differ
    scene.line("good", {{0, 3}, {1, 7}});
    scene.line("hidden", {{0, 0}}).visible.set(false);
    scene.update();
    FenChartValidVariableList const valid = scene.chart->validVariables();
    ASSERT_EQ(1u, valid.size());
    EXPECT_EQ("good", valid.variable(0).name());
    EXPECT_EQ(Kes::Math::Vector2(3, 7), valid.minmax(0));
    Kes::Math::Vector2 range;
    scene.chart->gradientExtents(1, range);
    EXPECT_EQ(Kes::Math::Vector2(3, 7), range);
    EXPECT_TRUE(scene.chart->colorRange(valid.variable(0), range = {}));
    EXPECT_EQ(Kes::Math::Vector2(3, 7), range);
    EXPECT_FALSE(scene.chart->colorRange(scene.chart->chart.variables[0], range));
}

TEST(VisChart2D, AnUpdateEmptiesTheDataRectangleUntilTheNextResize)
{
    ChartScene scene;
    scene.line("a", {{0, 0}, {1, 1}});
    scene.update();
    ASSERT_TRUE(scene.data().valid());
    EXPECT_FALSE(scene.chart->drawnPixels().empty());
    scene.update();
    FenVisChart2D const copy(*scene.chart);
    EXPECT_EQ("chart", copy.chart.name());
    EXPECT_EQ(90, copy.layer.get());
    EXPECT_EQ(scene.data(), copy.getDataViewport());
    EXPECT_EQ(&copy, copy.chart.parent());
    FenVisChart2D assigned(scene.group);
    assigned = copy;
    EXPECT_EQ(1u, assigned.chart.variables.size());
    EXPECT_EQ("chart", assigned.chart.name());
    EXPECT_TRUE(assigned.watcher().modified());
}

TEST(VisChart2D, FindsTheBoxOfTheViewInDepth)
{
    LogCapture log;
    ChartScene scene;
    scene.chart->chart.view3D.set(true);
    scene.line("a", {{0, 0}, {100, 10}});
    scene.update();
    Kes::Math::BoundingBox const box = scene.chart->boundingBox();
    ASSERT_TRUE(box.defined());
    EXPECT_NEAR(1.1, box.extent().x(), 1e-5);
    EXPECT_NEAR(1 / 104.0, scene.chart->scaling().x(), 1e-6);
    EXPECT_EQ(Kes::Math::Vector3(0, 0, 0), scene.chart->offset());
    scene.chart->chart.variables[0].xAxis.set("no such axis");
    scene.update();
    EXPECT_FALSE(scene.chart->boundingBox().defined());
}

TEST(VisChart2D, LogsATextThatMeansNothingOnce)
{
    LogCapture log;
    ChartScene scene;
    FenChartVariable& a = scene.line("a", {{0, 0}, {1, 1}});
    a.style.set("zigzag");
    a.fillMode.set("plaid");
    a.lineMode.set("wavy");
    a.symbol.set("banana");
    scene.update();
    scene.update();
    QStringList const lines = log.take();
    EXPECT_EQ(4, lines.size()) << lines.join('\n').toStdString();
    for (char const* text : {"zigzag", "plaid", "wavy", "banana"})
        EXPECT_EQ(1, lines.filter(text).size()) << text;
}
