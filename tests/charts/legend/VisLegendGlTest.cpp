#include "charts/chart2d/VisChart2D.h"
#include "charts/legend/VisLegend.h"
#include "framework/VisList.h"
#include "host/scene/Scene.h"
#include "picking/hits/IVisEventHandler.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/StringBuilder.h"
#include "tests/support/OffscreenGlTest.h"

#include <boost/shared_ptr.hpp>

namespace {

/// A chart of three lines with a legend over it.
class VisLegendGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        resizePicture(600, 400);
        scene = std::make_unique<FenVisScene>();
        chart = &scene->add<FenVisChart2D>("chart");
        for (char const* name : {"red", "green", "blue"}) {
            FenChartVariable& variable = chart->chart.variables.append(name);
            // All ink lies on the falling diagonal: upper right and lower left are free.
            variable.setData(Kes::Math::Vector3::CompY, {10, 8, 6, 4, 2, 0});
            variable.lineColor.set(QColor(name));
            variable.lineWidth.set(3);
        }
        legend = &scene->add<FenVisLegend>("legend");
        legend->legend.chart.set("chart");
        draw();
    }
    void TearDown() override
    {
        scene.reset();
        OffscreenGlTest::TearDown();
    }

    Picture draw()
    {
        scene->resize(QSize(600, 400));
        scene->update();
        scene->draw();
        return picture();
    }

    /// Centre of entry i [px, window].
    QPoint entry(unsigned i) const { return onWindow(legend->entryRectangle(i)); }
    QPoint onWindow(FenOglViewport const& rectangle) const
    {
        FenOglViewport own;
        legend->getViewport(FenOglViewport(0, 0, 600, 400), own);
        return QPoint(own.x() + rectangle.x() + rectangle.width() / 2,
                      own.y() + rectangle.y() + rectangle.height() / 2);
    }

    FenVisPick pick(QPoint const& at) { return scene->pick(at, QSize(3, 3)); }

    std::unique_ptr<FenVisScene> scene;
    FenVisChart2D* chart = nullptr;
    FenVisLegend* legend = nullptr;
};

} // namespace

TEST_F(VisLegendGlTest, ShowsEachVariableInItsColourWhereItHidesNothing)
{
    Picture const with = draw();
    with.save("legend-lines");
    FenOglViewport const box = legend->box();
    ASSERT_TRUE(box.valid());
    FenOglViewport own;
    legend->getViewport(FenOglViewport(0, 0, 600, 400), own);
    QRect const inPicture(own.x() + box.x(), 400 - own.y() - box.y() - box.height(), box.width(),
                          box.height());
    for (char const* name : {"red", "green", "blue"})
        EXPECT_GT(with.count(QColor(name), inPicture), 30) << name;

    legend->enabled.set(false);
    Picture const without = draw();
    for (char const* name : {"red", "green", "blue"}) EXPECT_EQ(0, without.count(QColor(name), inPicture));
}

TEST_F(VisLegendGlTest, FollowsItsChartThroughRenameDisableAndDelete)
{
    chart->rename("weather");
    draw();
    EXPECT_EQ("weather", legend->legend.chart.get());
    EXPECT_EQ(3u, legend->entries().size());

    chart->chart.variables[1].legend.set(false);
    draw();
    EXPECT_EQ(2u, legend->entries().size());

    chart->enabled.set(false);
    draw();
    EXPECT_TRUE(legend->entries().empty());
    FenOglViewport own;
    EXPECT_FALSE(legend->getViewport(FenOglViewport(0, 0, 600, 400), own));

    chart->enabled.set(true);
    draw();
    EXPECT_EQ(2u, legend->entries().size());
    // Gone between update and draw: nothing dangles.
    scene->root().erase(chart);
    scene->draw();
    EXPECT_FALSE(pick(QPoint(300, 200)).node);
    EXPECT_FALSE(legend->getViewport(FenOglViewport(0, 0, 600, 400), own));
}

TEST_F(VisLegendGlTest, PicksEntriesAndLeavesTheChartBesideItsBoxPickable)
{
    FenVisPick const green = pick(entry(1));
    EXPECT_EQ(legend, green.node);
    EXPECT_EQ(&chart->chart.variables[1], green.property.property);
    EXPECT_DOUBLE_EQ(0.5, green.record.depth());

    QString tooltip;
    ASSERT_TRUE(green.handler.lock());
    EXPECT_TRUE(green.handler.lock()->OnMouseOver(green.record, FenStringBuilder(), tooltip));
    EXPECT_EQ("green", tooltip);
    EXPECT_FALSE(green.handler.lock()->OnMouseOver(green.record, FenStringBuilder(), tooltip));

    FenOglViewport const data = chart->getDataViewport();
    FenVisPick const beside = pick(QPoint(data.x() + data.width() / 2, data.y() + data.height() / 2));
    EXPECT_EQ(chart, beside.node);
}

TEST_F(VisLegendGlTest, IsDraggedInsideTheDataRectangleAndKeepsItsPlace)
{
    FenVisPick const grip = pick(entry(0));
    ASSERT_TRUE(grip.handler.lock());
    FenOglViewport const before = legend->box();
    EXPECT_TRUE(grip.handler.lock()->OnMouseDrag(grip.record, QPoint(60, 40)));
    EXPECT_TRUE(grip.handler.lock()->OnMouseDrag(grip.record, QPoint(10, 5)));
    draw();
    EXPECT_EQ(QPoint(before.x() - 70, before.y() - 45), legend->box().origin());
    EXPECT_TRUE(grip.handler.lock()->OnMouseRelease(grip.record));
    draw();
    EXPECT_EQ(QPoint(before.x() - 70, before.y() - 45), legend->box().origin());
    EXPECT_DOUBLE_EQ(before.x() - 70, legend->legend.viewport.x.get());

    FenVisPick const again = pick(entry(0));
    again.handler.lock()->OnMouseDrag(again.record, QPoint(100000, -100000));
    EXPECT_TRUE(again.handler.lock()->OnMouseRelease(again.record)); // before it was drawn there
    EXPECT_DOUBLE_EQ(0, legend->legend.viewport.x.get());
    draw();
    EXPECT_EQ(0, legend->box().x());
    EXPECT_FALSE(again.handler.lock()->OnMouseRelease(again.record)); // nothing was dragged
}

TEST_F(VisLegendGlTest, ShowsTheValuesOfAGradientBesideItsColours)
{
    FenChartVariable& variable = chart->chart.variables[0];
    int const plain = legend->entryRectangle(0).height();
    variable.lineMode.set(FenChart::lineGradient);
    variable.colors.set({Qt::yellow, Qt::magenta});
    Picture const picture = draw();
    picture.save("legend-ramp");
    EXPECT_GT(legend->entryRectangle(0).height(), 4 * plain);
    EXPECT_GT(picture.count(Qt::magenta, 8), 10);

    scene->resize(QSize(160, 130));
    scene->update();
    scene->draw();
    EXPECT_EQ(plain, legend->entryRectangle(0).height()) << "a small chart is not hidden";
}

TEST_F(VisLegendGlTest, ShowsWhatThereIsRoomForAndCountsTheRest)
{
    for (int i = 0; i < 300; ++i) {
        FenChartVariable& variable = chart->chart.variables.append(QString("variable %1").arg(i));
        variable.label.set(i == 0 ? QString(3000, 'w') : QString());
        variable.setData(Kes::Math::Vector3::CompY, {1, 2});
    }
    draw().save("legend-many");
    FenOglViewport const area = chart->getDataViewport();
    EXPECT_LE(legend->box().width(), area.width());
    EXPECT_LE(legend->box().height(), area.height());
    EXPECT_LE(2 * legend->box().width(), area.width()) << "most of the chart stays free";
    EXPECT_TRUE(legend->entryRectangle(10).valid()) << "a long name takes no other's room";
    EXPECT_FALSE(legend->entryRectangle(302).valid());
}

TEST_F(VisLegendGlTest, ShowsTheChartAsItIsWhicheverOfTheTwoComesFirst)
{
    legend->layer.set(chart->layer.get() - 1);
    chart->chart.variables[1].visible.set(false);
    draw();
    EXPECT_EQ(2u, legend->entries().size());
    EXPECT_TRUE(legend->entryRectangle(1).valid());
    EXPECT_FALSE(legend->entryRectangle(2).valid());
}
