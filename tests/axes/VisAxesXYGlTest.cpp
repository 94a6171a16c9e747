#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/SceneBuilder.h"

#include <algorithm>

class VisAxesXYGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        scene.chart->chart.xAxes.setSecond("top", FenChartAxisContinuous::typeString);
        scene.chart->chart.yAxes.setSecond("right", FenChartAxisContinuous::typeString);
        int k = 0;
        for (char const* name : {"x", "y", "top", "right"}) {
            scene.axis(name).color.set(colors[k++]);
            scene.axis(name).labelColor.set(Qt::black);
            scene.range(name, 0, 10);
        }
        scene.line("a", {});
    }
    Picture updated()
    {
        scene.update();
        clear();
        scene.draw();
        return picture();
    }

    static inline QColor const colors[] = {Qt::red, Qt::green, Qt::blue, Qt::magenta};
    ChartScene scene;
};

TEST_F(VisAxesXYGlTest, LinesTicksAndGridLieAtTheirPixels)
{
    for (char const* name : {"y", "top", "right"}) scene.axis(name).gridColor.set(Qt::transparent);
    scene.axis("x").gridColor.set(Qt::cyan);
    Picture const drawn = updated();
    FenOglViewport const data = scene.data();
    int const right = data.x() + data.width(), top = data.y() + data.height();
    int const middle = data.x() + data.width() / 2 + 7, half = data.y() + data.height() / 2 + 7;
    for (int d = -3; d <= 3; ++d) {
        bool const on = d >= -1 && d <= 1;
        EXPECT_EQ(on, drawn.pixelGl(middle, data.y() - 1 + d) == colors[0]) << "bottom " << d;
        EXPECT_EQ(on, drawn.pixelGl(data.x() - 1 + d, half) == colors[1]) << "left " << d;
        EXPECT_EQ(on, drawn.pixelGl(middle, top + 1 + d) == colors[2]) << "top " << d;
        EXPECT_EQ(on, drawn.pixelGl(right + 1 + d, half) == colors[3]) << "right " << d;
    }
    for (int percent : {0, 20, 40, 100}) {
        int const x = data.x() + qRound(data.width() * percent / 100.0);
        int const y = data.y() + qRound(data.height() * percent / 100.0);
        for (int d = 3; d <= 5; ++d) { // two pixels beyond the line at every place
            EXPECT_EQ(d < 5, colors[0] == drawn.pixelGl(x, data.y() - d)) << percent;
            EXPECT_EQ(d < 5, colors[2] == drawn.pixelGl(x, top + d)) << percent;
            EXPECT_EQ(d < 5, colors[1] == drawn.pixelGl(data.x() - d, y)) << percent;
            EXPECT_EQ(d < 5, colors[3] == drawn.pixelGl(right + d, y)) << percent;
        }
        if (percent == 20 || percent == 40) {
            EXPECT_EQ(QColor(Qt::cyan), drawn.pixelGl(x, half));
            EXPECT_EQ(QColor(Qt::white), drawn.pixelGl(x + 1, half)) << "sharp";
        }
    }
}

TEST_F(VisAxesXYGlTest, TransparentAxesLeaveTheirLabels)
{
    Picture const before = updated();
    scene.axis("x").color.set(Qt::transparent);
    Picture const after = updated();
    FenOglViewport const data = scene.data();
    EXPECT_EQ(0, after.count(colors[0]));
    QRect const labels(0, before.height() - data.y() + 8, before.width(), 16);
    EXPECT_GT(after.count(Qt::black, labels, 60), 20);
    EXPECT_EQ("axis x", scene.pick(QPoint(data.x(), data.y() - 16), 3));
    EXPECT_EQ("chart", scene.pick(QPoint(data.x() + 33, data.y() - 1), 1));
}

TEST_F(VisAxesXYGlTest, CrowdedLabelsNeitherTouchNorLeaveTheChart)
{
    QStringList labels;
    for (int i = 0; i < 60; ++i) labels << QString("category %1").arg(i);
    scene.categories(labels);
    for (int width : {120, 250, 400, 777}) {
        resizePicture(width, 300);
        scene.resize(QSize(width, 300));
        Picture const drawn = updated();
        FenOglViewport const data = scene.data();
        int const row = drawn.height() - data.y() + 9;
        EXPECT_EQ(0, drawn.count(Qt::black, QRect(0, row, 1, 14), 80)) << width;
        EXPECT_EQ(0, drawn.count(Qt::black, QRect(width - 1, row, 1, 14), 80)) << width;
        // Columns without ink part the labels: inside one there are at most two in a row.
        std::vector<int> starts;
        int gap = 9;
        for (int x = 0; x < width; ++x) {
            bool const ink = drawn.count(Qt::white, QRect(x, row, 1, 14), 30) < 14;
            if (ink && gap > 5) starts.push_back(x);
            gap = ink ? 0 : gap + 1;
        }
        EXPECT_TRUE(!starts.empty() && int(starts.size()) <= width / 50) << width;
        for (std::size_t i = 2; i < starts.size(); ++i)
            EXPECT_LT(starts[i] - starts[i - 1], 1.5 * (starts[1] - starts[0])) << "none is left out";
    }
}

TEST_F(VisAxesXYGlTest, TitlesAreCentredWithFactorAndUnit)
{
    FenChartAxisContinuous& axis = scene.axis("x");
    auto const expectTitle = [&](QString const& title) {
        Picture const drawn = updated();
        FenOglViewport const data = scene.data();
        QRect const ink =
            drawn.copy(QRect(0, drawn.height() - data.y() + 30, drawn.width(), 22)).boundingBox();
        text->setPointSize(8);
        if (title.isEmpty()) {
            EXPECT_TRUE(ink.isNull());
            return;
        }
        int const width = std::min(text->size(title).width(), data.width());
        EXPECT_NEAR(width, ink.width(), title.size() < 100 ? 4 : 30) << title.toStdString();
        EXPECT_NEAR(data.x() + data.width() / 2, ink.center().x(), 3) << title.toStdString();
    };
    axis.title.set("Length");
    expectTitle("Length");
    axis.unit.set("m");
    axis.factor.set(1000);
    expectTitle("Length  (1000)  [m]");
    int const bottom = scene.data().y();
    axis.titleColor.set(Qt::transparent);
    expectTitle(QString());
    EXPECT_EQ(bottom, scene.data().y()) << "its room stays";
    axis.titleColor.set(Qt::black);
    axis.title.set(QString(300, 'W'));
    expectTitle(axis.title.get());
}

TEST_F(VisAxesXYGlTest, LabelsOfTheSidesStayInTheChart)
{
    scene.range("y", -1e5, 1e5);
    scene.range("right", -1e-7, 1e-7);
    QRect const ink = updated().boundingBox();
    EXPECT_TRUE(ink.left() > 0 && ink.left() < 4) << ink.left();
    EXPECT_TRUE(ink.right() < 399 && ink.right() > 394) << ink.right();
    // Right ends of all labels are in one column: "500" and "1000" stand flush.
    scene.range("y", 0, 1000);
    Picture const drawn = updated();
    FenOglViewport const data = scene.data();
    std::vector<int> ends;
    for (int percent : {0, 20, 40, 60, 80, 100}) {
        int const y = drawn.height() - 1 - (data.y() + data.height() * percent / 100);
        ends.push_back(drawn.copy(QRect(0, y - 5, data.x() - 5, 10)).boundingBox().right());
    }
    EXPECT_LE(*std::max_element(ends.begin(), ends.end()) - *std::min_element(ends.begin(), ends.end()), 1);
}
