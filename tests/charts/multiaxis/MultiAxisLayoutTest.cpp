#include "charts/multiaxis/ItemAxis.h"
#include "charts/painting/CoverageMap.h"
#include "charts/parallel/FilterRanges.h"
#include "charts/parallel/ParallelLayout.h"
#include "charts/spider/SpiderLayout.h"
#include "services/chartdata/ChartMultiAxis.h"
#include "services/properties/ModifiedGroup.h"

#include <gtest/gtest.h>

#include <cmath>

using Kes::Math::Vector2;

namespace {

double const missing = std::nan("");

FenChartVariable& add(FenChartMultiAxis& chart, QString const& name, std::vector<double> values)
{
    FenChartVariable& variable = chart.variables.append(name);
    variable.setData(Kes::Math::Vector3::CompY, std::move(values));
    return variable;
}

std::vector<fen::ItemAxis> read(FenChartMultiAxis& chart)
{
    FenChartVariableListCache cache;
    FenChartValidVariableList valid;
    return fen::readItems(chart, cache, valid);
}

} // namespace

TEST(FilterRanges, KeepTheLimitsThatLieWithinTheData)
{
    struct Row {
        char const* what;
        FenChartRange filter, left;
    };
    FenChartRange const data{10, 20};
    Row const rows[] = {{"never set", {0, 0}, {10, 20}},
                        {"inside", {12, 18}, {12, 18}},
                        {"turned", {18, 12}, {10, 20}},
                        {"equal", {15, 15}, {10, 20}},
                        {"wider", {0, 30}, {10, 20}},
                        {"at the ends", {10, 20}, {10, 20}},
                        {"lower only", {12, 25}, {12, 20}},
                        {"upper only", {5, 18}, {10, 18}},
                        {"below all", {1, 5}, {10, 20}},
                        {"nothing", {missing, missing}, {10, 20}},
                        {"upper below the lower", {15, 12}, {10, 20}}};
    for (Row const& row : rows) EXPECT_EQ(row.left, fen::filteredRange(data, row.filter)) << row.what;
}

TEST(FilterRanges, AMovedEndStopsAtTheOtherAndAtTheData)
{
    FenModifiedGroup group;
    FenChartMultiAxis chart(group);
    add(chart, "a", {10, 20});
    add(chart, "turned", {10, 20});
    add(chart, "log", {1, 100});
    add(chart, "same", {3, 3});
    chart.invertedAxes.set({"turned"});
    chart.logarithmicAxes.set({"log"});
    std::vector<fen::ItemAxis> const axes = read(chart);
    struct Row {
        char const* what;
        int axis;
        FenChartRange before;
        fen::FilterEnd end;
        double share;
        FenChartRange after;
    };
    using fen::FilterEnd;
    Row const rows[] = {{"up", 0, {10, 20}, FilterEnd::Low, 0.25, {12.5, 20}},
                        {"down", 0, {12, 18}, FilterEnd::High, -0.3, {12, 15}},
                        {"below the data", 0, {12, 18}, FilterEnd::Low, -5, {10, 18}},
                        {"above the data", 0, {12, 18}, FilterEnd::High, 5, {12, 20}},
                        {"past the upper", 0, {12, 18}, FilterEnd::Low, 5, {18, 18}},
                        {"past the lower", 0, {12, 18}, FilterEnd::High, -5, {12, 12}},
                        {"inverted: up is less", 1, {12, 18}, FilterEnd::High, 0.1, {12, 17}},
                        {"by factors", 2, {1, 100}, FilterEnd::Low, 0.5, {10, 100}},
                        {"no length", 3, {3, 3}, FilterEnd::Low, 0.5, {3, 3}}};
    for (Row const& row : rows) {
        FenChartRange const moved =
            fen::movedRange(axes[std::size_t(row.axis)], row.before, row.end, row.share);
        EXPECT_NEAR(row.after.min, moved.min, 1e-9) << row.what;
        EXPECT_NEAR(row.after.max, moved.max, 1e-9) << row.what;
        bool const filters = moved.min < moved.max;
        EXPECT_EQ(row.before.min < row.before.max, filters) << row.what;
    }
}

TEST(ItemAxis, ReadsVariablesInOrderAndTellsWhichItemsAreValid)
{
    FenModifiedGroup group;
    FenChartMultiAxis chart(group);
    add(chart, "a", {1, 2, 3, 4});
    add(chart, "empty", {missing, missing});
    add(chart, "b", {5, missing, 7});
    add(chart, "hidden", {1, 2}).visible.set(false);
    add(chart, "log", {-1, 0, 10, 1000});
    chart.logarithmicAxes.set({"log"});
    chart.axisOrder.set({"b", "gone"});
    std::vector<fen::ItemAxis> const axes = read(chart);
    ASSERT_EQ(3u, axes.size());
    EXPECT_EQ((FenChartRange{5, 7}), axes[0].range) << "b is named first";
    EXPECT_EQ((FenChartRange{10, 1000}), axes[2].range);
    EXPECT_TRUE(std::isnan(axes[2].value(0)));
    EXPECT_NEAR(0.5, axes[2].fraction(100), 1e-12);
    EXPECT_EQ((std::vector<bool>{true, true, true, false}), fen::validItems(axes, {}, 4)) << "b is short";
    std::vector<FenChartRange> const filtered = {{6, 7}, {1, 3}, {10, 1000}};
    EXPECT_EQ((std::vector<bool>{false, false, true, false}), fen::validItems(axes, filtered, 4))
        << "equal to a limit passes, missing does not";
    chart.firstAxis.set("a");
    chart.variables[0].rename("renamed");
    EXPECT_EQ("renamed", chart.firstAxis.get());
}

TEST(ParallelLayout, LeavesRoomForTextsWithinTheArea)
{
    struct Row {
        char const* what;
        QSize area;
        std::size_t axes;
        fen::ParallelTexts texts;
        bool valid, horizontal, names;
    };
    Row const rows[] = {{"roomy", {800, 400}, 5, {40, 30, 30}, true, true, true},
                        {"narrow", {300, 400}, 12, {80, 40, 40}, true, false, true},
                        {"low", {800, 90}, 5, {40, 30, 30}, true, true, false},
                        {"very many", {640, 400}, 300, {80, 40, 40}, true, false, true},
                        {"more than pixels", {200, 400}, 300, {80, 40, 40}, false, true, true},
                        {"too low", {800, 50}, 5, {40, 30, 30}, false, true, false},
                        {"one axis", {800, 400}, 1, {40, 30, 30}, false, true, true},
                        {"tiny", {1, 1}, 3, {40, 30, 30}, false, false, false}};
    int const h = 13;
    for (Row const& row : rows) {
        FenOglViewport const area(7, 7, row.area.width(), row.area.height());
        auto const layout =
            fen::layoutParallel(area, std::vector<fen::ParallelTexts>(row.axes, row.texts), h);
        EXPECT_EQ(row.valid, layout.plot.valid()) << row.what;
        if (!row.valid) continue;
        EXPECT_EQ(row.horizontal, layout.horizontalLabels) << row.what;
        EXPECT_EQ(row.names, layout.names) << row.what;
        EXPECT_EQ(layout.plot.width(), layout.spacing * int(row.axes - 1)) << row.what;
        EXPECT_GE(layout.lowAnchorY() - (row.horizontal ? 0 : layout.labelRoom), area.y()) << row.what;
        int const top = layout.names ? layout.nameAnchorY() + layout.nameRoom : layout.highAnchorY();
        EXPECT_LE(top, area.y() + area.height()) << row.what;
        EXPECT_GE(layout.plot.x(), area.x()) << row.what;
        EXPECT_LE(layout.axisX(row.axes - 1), area.x() + area.width()) << row.what;
    }
    EXPECT_EQ((std::vector<bool>{true, false, true, false, true}),
              fen::textsWithRoom({0, 20, 40, 50, 100}, {30, 30, 20, 0, 60}));
}

TEST(SpiderLayout, NamesStayInsideAndOutsideOfTheCircle)
{
    int const h = 13;
    for (QSize const& size : {QSize(640, 400), QSize(1280, 800), QSize(160, 120), QSize(90, 300)}) {
        for (int const count : {1, 2, 3, 5, 12, 40, 300}) {
            SCOPED_TRACE(testing::Message() << size.width() << 'x' << size.height() << ", " << count);
            FenOglViewport const area(7, 9, size.width(), size.height());
            std::vector<int> names;
            for (int i = 0; i < count; ++i) names.push_back(20 + i * 37 % 150);
            fen::SpiderLayout const layout = fen::layoutSpider(area, names, h);
            ASSERT_GT(layout.radius, 0);
            std::vector<QRect> shown;
            for (std::size_t i = 0; i < layout.labels.size(); ++i) {
                fen::SpiderLabel const& label = layout.labels[i];
                if (label.room == 0) continue;
                QRect const own = fen::textRectangle(label, QSize(std::min(names[i], label.room), h));
                EXPECT_TRUE(QRect(area.x(), area.y(), area.width(), area.height()).contains(own)) << i;
                for (QRect const& other : shown) EXPECT_FALSE(own.intersects(other)) << i;
                shown.push_back(own);
                Vector2 const tip = layout.point(i, 1);
                EXPECT_FALSE(own.contains(QPoint(int(tip.x()), int(tip.y())))) << i;
            }
            EXPECT_FALSE(shown.empty());
        }
    }
    struct Row {
        QSize viewport;
        unsigned ticks;
    };
    for (Row const& row : {Row{{0, 0}, 1}, Row{{49, 400}, 1}, Row{{400, 300}, 6}, Row{{4000, 3000}, 21}})
        EXPECT_EQ(row.ticks, fen::spiderTicks(row.viewport, h));
    fen::SpiderLayout const four = fen::layoutSpider(FenOglViewport(0, 0, 400, 400), {10, 10, 10, 10}, h);
    EXPECT_GT(four.point(0, 1).y(), four.point(0, 0).y()) << "the first points up";
    EXPECT_GT(four.point(1, 1).x(), four.point(1, 0).x()) << "then clockwise";
}

TEST(CoverageMap, WhatIsTakenAwayAgainLeavesNothing)
{
    fen::Rgba const red{QColor(Qt::red)};
    auto const inkOf = [](fen::CoverageMap const& map) {
        fen::CoveragePicture const painter({{&map, [](double count) { return std::min(1.0, count); }}});
        QImage const picture = painter.image();
        int pixels = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) pixels += qAlpha(picture.pixel(x, y)) > 127;
        return pixels;
    };
    using Change = fen::CoverageMap::Change;
    fen::CoverageMap smooth(QSize(40, 30), fen::CoverageMap::Unit::Shares);
    auto const everything = [&](Change change) {
        smooth.addLine(Vector2(5, 5.5f), Vector2(25, 5.5f), 1, red, 1, change);
        smooth.addPolygon({Vector2(10, 10), Vector2(20, 10), Vector2(20, 20), Vector2(10, 20)}, red, 4,
                          change);
        smooth.addLine(Vector2(-50, -80), Vector2(90, 70), 3, red, 2, change); // mostly outside
        smooth.addLine(Vector2(30, 2), Vector2(30, 28), 2, red, 4, change); // upright
    };
    smooth.addLine(Vector2(5, 5.5f), Vector2(25, 5.5f), 1, red, 1, Change::Add);
    EXPECT_EQ(20, inkOf(smooth));
    smooth.addLine(Vector2(5, 5.5f), Vector2(25, 5.5f), 1, red, 1, Change::Remove);
    everything(Change::Add);
    EXPECT_GT(inkOf(smooth), 170);
    everything(Change::Remove);
    EXPECT_EQ(0, inkOf(smooth));

    fen::CoverageMap whole(QSize(40, 30), fen::CoverageMap::Unit::Whole);
    fen::CoverageMap::Bundle const bundle{0, 40, 1, {2, 2, 28}, {2, 28, 2}, {red, red, red}};
    whole.addBundle(bundle, Change::Add);
    EXPECT_NEAR(40 + 2 * 40, inkOf(whole), 12) << "one pixel in each column and line, less the crossings";
    fen::CoveragePicture const painter({{&whole, [](double count) { return std::min(1.0, count); }}});
    whole.finish();
    QImage const before = painter.image();
    QImage image = before;
    whole.addBundle(bundle, Change::Remove);
    painter.update(image, bundle);
    EXPECT_EQ(0, inkOf(whole));
    EXPECT_EQ(painter.image(), image) << "the same as painted anew";
    whole.addBundle(bundle, Change::Add);
    painter.update(image, bundle);
    EXPECT_EQ(before, image);
}
