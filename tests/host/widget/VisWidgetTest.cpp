#include "host/widget/VisWidget.h"

#include "charts/chart2d/VisChart2D.h"
#include "host/scene/Scene.h"
#include "services/chartdata/ChartAxis.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Picture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QRubberBand>
#include <QScreen>
#include <QTest>
#include <QToolTip>
#include <QUndoStack>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

using Kes::Math::Vector3;

/// A shown widget with one chart: a horizontal red curve with a symbol in its middle.
class VisWidgetTest : public testing::Test {
protected:
    VisWidgetTest()
    {
        FenVisScene& scene = widget->scene();
        plot = &scene.add<FenVisChart2D>(QStringLiteral("plot"));
        curve = &plot->chart.variables.append(QStringLiteral("<b>curve</b>"));
        curve->setData(Vector3::CompX, {0, 5, 10});
        curve->setData(Vector3::CompY, {50, 50, 50});
        curve->lineColor.set(Qt::red);
        curve->lineWidth.set(5);
        curve->symbol.set(FenChart::symbolRect);
        curve->symbolSize.set(15);
        for (FenChartAxis* const axis : {x(), y()}) axis->autoRange.set(false);
        x()->max.set(10);
        y()->max.set(100);
        widget->tracker().setHoverDelay(0);
        widget->resize(400, 300);
        host.resize(420, 320);
        widget->setParent(&host);
        widget->move(10, 10);
        host.move(50, 50);
        host.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&host));
        waitForFrame();
    }

    void waitForFrame()
    {
        bool drawn = false;
        auto const swapped =
            QObject::connect(widget, &QOpenGLWidget::frameSwapped, widget, [&] { drawn = true; });
        widget->update();
        EXPECT_TRUE(QTest::qWaitFor([&] { return drawn; }));
        QObject::disconnect(swapped);
    }
    /// A point of the widget [from its top left] at fractions of the data rectangle.
    QPoint at(double fx, double fy) const
    {
        FenOglViewport const data = plot->getDataViewport();
        return QPoint(data.x() + int(fx * data.width()),
                      widget->height() - 1 - data.y() - int(fy * data.height()));
    }
    void wheel(QPoint point, int notches)
    {
        QWheelEvent event(point, widget->mapToGlobal(point), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    }
    void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(widget, button, keys, from);
        for (int i = 1; i <= 4; ++i) moveHeld(from + (to - from) * i / 4, button);
    }
    /// QTest::mouseMove tells of no buttons.
    void moveHeld(QPoint point, Qt::MouseButton button)
    {
        QMouseEvent event(QEvent::MouseMove, point, widget->mapToGlobal(point), Qt::NoButton, button, {});
        QApplication::sendEvent(widget, &event);
    }
    FenChartAxis* x() const { return plot->chart.xAxes.first(); }
    FenChartAxis* y() const { return plot->chart.yAxes.first(); }
    double extent(FenChartAxis* axis) const { return axis->max.get() - axis->min.get(); }
    QUndoStack& steps() { return widget->scene().undoStack(); }

    LogCapture log;
    QWidget host;
    FenVisWidget* widget = new FenVisWidget;
    FenVisChart2D* plot = nullptr;
    FenChartVariable* curve = nullptr;
};

TEST_F(VisWidgetTest, DrawsInDevicePixelsWithALayoutInLogicalOnes)
{
    Picture const picture(widget->picture());
    double const ratio = widget->devicePixelRatioF();
    EXPECT_EQ(std::lround(400 * ratio), picture.width());
    EXPECT_EQ(std::lround(300 * ratio), picture.height());
    QPoint const middle = at(0.25, 0.5) * ratio;
    EXPECT_TRUE(picture.is(middle.x(), middle.y(), Qt::red));
    double const red = picture.count(Qt::red) / (ratio * ratio);
    double const lineArea = plot->getDataViewport().width() * 5;
    EXPECT_NEAR(lineArea, red, 0.15 * lineArea) << "lines grow with the ratio";
}

TEST_F(VisWidgetTest, HoveringShowsAPlainTooltipNextToThePointerInsideTheScreen)
{
    QTest::mouseMove(widget, at(0.25, 0.9));
    QTest::mouseMove(widget, at(0.5, 0.5));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QToolTip::isVisible(); }));
    EXPECT_EQ("<b>curve</b> { 5, 50 } ", widget->tooltip());
    EXPECT_TRUE(QToolTip::text().contains("&lt;b&gt;curve&lt;/b&gt; { 5, 50 }"))
        << QToolTip::text().toStdString();
    QWidget* tip = nullptr;
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel")) tip = window;
    ASSERT_NE(nullptr, tip);
    QPoint const pointer = widget->mapToGlobal(at(0.5, 0.5));
    EXPECT_LT((tip->pos() - pointer).manhattanLength(), 60);

    host.move(host.screen()->geometry().bottomRight() - QPoint(300, 200)); // the chart's middle at the corner
    QTest::mouseMove(widget, at(0.25, 0.9));
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget->tooltip().isEmpty(); }));
    QTest::mouseMove(widget, at(0.5, 0.5));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !widget->tooltip().isEmpty(); }));
    EXPECT_TRUE(host.screen()->geometry().contains(tip->frameGeometry()));
}

TEST_F(VisWidgetTest, HoveringHighlightsAndLeavingClearsIt)
{
    Picture const before(widget->picture());
    QTest::mouseMove(widget, at(0.5, 0.5));
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget->tracker().hovered().isPropertyEqual(curve); }));
    waitForFrame();
    EXPECT_GT(before.differingPixels(Picture(widget->picture()), 8), 50);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(widget, &leave);
    EXPECT_FALSE(widget->tracker().hovered().defined());
    waitForFrame();
    EXPECT_EQ(0, before.differingPixels(Picture(widget->picture())));
}

TEST_F(VisWidgetTest, TheWheelZoomsAtThePointerAndCtrlZBringsItBack)
{
    wheel(at(0.25, 0.5), 1);
    EXPECT_NEAR(8, extent(x()), 1e-9);
    EXPECT_NEAR(2.5, x()->min.get() + 0.25 * 8, 0.05);
    QPoint const belowTheAxis(at(0.5, 0).x(), at(0, 0).y() + 6);
    waitForFrame();
    wheel(belowTheAxis, -1);
    EXPECT_NEAR(10, extent(x()), 1e-9);
    EXPECT_NEAR(80, extent(y()), 1e-9);
    while (steps().canUndo()) steps().undo();
    EXPECT_EQ(100, extent(y()));
}

TEST_F(VisWidgetTest, DraggingMovesTheChartEvenBeyondTheWindow)
{
    drag(at(0.5, 0.5), at(1.5, 0.5));
    EXPECT_TRUE(widget->tracker().dragging());
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at(1.5, 0.5));
    EXPECT_NEAR(-10, x()->min.get(), 0.1);
    EXPECT_EQ(1, steps().count());
    drag(at(0.5, 0.5), at(0.2, 0.2));
    QTest::keyClick(widget, Qt::Key_Escape);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at(0.2, 0.2));
    EXPECT_NEAR(-10, x()->min.get(), 0.1) << "escape puts it back";
    EXPECT_EQ(1, steps().count());
}

TEST_F(VisWidgetTest, ARubberBandShowsItselfAndZooms)
{
    drag(at(0.2, 0.8), at(0.6, 0.3), Qt::RightButton);
    auto* const band = widget->findChild<QRubberBand*>();
    ASSERT_NE(nullptr, band);
    EXPECT_TRUE(band->isVisible());
    EXPECT_EQ(QRect(at(0.2, 0.8), at(0.6, 0.3)), band->geometry());
    QTest::mouseRelease(widget, Qt::RightButton, {}, at(0.6, 0.3));
    EXPECT_FALSE(band->isVisible());
    EXPECT_NEAR(2, x()->min.get(), 0.1);
    EXPECT_NEAR(6, x()->max.get(), 0.1);
    EXPECT_NEAR(30, y()->min.get(), 1);
    EXPECT_NEAR(80, y()->max.get(), 1);
    QTest::mouseDClick(widget, Qt::LeftButton, {}, at(0.5, 0.8));
    EXPECT_TRUE(x()->autoRange.get()) << "a double click fits";
    EXPECT_FALSE(widget->tracker().pressed());
}

TEST_F(VisWidgetTest, AMenuComesWithAClickAndNotWithADrag)
{
    int menus = 0;
    widget->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(widget, &QWidget::customContextMenuRequested, widget, [&] { ++menus; });
    auto const pressAt = [&](QPoint point) { // as the window system does it
        QTest::mousePress(widget, Qt::RightButton, {}, point);
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, widget->mapToGlobal(point));
        QApplication::sendEvent(widget, &event);
    };
    pressAt(at(0.2, 0.8));
    for (int i = 1; i <= 4; ++i) moveHeld(at(0.2 + 0.1 * i, 0.5), Qt::RightButton);
    QTest::mouseRelease(widget, Qt::RightButton, {}, at(0.6, 0.5));
    EXPECT_EQ(0, menus);
    pressAt(at(0.5, 0.5));
    EXPECT_EQ(0, menus);
    QTest::mouseRelease(widget, Qt::RightButton, {}, at(0.5, 0.5));
    EXPECT_EQ(1, menus);
}

TEST_F(VisWidgetTest, HiddenInADragItShowsWhatWasBefore)
{
    drag(at(0.5, 0.5), at(0.8, 0.5));
    host.hide();
    EXPECT_EQ(0, x()->min.get());
    bool drawn = false;
    QObject::connect(widget, &QOpenGLWidget::frameSwapped, widget, [&] { drawn = true; });
    host.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return drawn; }));
}

TEST_F(VisWidgetTest, InAnotherWindowItDrawsTheSamePicture)
{
    Picture const before(widget->picture());
    QOpenGLContext const* const oldContext = widget->context();
    QWidget other;
    other.resize(420, 320);
    widget->setParent(&other);
    widget->move(10, 10);
    widget->show();
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    waitForFrame();
    EXPECT_NE(oldContext, widget->context());
    EXPECT_EQ(0, before.differingPixels(Picture(widget->picture())));
    widget->setParent(&host);
}

} // namespace
