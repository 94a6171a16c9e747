#include "host/input/MouseTracker.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/legend/VisLegend.h"
#include "host/edit/UndoPropertyEdit.h"
#include "host/scene/Scene.h"
#include "tests/host/ProbeNode.h"
#include "tests/support/OffscreenGlTest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QUndoStack>

namespace {

QPoint const onFirst(15, 15); // [px] middles of the squares
QPoint const onSecond(55, 15);
QPoint const onNothing(300, 200);

class MouseTrackerGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        scene = std::make_unique<FenVisScene>();
        node = &scene->add<ProbeNode>(QStringLiteral("probe"));
        node->squares = {QRect(10, 10, 20, 20), QRect(50, 10, 20, 20)};
        for (int i = 0; i < 2; ++i) node->owners.push_back(std::make_unique<FenProperties>(scene->group()));
        scene->resize(QSize(400, 300));
        scene->update();
        tracker = std::make_unique<FenMouseTracker>(*scene);
        tracker->setHoverDelay(0);
        FenMouseTracker::Output output;
        output.redraw = [this] { ++redraws; };
        output.tooltip = [this](QString const& shown, QPoint) { tooltips << shown; };
        tracker->setOutput(output);
    }
    void TearDown() override
    {
        tracker.reset();
        scene.reset();
        OffscreenGlTest::TearDown();
    }

    /// Rests at a point until the hover has run.
    QStringList restAt(QPoint point)
    {
        tracker->move(point);
        tracker->flush();
        return node->takeCalls();
    }
    QStringList dragFromFirst(QPoint to)
    {
        tracker->press(onFirst, Qt::LeftButton);
        tracker->move(to);
        return node->takeCalls();
    }

    std::unique_ptr<FenVisScene> scene;
    ProbeNode* node = nullptr;
    std::unique_ptr<FenMouseTracker> tracker;
    int redraws = 0;
    QStringList tooltips;
};

TEST_F(MouseTrackerGlTest, HoveringEntersAndLeavesWhatThePointerRestsOn)
{
    EXPECT_EQ(QStringList({"over 1"}), restAt(onFirst));
    EXPECT_EQ("square 1", tracker->tooltip());
    EXPECT_EQ(QStringList({"leave 1", "over 2"}), restAt(onSecond)) << "name 1 is not in the new table";
    EXPECT_EQ(QStringList({"square 1", "square 2"}), tooltips) << "no flicker in between";
    EXPECT_EQ(QStringList({"leave 2"}), restAt(onNothing));
    EXPECT_EQ("", tracker->tooltip());
    EXPECT_FALSE(tracker->hovered().defined());
    EXPECT_EQ(3, redraws);

    restAt(onFirst);
    EXPECT_TRUE(tracker->leave());
    EXPECT_EQ(QStringList({"leave 1"}), node->takeCalls());
}

TEST_F(MouseTrackerGlTest, ManyMovesInOneTurnOfTheEventLoopMakeOnePick)
{
    for (int x = 0; x < 50; ++x) tracker->move(QPoint(x, 15));
    tracker->move(onSecond);
    EXPECT_EQ(0, node->picks);
    QElapsedTimer patience;
    patience.start();
    while (node->picks == 0 && patience.elapsed() < 5000) QCoreApplication::processEvents();
    EXPECT_EQ(1, node->picks);
    EXPECT_EQ(QStringList({"over 2"}), node->takeCalls());

    tracker->setHoverDelay(60000);
    tracker->move(onFirst);
    QCoreApplication::processEvents();
    EXPECT_EQ(1, node->picks) << "the pointer has not rested yet";
}

TEST_F(MouseTrackerGlTest, PicksWhileThePointerMovesAndAfterAnUpdate)
{
    tracker->setHoverDelay(30);
    QElapsedTimer patience;
    patience.start();
    auto const morePicks = [&](int wanted, bool moving) {
        while (node->picks < wanted && patience.elapsed() < 5000) {
            if (moving) tracker->move(onFirst + QPoint(int(patience.elapsed()) % 3, 0));
            QCoreApplication::processEvents();
        }
        return node->picks >= wanted;
    };
    EXPECT_TRUE(morePicks(2, true)) << "it never rests";
    tracker->flush();
    node->takeCalls();
    int const before = node->picks;
    node->squares[0].moveLeft(200); // live data
    node->modify();
    scene->update();
    EXPECT_TRUE(morePicks(before + 1, false));
    EXPECT_EQ(QStringList({"leave 1"}), node->takeCalls());
}

TEST_F(MouseTrackerGlTest, AClickSelectsAndAShakyHandIsNoDrag)
{
    FenVisHitProperty selected;
    tracker->setOnSelect([&](FenVisHitProperty const& what) { selected = what; });
    tracker->press(onFirst, Qt::LeftButton);
    tracker->move(onFirst + QPoint(1, 2));
    EXPECT_FALSE(tracker->dragging());
    EXPECT_TRUE(tracker->release(onFirst + QPoint(1, 2), Qt::LeftButton));
    EXPECT_EQ(QStringList({"select 1"}), node->takeCalls());
    EXPECT_TRUE(selected.isPropertyEqual(node->owner(1)));
}

TEST_F(MouseTrackerGlTest, ADragCarriesThePressedHitWhereverItGoesAndIsOneStep)
{
    int const picksBefore = node->picks;
    EXPECT_EQ(QStringList({"drag 1 (-40,0)"}), dragFromFirst(onSecond)) << "nothing of the way is lost";
    EXPECT_FALSE(tracker->leave()) << "it may come back";
    tracker->press(onSecond, Qt::RightButton); // a second button changes nothing
    tracker->release(onSecond, Qt::RightButton);
    tracker->doubleClick(onSecond, Qt::LeftButton);
    tracker->wheel(onSecond, 1);
    tracker->move(QPoint(-500, 900));
    EXPECT_TRUE(tracker->dragging());
    tracker->release(QPoint(115, 15), Qt::LeftButton);
    EXPECT_EQ(QStringList({"drag 1 (55,-284)", "drag 1 (-115,284)", "release 1"}), node->takeCalls());
    EXPECT_EQ(picksBefore + 1, node->picks) << "the press picked, nothing since";
    EXPECT_EQ(100, node->x.get());
    EXPECT_EQ(1, scene->undoStack().count());
    EXPECT_EQ("Move probe", scene->undoStack().undoText());
    scene->undoStack().undo();
    EXPECT_EQ(0, node->x.get());
}

TEST_F(MouseTrackerGlTest, EscapePutsBackWhatADragHasChanged)
{
    dragFromFirst(onSecond);
    EXPECT_TRUE(tracker->cancel());
    EXPECT_EQ(QStringList({"release 1"}), node->takeCalls());
    EXPECT_EQ(0, node->x.get());
    EXPECT_EQ(0, scene->undoStack().count());
    EXPECT_TRUE(node->watcher().modified()) << "what it shows is made anew";
    tracker->move(QPoint(200, 15));
    tracker->release(QPoint(200, 15), Qt::LeftButton);
    EXPECT_TRUE(node->takeCalls().isEmpty());

    dragFromFirst(onSecond);
    scene->undoStack().undo(); // the same by the menu
    EXPECT_EQ(QStringList({"release 1"}), node->takeCalls());
    EXPECT_EQ(0, scene->undoStack().count());
    EXPECT_FALSE(scene->propertyEdit().stepOpen());
    tracker->release(onSecond, Qt::LeftButton);

    node->takesDrags = false; // a refused drag is offered again
    dragFromFirst(onSecond);
    EXPECT_FALSE(tracker->dragging());
    node->takesDrags = true;
    tracker->move(onSecond + QPoint(5, 0));
    EXPECT_EQ(QStringList({"drag 1 (-5,0)"}), node->takeCalls());
    tracker->releaseLost(onSecond);
    EXPECT_FALSE(tracker->pressed());
}

TEST_F(MouseTrackerGlTest, ANodeMayBeDeletedAtAnyTime)
{
    restAt(onFirst);
    dragFromFirst(onSecond);
    scene->root().erase(node);
    EXPECT_TRUE(tracker->move(QPoint(90, 20)));
    EXPECT_FALSE(tracker->dragging());
    tracker->move(QPoint(95, 20));
    tracker->release(QPoint(99, 20), Qt::LeftButton);
    EXPECT_FALSE(scene->propertyEdit().stepOpen());
    tracker->move(onFirst);
    tracker->flush();
    tracker->leave();
    EXPECT_EQ(0, scene->undoStack().count());
}

TEST_F(MouseTrackerGlTest, EachInteractionCanBeSwitchedOff)
{
    tracker->setInteraction(FenMouseTracker::NodeDrag, false);
    EXPECT_TRUE(dragFromFirst(onSecond).isEmpty());
    tracker->release(onSecond, Qt::LeftButton);
    tracker->setInteraction(FenMouseTracker::Hover, false);
    EXPECT_TRUE(restAt(onFirst).isEmpty());
    tracker->setInteraction(FenMouseTracker::Select, false);
    tracker->press(onFirst, Qt::LeftButton);
    tracker->release(onFirst, Qt::LeftButton);
    EXPECT_TRUE(node->takeCalls().isEmpty());
}

TEST_F(MouseTrackerGlTest, ALegendIsDraggedAsOneStepAndEscapeLetsItStay)
{
    scene->root().erase(node);
    FenVisChart2D& plot = scene->add<FenVisChart2D>(QStringLiteral("plot"));
    plot.chart.variables.append(QStringLiteral("curve")).setData(Kes::Math::Vector3::CompY, {1, 2, 3});
    FenVisLegend& legend = scene->add<FenVisLegend>(QStringLiteral("legend"));
    legend.legend.chart.set(plot.name());
    auto const draw = [&] {
        scene->update();
        scene->draw();
        return legend.box();
    };
    auto const middle = [&] {
        FenOglViewport const box = draw();
        FenOglViewport const data = plot.getDataViewport();
        return data.origin() + box.origin() + QPoint(box.width() / 2, box.height() / 2);
    };
    FenOglViewport const before = draw();
    ASSERT_TRUE(before.valid());
    int const way = before.x() > plot.getDataViewport().width() / 2 ? -50 : 50;
    auto const drag = [&] {
        QPoint const from = middle();
        tracker->press(from, Qt::LeftButton);
        tracker->move(from + QPoint(way / 2, 0));
        tracker->move(from + QPoint(way, 0));
        EXPECT_EQ(before.x() + way, draw().x());
        return from + QPoint(way, 0);
    };
    plot.chart.xAxes.first()->autoRange.set(false);
    tracker->doubleClick(middle(), Qt::LeftButton);
    tracker->release(middle(), Qt::LeftButton);
    EXPECT_FALSE(plot.chart.xAxes.first()->autoRange.get()) << "it is not the chart that was meant";
    plot.chart.xAxes.first()->autoRange.set(true);

    drag();
    tracker->cancel();
    EXPECT_EQ(before, draw());
    tracker->releaseLost(QPoint());
    EXPECT_EQ(0, scene->undoStack().count());

    tracker->release(drag(), Qt::LeftButton);
    EXPECT_EQ(before.x() + way, draw().x());
    EXPECT_EQ("Move legend", scene->undoStack().undoText());
    scene->undoStack().undo();
    EXPECT_EQ(before, draw());
}

} // namespace
