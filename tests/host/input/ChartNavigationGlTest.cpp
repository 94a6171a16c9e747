#include "host/input/ChartNavigation.h"

#include "charts/chart2d/VisChart2D.h"
#include "host/scene/Scene.h"
#include "services/chartdata/ChartAxis.h"
#include "tests/support/OffscreenGlTest.h"

#include <QUndoStack>

#include <cmath>

namespace {

using Kes::Math::Vector3;

class ChartNavigationGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        scene = std::make_unique<FenVisScene>();
        navigation = std::make_unique<FenChartNavigation>(*scene);
        plot = &scene->add<FenVisChart2D>(QStringLiteral("plot"));
        curve = &plot->chart.variables.append(QStringLiteral("curve"));
        showData({0, 10}, {0, 100});
        setRange(*x(), 0, 10);
        setRange(*y(), 0, 100);
        layOut();
    }
    void TearDown() override
    {
        navigation.reset();
        scene.reset();
        OffscreenGlTest::TearDown();
    }

    void showData(std::vector<double> xs, std::vector<double> ys)
    {
        curve->setData(Vector3::CompX, std::move(xs));
        curve->setData(Vector3::CompY, std::move(ys));
    }
    static void setRange(FenChartAxis& axis, double min, double max)
    {
        axis.autoRange.set(false);
        axis.min.set(min);
        axis.max.set(max);
    }
    void layOut()
    {
        scene->resize(QSize(400, 300));
        scene->update();
    }
    FenChartAxis* x() const { return plot->chart.xAxes.first(); }
    FenChartAxis* y() const { return plot->chart.yAxes.first(); }
    /// [px] window point at fractions of the data rectangle
    QPoint at(double fx, double fy) const
    {
        FenOglViewport const data = plot->getDataViewport();
        return QPoint(data.x() + int(std::lround(fx * data.width())),
                      data.y() + int(std::lround(fy * data.height())));
    }

    std::unique_ptr<FenVisScene> scene;
    std::unique_ptr<FenChartNavigation> navigation;
    FenVisChart2D* plot = nullptr;
    FenChartVariable* curve = nullptr;
};

TEST_F(ChartNavigationGlTest, ZoomingKeepsTheValueUnderThePointer)
{
    double const pixel = 10.0 / plot->getDataViewport().width();
    QPoint const pointer = at(0.25, 0.5);
    EXPECT_TRUE(navigation->zoom(pointer, 0.5));
    EXPECT_NEAR(1.25, x()->min.get(), pixel);
    EXPECT_NEAR(6.25, x()->max.get(), pixel);
    EXPECT_NEAR(25, y()->min.get(), 10 * pixel);
    EXPECT_NEAR(50, y()->max.get() - y()->min.get(), 1e-9);
    layOut();
    EXPECT_TRUE(navigation->zoom(pointer, 2));
    layOut();
    EXPECT_NEAR(0, x()->min.get(), pixel);
    EXPECT_NEAR(10, x()->max.get(), pixel);
    EXPECT_EQ(1, scene->undoStack().count()) << "notches of one gesture join";
    scene->undoStack().undo();
    EXPECT_EQ(0, x()->min.get());
    EXPECT_EQ(10, x()->max.get());
}

TEST_F(ChartNavigationGlTest, WhatHappensBetweenTwoFramesAddsUp)
{
    for (int notch = 0; notch < 6; ++notch) EXPECT_TRUE(navigation->zoom(at(0.5, 0.5), 0.8));
    double const extent = 10 * std::pow(0.8, 6);
    EXPECT_NEAR(extent, x()->max.get() - x()->min.get(), 1e-9);
    double const before = x()->min.get();
    EXPECT_TRUE(navigation->beginDrag(at(0.5, 0.5)));
    EXPECT_TRUE(navigation->drag(at(0.75, 0.5)));
    navigation->endDrag();
    EXPECT_NEAR(extent, x()->max.get() - x()->min.get(), 1e-9) << "the zoom is not lost";
    EXPECT_NEAR(before - 0.25 * extent, x()->min.get(), 0.01 * extent);
}

TEST_F(ChartNavigationGlTest, WiderLabelsDoNotMoveTheValueUnderThePointer)
{
    QPoint const pointer = at(0.2, 0.5);
    auto const valueThere = [&] {
        FenOglViewport const data = plot->getDataViewport();
        double const fraction = double(pointer.x() - data.x()) / data.width();
        return x()->min.get() + fraction * (x()->max.get() - x()->min.get());
    };
    int const left = plot->getDataViewport().x();
    setRange(*y(), 0, 9);
    layOut();
    double const moved = valueThere();
    EXPECT_TRUE(navigation->zoom(pointer, 2000));
    layOut();
    EXPECT_NE(left, plot->getDataViewport().x());
    EXPECT_NEAR(moved, valueThere(), 0.1 * (x()->max.get() - x()->min.get()) / 400);
    EXPECT_EQ(1, scene->undoStack().count()) << "one step with its correction";
}

TEST_F(ChartNavigationGlTest, UndoDuringADragCancelsItAndNothingElse)
{
    EXPECT_TRUE(navigation->zoom(at(0.5, 0.5), 0.5));
    layOut();
    double const min = x()->min.get();
    EXPECT_TRUE(navigation->beginDrag(at(0.5, 0.5)));
    EXPECT_TRUE(navigation->drag(at(0.9, 0.5)));
    scene->undoStack().undo();
    EXPECT_EQ(min, x()->min.get());
    EXPECT_FALSE(navigation->drag(at(0.1, 0.5)));
    EXPECT_EQ(1, scene->undoStack().count());
    scene->undoStack().undo();
    EXPECT_EQ(0, x()->min.get());
}

TEST_F(ChartNavigationGlTest, UndoingAFitBringsTheZoomBack)
{
    EXPECT_TRUE(navigation->zoom(at(0.5, 0.5), 0.25));
    layOut();
    double const min = x()->min.get(), max = x()->max.get();
    EXPECT_TRUE(navigation->fitAll());
    layOut(); // the pass writes the whole range into the axis
    EXPECT_NE(min, x()->min.get());
    scene->undoStack().undo();
    layOut();
    EXPECT_FALSE(x()->autoRange.get());
    EXPECT_EQ(min, x()->min.get());
    EXPECT_EQ(max, x()->max.get());
    scene->undoStack().redo();
    EXPECT_TRUE(x()->autoRange.get());
}

TEST_F(ChartNavigationGlTest, ARectangleThatLeavesTheChartShowsWhatIsInside)
{
    double const pixel = 10.0 / plot->getDataViewport().width();
    EXPECT_TRUE(navigation->zoomTo(QRect(at(0.8, 0.2), at(3, 0.6) - QPoint(1, 1)), at(0.8, 0.2)));
    EXPECT_NEAR(8, x()->min.get(), pixel);
    EXPECT_EQ(10, x()->max.get());
    EXPECT_NEAR(60, y()->max.get(), 20 * pixel);
    EXPECT_FALSE(navigation->zoomTo(QRect(at(0.2, 0.1), QSize(2, 2)), at(0.2, 0.1))) << "a click";
    EXPECT_TRUE(navigation->fitAll());
    EXPECT_TRUE(x()->autoRange.get());
    EXPECT_FALSE(navigation->fitAll()) << "there is nothing left to fit";
}

TEST_F(ChartNavigationGlTest, LogarithmicAxesMoveInTheirExponents)
{
    dynamic_cast<FenChartAxisContinuous&>(*x()).logarithmic.set(true);
    showData({1, 10000}, {0, 100});
    setRange(*x(), 1, 10000);
    layOut();
    EXPECT_TRUE(navigation->zoom(at(0.5, 0.5), 0.5));
    EXPECT_NEAR(10, x()->min.get(), 0.5);
    EXPECT_NEAR(1000, x()->max.get(), 50);
    EXPECT_NEAR(2, std::log10(x()->max.get() / x()->min.get()), 1e-9);
}

TEST_F(ChartNavigationGlTest, TimesKeepTheirResolution)
{
    dynamic_cast<FenChartAxisContinuous&>(*x()).format.set(QStringLiteral("date"));
    double const begin = 1334448000; // 15 April 2012
    showData({begin, begin + 3600}, {0, 100});
    x()->autoRange.set(true);
    layOut();
    double const shown = plot->xScale().find(x()->name())->max() - plot->xScale().find(x()->name())->min();
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(navigation->zoom(at(0.5, 0.5), 0.8));
        layOut();
    }
    EXPECT_NEAR(shown * std::pow(0.8, 20), x()->max.get() - x()->min.get(), 1e-3);
    EXPECT_GT(x()->min.get(), begin);
    EXPECT_LT(x()->max.get(), begin + 3600);
}

TEST_F(ChartNavigationGlTest, RangesStayUsableHoweverFarOneZooms)
{
    for (double const factor : {0.01, 100.0}) {
        for (int i = 0; i < 200; ++i) {
            navigation->zoom(at(0.3, 0.7), factor);
            layOut();
        }
        EXPECT_LT(x()->min.get(), x()->max.get());
        EXPECT_TRUE(std::isfinite(x()->max.get() - x()->min.get()));
    }
    for (double const factor : {0.0, -1.0, std::nan(""), double(INFINITY)})
        EXPECT_FALSE(navigation->zoom(at(0.5, 0.5), factor));
}

} // namespace
