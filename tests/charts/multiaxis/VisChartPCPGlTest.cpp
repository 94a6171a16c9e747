#include "charts/parallel/VisChartPCP.h"

#include "host/edit/UndoPropertyEdit.h"
#include "host/input/MouseTracker.h"
#include "host/scene/Scene.h"
#include "host/scene/VisPick.h"
#include "picking/hits/IVisEventHandler.h"
#include "services/chartdata/ChartVariable.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/SceneBuilder.h"

#include <QUndoStack>

#include <cmath>

/// Two axes, "a" from 0 to 10 and "b" from 0 to 100, with records in red.
class VisChartPCPGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        scene.resize(QSize(400, 300));
        add("a", {0, 10, 5, 5});
        add("b", {0, 100, 50, 90});
        chart.chart.itemColors.set({QColor(Qt::red)});
    }

    FenChartVariable& add(QString const& name, std::vector<double> values)
    {
        FenChartVariable& variable = chart.chart.variables.append(name);
        variable.setData(Kes::Math::Vector3::CompY, std::move(values));
        return variable;
    }
    void draw()
    {
        clear();
        scene.update();
        scene.draw();
    }
    /// [px] place on the axis at a position.
    QPoint place(int position, double fraction) const
    {
        FenOglViewport const plot = chart.getDataViewport();
        int const spacing = plot.width() / (int(chart.validVariables().size()) - 1);
        return QPoint(plot.x() + position * spacing, plot.y() + int(fraction * plot.height()));
    }
    QString pickAt(QPoint const& point, int size = 3)
    {
        scene.update();
        return describeHit(scene.pick(point, QSize(size, size)).property);
    }

    FenVisScene scene;
    FenVisChartPCP& chart = scene.add<FenVisChartPCP>("plot");
};

TEST_F(VisChartPCPGlTest, DrawsAxesAndRecordsWhereTheyArePicked)
{
    draw();
    QPoint const middle((place(0, 0).x() + place(1, 0).x()) / 2, place(0, 0.5).y());
    EXPECT_EQ(QColor(Qt::black), picture().pixelGl(place(0, 0.5).x(), place(0, 0.25).y()));
    EXPECT_NE(QColor(Qt::white), picture().pixelGl(middle.x(), middle.y()));
    EXPECT_EQ(QColor(Qt::white), picture().pixelGl(middle.x(), place(0, 0.1).y())) << "between the lines";
    EXPECT_EQ("variable a, name(a)", pickAt(place(0, 0.25)));
    EXPECT_EQ("variable b, name(b)", pickAt(place(1, 0.25)));
    EXPECT_EQ("variable a, name(a)", pickAt(place(0, 0) - QPoint(0, 18))) << "its label";
    EXPECT_EQ("chart, dataPointIdx(3)", pickAt(QPoint(middle.x(), place(0, 0.7).y())));
    EXPECT_EQ("chart, dataPointIdx(2)", pickAt(middle)) << "the last drawn of three";
    EXPECT_EQ("chart", pickAt(QPoint(middle.x(), place(0, 0.1).y())));
    chart.chart.firstAxis.set("b");
    scene.update();
    EXPECT_EQ("variable b, name(b)", pickAt(place(0, 0.25)));
    chart.chart.variables[0].colors.set({QColor(Qt::blue)});
    draw();
    EXPECT_EQ(QColor(Qt::blue), picture().pixelGl(place(1, 0).x(), place(1, 0.25).y()));
}

TEST_F(VisChartPCPGlTest, TooltipsTellAxisLimitAndRecord)
{
    chart.chart.variables[0].filter.set(true);
    chart.chart.variables[0].displayFactor.set(1000);
    chart.chart.itemLabels.set({"one", "two", "three", "four"});
    scene.update();
    FenMouseTracker tracker(scene);
    auto const hover = [&](QPoint const& point) {
        tracker.move(point);
        tracker.flush();
        return tracker.tooltip();
    };
    EXPECT_EQ("a(x1000)", hover(place(0, 0.4)));
    EXPECT_EQ("a(x1000): 0", hover(place(0, 0)));
    EXPECT_EQ("a(x1000): 0.01", hover(place(0, 1) + QPoint(0, 8)));
    EXPECT_EQ("four\na: 0.005\nb: 90",
              hover(QPoint((place(0, 0).x() + place(1, 0).x()) / 2, place(0, 0.7).y())));
    EXPECT_EQ("", hover(QPoint((place(0, 0).x() + place(1, 0).x()) / 2, place(0, 0.1).y()))) << "no record";
}

TEST_F(VisChartPCPGlTest, ASliderShowsItsEffectAtOnceAndIsOneStepOfUndo)
{
    FenChartVariable& b = chart.chart.variables[1];
    b.filter.set(true);
    draw();
    Picture const before = picture();
    EXPECT_EQ("variable b, filterRangeMin(0)", pickAt(place(1, 0) + QPoint(0, 5)));
    FenMouseTracker tracker(scene);
    QPoint const handle = place(1, 0), target = place(1, 0.6);
    tracker.press(handle, Qt::LeftButton);
    tracker.move(handle + QPoint(0, 10));
    tracker.move(target);
    draw();
    EXPECT_GT(before.differingPixels(picture(), 8), 100) << "while it is dragged";
    EXPECT_EQ(4, std::count(chart.GetDataValid().begin(), chart.GetDataValid().end(), true))
        << "committed: none";
    tracker.release(target, Qt::LeftButton);
    scene.update();
    EXPECT_NEAR(60, b.filterRangeMin.get(), 0.5);
    EXPECT_NEAR(100, b.filterRangeMax.get(), 1e-3) << "or the new limit would mean nothing";
    EXPECT_EQ((std::vector<bool>{false, true, false, true}), chart.GetDataValid());
    EXPECT_EQ(1, scene.undoStack().count());
    scene.undoStack().undo();
    draw();
    EXPECT_EQ(0, before.differingPixels(picture()));
}

TEST_F(VisChartPCPGlTest, DragsOfWhatIsNoSliderAreNotTaken)
{
    scene.update();
    auto const drag = [&](QPoint const& point, QPoint const& offset) {
        FenVisPick const pick = scene.pick(point, QSize(3, 3));
        return pick.handler.lock()->OnMouseDrag(pick.record, offset);
    };
    EXPECT_FALSE(drag(place(0, 0), QPoint(0, -5))) << "no filter, no slider";
    EXPECT_EQ("variable a, name(a)", pickAt(place(0, 0)));
    chart.chart.variables[0].filter.set(true);
    scene.update();
    EXPECT_FALSE(drag(place(0, 0.4), QPoint(0, -5))) << "the axis";
    EXPECT_FALSE(drag(place(0, 0), QPoint(7, 0))) << "not along the axis";
    EXPECT_TRUE(drag(place(0, 0), QPoint(0, -5)));
    FenVisPick const slider = scene.pick(place(0, 0), QSize(3, 3));
    EXPECT_TRUE(slider.handler.lock()->OnMouseRelease(slider.record));
    scene.update();
    FenVisPick const axis = scene.pick(place(0, 0.4), QSize(3, 3));
    EXPECT_FALSE(axis.handler.lock()->OnMouseRelease(axis.record));
}

TEST_F(VisChartPCPGlTest, BadContentDrawsWhatItCan)
{
    QString const longName = QString(1000, 'x') + "\n<b>bold</b>";
    struct Row {
        char const* what;
        int variables;
        QSize size;
        std::function<void(FenChartVariable&, int)> change;
    };
    double const nan = std::nan(""), inf = std::numeric_limits<double>::infinity();
    Row const rows[] = {{"none", 0, {400, 300}, [](auto&, int) {}},
                        {"one", 1, {400, 300}, [](auto&, int) {}},
                        {"three hundred", 300, {400, 300}, [](auto&, int) {}},
                        {"constant",
                         3,
                         {400, 300},
                         [](auto& v, int) {
                             v.setData(Kes::Math::Vector3::CompY, {4, 4});
                         }},
                        {"gaps",
                         4,
                         {400, 300},
                         [=](auto& v, int i) {
                             v.setData(Kes::Math::Vector3::CompY, {nan, i % 2 ? 1.0 : nan, inf, double(i)});
                         }},
                        {"all missing",
                         3,
                         {400, 300},
                         [=](auto& v, int) {
                             v.setData(Kes::Math::Vector3::CompY, {nan, nan});
                         }},
                        {"long names", 4, {400, 300}, [&](auto& v, int) { v.label.set(longName); }},
                        {"smaller than the margins", 3, {20, 20}, [](auto&, int) {}},
                        {"a pixel", 3, {1, 1}, [](auto&, int) {}},
                        {"limits the wrong way", 3, {400, 300}, [](auto& v, int) {
                             v.filter.set(true);
                             v.filterRangeMin.set(9);
                             v.filterRangeMax.set(1);
                         }}};
    for (Row const& row : rows) {
        SCOPED_TRACE(row.what);
        while (chart.chart.variables.size() > 0) chart.chart.variables.removeAt(0);
        for (int i = 0; i < row.variables; ++i) row.change(add(QString("v%1").arg(i), {0, 10.0 + i, 5}), i);
        scene.resize(row.size);
        expectPassKeepsState([&] { draw(); });
        expectPassKeepsState(
            [&] { scene.pick(QPoint(row.size.width() / 2, row.size.height() / 2), QSize(5, 5)); });
    }
}
