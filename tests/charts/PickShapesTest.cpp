#include "charts/painting/PickShapes.h"
#include "services/chartdata/ChartColumn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

double const undefined = std::numeric_limits<double>::quiet_NaN();

fen::CurveData curve(std::vector<double> x, std::vector<double> y, bool logarithmic = false)
{
    fen::CurveData data;
    data.count = y.size();
    if (!x.empty()) data.xColumn = FenChartColumn::make(std::move(x));
    data.yColumn = FenChartColumn::make(std::move(y));
    data.xMapping = FenChartAxisMapping(0, 200, false);
    data.yMapping = logarithmic ? FenChartAxisMapping(0.01, 100, true) : FenChartAxisMapping(-3, 3, false);
    data.size = QSize(200, 100);
    return data;
}

} // namespace

TEST(PickShapes, FindsTheLastPointsInsideAsALookAtEachDoes)
{
    std::mt19937 random(7);
    std::normal_distribution<double> normal;
    std::uniform_int_distribution<int> place(-5, 205);
    for (int round = 0; round < 24; ++round) {
        std::vector<double> x, y;
        for (int i = 0; i < 3000; ++i) {
            x.push_back(100 + 40 * normal(random));
            y.push_back(i % 97 == 0 ? undefined : normal(random));
        }
        if (round % 2 == 0) std::sort(x.begin(), x.end());
        if (round % 3 == 0) x.clear();
        fen::CurveData const data = curve(x, y, round % 4 == 1);
        for (int k = 0; k < 20; ++k) {
            QRect const area(place(random), place(random) / 2, 1 + k, 1 + k / 2);
            std::vector<std::size_t> all;
            for (std::size_t i = 0; i < data.count; ++i)
                if (!std::isnan(data.x(i)) && !std::isnan(data.y(i)) && area.contains(data.pixel(i)))
                    all.push_back(i);
            std::vector<std::size_t> const last(all.end() - std::min<std::ptrdiff_t>(9, std::ssize(all)),
                                                all.end());
            EXPECT_EQ(last, fen::pointsInside(data, area, 9)) << round << ' ' << k;
        }
    }
}

TEST(PickShapes, TheNearestPointIsThatOfTheCurveUnderThePointer)
{
    struct Row {
        char const* what;
        std::vector<double> x, y;
        fen::CurveShape shape;
        QPointF at;
        std::size_t point;
    };
    Row const rows[] = {
        {"left one", {10, 20, 30}, {0, 1, 2}, fen::CurveShape::Line, {14, 50}, 0},
        {"right one", {10, 20, 30}, {0, 1, 2}, fen::CurveShape::Line, {16, 50}, 1},
        {"gap", {10, 20, 30}, {0, undefined, 2}, fen::CurveShape::Line, {21, 50}, 2},
        {"held value", {10, 20, 30}, {0, 1, 2}, fen::CurveShape::Step, {19, 50}, 0},
        {"before a stair", {10, 20, 30}, {0, 1, 2}, fen::CurveShape::Step, {5, 50}, 0},
        {"beyond the end", {10, 20, 30}, {0, 1, 2}, fen::CurveShape::Spline, {150, 50}, 2},
        {"loop, in both directions", {10, 30, 10}, {-3, 0, 3}, fen::CurveShape::Line, {11, 90}, 2},
        {"no point", {10, 20}, {undefined, undefined}, fen::CurveShape::Line, {11, 90}, 2},
    };
    for (Row const& row : rows)
        EXPECT_EQ(row.point, fen::nearestPoint(curve(row.x, row.y), row.shape, row.at)) << row.what;
}
