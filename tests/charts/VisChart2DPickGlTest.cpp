#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitProjectedPointQualifier.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/SceneBuilder.h"

#include <algorithm>
#include <cmath>
#include <functional>

class VisChart2DPickGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        scene.range("x", 0, 10);
        scene.range("y", -5, 5);
    }
    QPoint place(double x, double y) const
    {
        FenOglViewport const data = scene.data();
        return QPoint(data.x() + int(x / 10 * data.width()), data.y() + int((y + 5) / 10 * data.height()));
    }

    ChartScene scene;
};

TEST_F(VisChart2DPickGlTest, WhatLiesOnTopIsPicked)
{
    std::string const curve = "??? no string version avaialble ???";
    FenChartVariable& line = scene.line("line", {{1, 4}, {9, 4}});
    line.lineWidth.set(7);
    line.symbol.set(FenChart::symbolRect);
    line.symbolSize.set(11);
    scene.bars("bar", {{4, -4}});
    FenChartVariable& area = scene.line("area", {{6, 2}, {8, 2}});
    area.fillMode.set(FenChart::fillSolid);
    area.fillColor.set(Qt::green);
    scene.marks("marks", {{1, 1}, {2, 1}});
    scene.line("none", {{0, 0}, {10, 0}}).style.set(FenChart::styleNone);
    scene.update();
    FenOglViewport const data = scene.data();
    struct Row {
        char const* what;
        QPoint point;
        std::string hit;
    };
    Row const rows[] = {
        {"middle of the line", place(5, 4), "variable line, " + curve},
        {"edge of a wide line", place(5, 4) + QPoint(0, 3), "variable line, " + curve},
        {"beside it", place(5, 4) + QPoint(0, 5), "chart"},
        {"symbol over line", place(1, 4) + QPoint(2, -4), "variable line, dataPointIdx(0)"},
        {"bar", place(4, -2), "variable bar, " + curve},
        {"point of the bar", scene.pixelOf("bar", 0), "variable bar, dataPointIdx(0)"},
        {"under the curve", place(7, 1), "variable area, " + curve},
        {"point without symbol", scene.pixelOf("area", 1), "variable area, dataPointIdx(1)"},
        {"mark", place(2, 1) + QPoint(-3, 4), "variable marks, dataPointIdx(1)"},
        {"between marks: no line", place(1.5, 1), "chart"},
        {"style none", place(2.5, 0), "chart"},
        {"axis line", QPoint(data.x() + 30, data.y() - 1), "axis x"},
        {"axis label", QPoint(data.x() - 17, place(0, 0).y()), "axis y"},
        {"corner", QPoint(2, 2), "chart"},
    };
    for (Row const& row : rows) EXPECT_EQ(row.hit, scene.pick(row.point, 1).toStdString()) << row.what;
}

TEST_F(VisChart2DPickGlTest, WhatIsHiddenBehindTheEdgeIsNotPicked)
{
    scene.line("a", {{-5, 0}, {15, 0}}).lineWidth.set(9);
    scene.marks("m", {{10.1, 3}, {5, 5.05}}).symbolSize.set(31);
    scene.update();
    FenOglViewport const data = scene.data();
    EXPECT_EQ("axis y", scene.pick(QPoint(data.x() - 1, data.y() + data.height() / 2), 1));
    EXPECT_EQ("chart", scene.pick(QPoint(data.x() + data.width() + 4, place(10, 0).y()), 1));
    EXPECT_EQ("variable m, dataPointIdx(0)",
              scene.pick(QPoint(data.x() + data.width() - 2, place(10, 3).y()), 1));
    EXPECT_EQ("variable m, dataPointIdx(1)", scene.pick(place(5, 4.9), 1));
}

TEST_F(VisChart2DPickGlTest, TheLastOfManyPointsInOnePlaceWins)
{
    ChartScene::Points points;
    for (int i = 0; i < 5000; ++i) points.push_back({5 + 0.01 * std::sin(i), 0.01 * std::cos(i)});
    for (int i = 0; i < 5000; ++i) points.push_back({2, 2});
    scene.marks("m", points);
    scene.update();
    EXPECT_EQ("variable m, dataPointIdx(4999)", scene.pick(place(5, 0)));
    EXPECT_EQ("variable m, dataPointIdx(9999)", scene.pick(place(2, 2)));
}

TEST_F(VisChart2DPickGlTest, TooltipsTellTheValuesUnderThePointer)
{
    struct Row {
        char const* what;
        char const* style; // empty: marks
        ChartScene::Points points;
        std::size_t point;
        QPoint off;
        QString text;
    };
    auto const expectTooltips = [](std::vector<Row> const& rows,
                                   std::function<void(ChartScene&)> const& axis) {
        for (Row const& row : rows) {
            ChartScene one;
            axis(one);
            if (*row.style)
                one.add("a", row.points, row.style);
            else
                one.marks("a", row.points);
            one.update();
            EXPECT_EQ(row.text, one.hover(one.pixelOf("a", row.point) + row.off, 3)) << row.what;
        }
    };
    expectTooltips({{"point", "", {{1, 2}, {3, 4.5}}, 1, {}, "a { 3, 4.5 } "},
                    {"nearest of a curve", "line", {{0, 1}, {4, 1}, {8, 1}}, 1, {9, 0}, "a { 4, 1 } "},
                    {"held value", "step", {{0, 1}, {4, 3}, {8, 1}}, 1, {130, 0}, "a { 4, 3 } "},
                    {"bar", "bar", {{0, 4}, {1, 2}}, 0, {20, -40}, "a { 0, 4 } "},
                    {"many digits", "", {{1234567.89, 1}, {1234567.9, 2}}, 0, {}, "a { 1234567.89, 1 } "},
                    {"thirds", "", {{1 / 3.0, 1}, {1, 2 / 3e4}}, 0, {}, "a { 0.333333, 1 } "},
                    {"close thirds", "", {{1000 + 1 / 3.0, 1}, {1000, 2}}, 0, {}, "a { 1000.333333, 1 } "},
                    {"picometres", "", {{1e-12, 1}, {1.5e-12, 2}}, 1, {}, "a { 1.5e-12, 2 } "}},
                   [](ChartScene&) {});
    expectTooltips({{"category", "bar", {{0, 4}, {1, 2.5}}, 1, {0, -10}, "a { Tue, 2.5 } "},
                    {"category without a label", "", {{0, 4}, {2, 2.5}}, 1, {}, "a { 2, 2.5 } "}},
                   [](ChartScene& s) {
                       s.categories({"Mon", "Tue"});
                   });
    expectTooltips({{"day", "", {{86400, 1}, {172800, 2}}, 1, {}, "a { 1970-01-03, 2 } "},
                    {"moments close together",
                     "",
                     {{1700000000.25, 1}, {1700000000.5, 2}, {1700000001, 1}},
                     1,
                     {},
                     "a { 2023-11-14 22:13:20.500, 2 } "}},
                   [](ChartScene& s) { s.axis("x").format.set("date"); });
}

TEST_F(VisChart2DPickGlTest, AHitOnACurveKnowsThePlaceInData)
{
    scene.line("a", {{1, 2}, {9, 2}});
    scene.update();
    QPoint const pointer = place(3, 2);
    std::vector<FenVisHitRecord> const records = scene.select(pointer).records(0);
    FenVisHitProperty const hit = scene.chart->hitProperty(records.back().context());
    auto const* const place = dynamic_cast<FenVisHitProjectedPointQualifier const*>(hit.qualifier.get());
    ASSERT_TRUE(place);
    EXPECT_EQ(pointer, place->point);
    Kes::Math::Vector3 const data = Kes::Math::Vector3(float(pointer.x()), float(pointer.y()), 0.5f)
                                        .unProject(place->modelView, place->projection, place->viewport);
    EXPECT_NEAR(3, data.x(), 0.05);
    EXPECT_NEAR(2, data.y(), 0.05);
    scene.hover(pointer);
    EXPECT_EQ("variable a, dataPointIdx(0)", describeHit(scene.chart->hitProperty(records.back().context())));
}

TEST_F(VisChart2DPickGlTest, AxesAreHoveredByNameAndStaleHitsAreIgnored)
{
    scene.line("a", {{0, 0}, {1, 1}});
    scene.update();
    FenOglViewport const data = scene.data();
    QPoint const axis(data.x() + 30, data.y() - 1);
    EXPECT_EQ("x", scene.hover(axis));
    scene.draw();
    EXPECT_EQ(QColor(Qt::black), picture().pixelGl(axis.x(), axis.y() - 2)) << "two pixels wider";
    scene.update();
    clear();
    scene.draw();
    EXPECT_NE(QColor(Qt::black), picture().pixelGl(axis.x(), axis.y() - 2))
        << "an update forgets the highlight";
    FenVisHitRecordList const hits = scene.select(axis);
    QString tooltip("as before");
    EXPECT_FALSE(
        hits.handler(0).lock()->OnMouseOver(FenVisHitRecord(4711, 0.5), FenStringBuilder(), tooltip));
    EXPECT_EQ("as before", tooltip);
    EXPECT_FALSE(
        hits.handler(0).lock()->OnMouseOver(FenVisHitRecord::catchall(), FenStringBuilder(), tooltip));
    scene.chart->chart.xAxes.setFirst(QString(), QString());
    EXPECT_FALSE(hits.handler(0).lock()->OnMouseOver(hits.records(0).back(), FenStringBuilder(), tooltip));
}

TEST_F(VisChart2DPickGlTest, TheBufferHoldsAllHitsOfCrowdedCharts)
{
    for (int v = 0; v < 12; ++v) {
        ChartScene::Points points;
        for (int i = 0; i < 200; ++i) points.push_back({i * 0.05, std::sin(i * 0.1 + v) * 0.1});
        scene.line(QString::number(v), points).symbol.set(FenChart::symbolRect);
    }
    scene.update();
    std::vector<FenVisHitRecord> const records = scene.select(place(5, 0), 300).records(0);
    auto const onVariable = [&](FenVisHitRecord const& record) {
        return dynamic_cast<FenChartVariable const*>(scene.chart->hitProperty(record.context()).property);
    };
    EXPECT_EQ(12 * 10, std::count_if(records.begin(), records.end(), onVariable))
        << "a curve, nine points each";
    EXPECT_EQ(FenVisHitRecord::DEFAULT_NAME, records.front().context());
}
