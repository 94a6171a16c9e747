#include "host/input/MouseTracker.h"
#include "host/scene/Scene.h"
#include "scene/VisAnnotation.h"
#include "tests/support/OffscreenGlTest.h"

#include <QUndoStack>

namespace {

/// A box of 100 x 50 px at (40, 30), whose strip lies at y = 89..100.
class BoxInput : public OffscreenGlTest {
protected:
    BoxInput()
    {
        note.moveable.set(true);
        note.resizeable.set(true);
        note.viewport.x.set(40);
        note.viewport.y.set(30);
        note.viewport.width.set(100);
        note.viewport.height.set(50);
        scene.resize(QSize(400, 300));
        FenMouseTracker::Output output;
        output.cursor = [this](Qt::CursorShape shape) { cursor = shape; };
        tracker.setOutput(output);
    }
    Qt::CursorShape cursorAt(QPoint const& point)
    {
        scene.update();
        tracker.move(point);
        tracker.flush();
        return cursor;
    }
    FenOglViewport box()
    {
        scene.update();
        FenOglViewport own;
        note.getViewport(FenOglViewport(0, 0, 400, 300), own);
        return FenOglViewport(own.x(), own.y(), own.width() - 6, own.height() - 24);
    }

    FenVisScene scene;
    FenVisAnnotation& note = scene.add<FenVisAnnotation>("note");
    FenMouseTracker tracker{scene};
    Qt::CursorShape cursor = Qt::ArrowCursor;
};

constexpr QPoint strip(90, 95);

} // namespace

TEST_F(BoxInput, TheCursorTellsWhatADragWouldDo)
{
    std::pair<QPoint, Qt::CursorShape> const rows[] = {
        {{90, 50}, Qt::ArrowCursor},      {strip, Qt::SizeAllCursor},        {{41, 31}, Qt::SizeBDiagCursor},
        {{144, 31}, Qt::SizeFDiagCursor}, {{144, 103}, Qt::SizeBDiagCursor}, {{41, 103}, Qt::SizeFDiagCursor},
        {{300, 200}, Qt::ArrowCursor}};
    for (auto const& [point, expected] : rows)
        EXPECT_EQ(expected, cursorAt(point)) << point.x() << ' ' << point.y();
    note.resizeable.set(false);
    EXPECT_EQ(Qt::ArrowCursor, cursorAt(QPoint(41, 31)));
    EXPECT_EQ(Qt::SizeAllCursor, cursorAt(strip));
    tracker.leave();
    EXPECT_EQ(Qt::ArrowCursor, cursor);
}

TEST_F(BoxInput, ADragPastTheEdgeOfThePictureKeepsTheGrabbedPartInside)
{
    scene.update();
    tracker.press(strip, Qt::LeftButton);
    tracker.move(QPoint(95, 95));
    tracker.move(QPoint(5000, -7000));
    EXPECT_EQ(FenOglViewport(40 + 399 - 90, 30 - 95, 100, 50), box());
    tracker.move(QPoint(5001, -7001)); // still at the corner
    tracker.release(QPoint(100, 95), Qt::LeftButton);
    EXPECT_EQ(FenOglViewport(50, 30, 100, 50), box()) << "and comes back with the pointer";
    EXPECT_EQ(1, scene.undoStack().count());
}

TEST_F(BoxInput, ArrowKeysMoveTheBoxThatWasClickedLast)
{
    scene.update();
    EXPECT_FALSE(tracker.key(Qt::Key_Left));
    tracker.press(QPoint(90, 50), Qt::LeftButton);
    tracker.release(QPoint(90, 50), Qt::LeftButton);
    EXPECT_TRUE(tracker.key(Qt::Key_Right));
    EXPECT_TRUE(tracker.key(Qt::Key_Up, Qt::ShiftModifier));
    EXPECT_EQ(FenOglViewport(41, 40, 100, 50), box());
    scene.undoStack().undo();
    EXPECT_EQ(FenOglViewport(41, 30, 100, 50), box());
    note.moveable.set(false);
    note.resizeable.set(false);
    EXPECT_FALSE(tracker.key(Qt::Key_Down));
    note.moveable.set(true);
    tracker.press(QPoint(300, 200), Qt::LeftButton);
    tracker.release(QPoint(300, 200), Qt::LeftButton);
    EXPECT_FALSE(tracker.key(Qt::Key_Down)) << "a click elsewhere lets go of it";
    tracker.press(QPoint(90, 50), Qt::LeftButton);
    tracker.release(QPoint(90, 50), Qt::LeftButton);
    scene.root().erase(&note);
    EXPECT_FALSE(tracker.key(Qt::Key_Down));
}
