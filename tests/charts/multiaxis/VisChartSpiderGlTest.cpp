#include "charts/spider/VisChartSpider.h"

#include "host/input/MouseTracker.h"
#include "host/scene/Scene.h"
#include "host/scene/VisPick.h"
#include "services/chartdata/ChartVariable.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/SceneBuilder.h"

#include <cmath>

/// Four axes "a" (up) to "d", clockwise, each from 0 to 10; the first item lies half way on all of them.
class VisChartSpiderGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        scene.resize(QSize(400, 300));
        for (char const* name : {"a", "b", "c", "d"}) add(QString::fromLatin1(name), {5, 0, 10});
        chart.chart.itemColors.set({QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)});
    }
    void add(QString const& name, std::vector<double> values)
    {
        chart.chart.variables.append(name).setData(Kes::Math::Vector3::CompY, std::move(values));
    }
    void draw()
    {
        clear();
        scene.update();
        scene.draw();
    }
    QPoint center() const
    {
        FenOglViewport const area = chart.getDataViewport();
        return QPoint(area.x() + area.width() / 2, area.y() + area.height() / 2);
    }
    QString pickAt(QPoint const& point)
    {
        scene.update();
        return describeHit(scene.pick(point, QSize(3, 3)).property);
    }
    /// [px] from the centre to where the outermost item crosses the axis that points right.
    int radius()
    {
        draw();
        int r = 0;
        for (int i = center().x(); i < 400; ++i)
            if (picture().is(i, 299 - center().y(), Qt::blue, 60)) r = i - center().x();
        return r;
    }

    FenVisScene scene;
    FenVisChartSpider& chart = scene.add<FenVisChartSpider>("spider");
};

TEST_F(VisChartSpiderGlTest, DrawsItemsAndAxesWhereTheyArePicked)
{
    int const r = radius();
    ASSERT_GT(r, 60);
    QPoint const c = center(), half(c.x() + r / 4, c.y() + r / 4); // the middle of the first item's edge
    EXPECT_GT(picture().pixelGl(half.x(), half.y()).red(), 200);
    EXPECT_LT(picture().pixelGl(half.x(), half.y()).blue(), 160);
    EXPECT_EQ(QColor(Qt::white), picture().pixelGl(c.x() + r / 10, c.y() + r / 5 + 8)) << "not filled";
    EXPECT_EQ("chart, dataPointIdx(0)", pickAt(half));
    EXPECT_EQ("chart, dataPointIdx(2)", pickAt(QPoint(c.x() + r / 2, c.y() + r / 2)));
    EXPECT_EQ("variable b", pickAt(c + QPoint(r * 3 / 4, 0)));
    EXPECT_EQ("variable a", pickAt(c + QPoint(0, r * 3 / 4)));
    EXPECT_EQ("chart", pickAt(c + QPoint(r / 3, -r / 3 - 20)));

    chart.chart.fillMode.set(FenChart::fillSolid);
    draw();
    QPoint const inside = c + QPoint(r / 3, r / 3); // of the outer item alone
    EXPECT_GT(picture().pixelGl(inside.x(), inside.y()).blue(),
              picture().pixelGl(inside.x(), inside.y()).red());
    EXPECT_EQ("chart, dataPointIdx(2)", pickAt(inside));
}

TEST_F(VisChartSpiderGlTest, TooltipsTellItemsAndAxes)
{
    int const r = radius();
    chart.chart.itemLabels.set({"first", "second", "third"});
    scene.update();
    FenMouseTracker tracker(scene);
    auto const hover = [&](QPoint const& offset) {
        tracker.move(center() + offset);
        tracker.flush();
        return tracker.tooltip();
    };
    EXPECT_EQ("third\na: 10\nb: 10\nc: 10\nd: 10", hover(QPoint(r / 2, r / 2)));
    EXPECT_EQ("first\na: 5\nb: 5\nc: 5\nd: 5", hover(QPoint(r / 4, r / 4)))
        << "another item of the same chart";
    EXPECT_EQ("b { 0, 10 } ", hover(QPoint(r * 3 / 4, 0)));
}

TEST_F(VisChartSpiderGlTest, BadContentDrawsWhatItCan)
{
    double const nan = std::nan("");
    std::vector<double> const columns[] = {{}, {nan}, {3, 3, 3}, {nan, 1, nan, 2}, {1e300, -1e300}, {1}};
    for (int const count : {0, 1, 2, 3, 300}) {
        for (QSize const& size : {QSize(400, 300), QSize(20, 20), QSize(1, 1)}) {
            SCOPED_TRACE(testing::Message() << count << " axes, " << size.width());
            while (chart.chart.variables.size() > 0) chart.chart.variables.removeAt(0);
            for (int i = 0; i < count; ++i) add(QString(i == 1 ? 1000 : 2, 'x') + "\n<b>", columns[i % 6]);
            chart.chart.fillMode.set(count % 2 ? FenChart::fillSolid : FenChart::fillNone);
            scene.resize(size);
            expectPassKeepsState([&] { draw(); });
            expectPassKeepsState(
                [&] { scene.pick(QPoint(size.width() / 2, size.height() / 2), QSize(5, 5)); });
        }
    }
}
