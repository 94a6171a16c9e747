#include "scene/VisAnnotation.h"

#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitRecordQuery.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/RecordingNode.h"

#include <climits>
#include <memory>

namespace {

typedef FenVisHitResizeQualifier::ResizeArea Area;

/// A box of 100 x 50 px at (40, 30) of a parent that does not begin at the origin.
class VisAnnotationGl : public OffscreenGlTest {
protected:
    VisAnnotationGl()
    {
        note->enabled.set(true);
        note->moveable.set(true);
        note->resizeable.set(true);
        note->viewport.x.set(40);
        note->viewport.y.set(30);
        note->viewport.width.set(100);
        note->viewport.height.set(50);
        note->getViewport(parent, own);
    }
    /// What wins a pick at a point [px] relative to the box: "nothing", "note", "move", "resize 2".
    QString pick(QPoint const& point, int size = 0)
    {
        FenVisHitRecordList const hits = note->select2d(passes.select(point, QSize(size, size)));
        record = FenVisHitRecordQuery::top(hits, &handler);
        FenVisHitProperty const what = note->hitProperty(record.context());
        auto const* const corner = dynamic_cast<FenVisHitResizeQualifier const*>(what.qualifier.get());
        if (corner) return QStringLiteral("resize %1").arg(int(corner->area));
        if (dynamic_cast<FenVisHitMoveQualifier const*>(what.qualifier.get())) return "move";
        return what.isPropertyEqual(note.get()) ? "note" : "nothing";
    }
    /// Drags what was picked by (dx, dy) [px] in two events and releases it.
    bool drag(int dx, int dy)
    {
        auto const held = handler.lock();
        bool const taken = held->OnMouseDrag(record, QPoint(-dx / 2, -dy / 2))
            && held->OnMouseDrag(record, QPoint(-(dx - dx / 2), -(dy - dy / 2)));
        return held->OnMouseRelease(record) && taken;
    }
    /// The box in the parent after its next layout.
    FenOglViewport box()
    {
        note->getViewport(parent, own);
        return FenOglViewport(own.x() - parent.x(), own.y() - parent.y(), own.width() - 6, own.height() - 24);
    }

    FenOglViewport const parent{10, 20, 400, 300};
    FenOglViewport own;
    FenVisHitRecord record;
    boost::weak_ptr<IFenVisEventHandler> handler;
    Passes passes;
    FenModifiedGroup group;
    std::unique_ptr<FenVisAnnotation> note = std::make_unique<FenVisAnnotation>(group);
};

} // namespace

TEST_F(VisAnnotationGl, TellsStripAndCornersByTheirPlaces)
{
    EXPECT_EQ(FenOglViewport(50, 50, 106, 74), own);
    struct Row {
        QPoint point;
        int size;
        char const* expected;
    };
    Row const rows[] = {
        {{50, 25}, 0, "note"},      {{2, 2}, 0, "resize 2"},    {{50, 65}, 0, "move"},
        {{3, 59}, 0, "move"},       {{2, 59}, 0, "note"},       {{2, 59}, 1, "move"},
        {{102, 70}, 0, "move"},     {{103, 70}, 0, "resize 1"}, {{50, 58}, 0, "note"},
        {{50, 71}, 0, "note"},      {{50, 71}, 1, "move"},      {{0, 73}, 0, "resize 0"},
        {{105, 0}, 0, "resize 3"},  {{105, 73}, 0, "resize 1"}, {{0, 9}, 0, "resize 2"},
        {{0, 10}, 0, "note"},       {{9, 0}, 0, "resize 2"},    {{10, 0}, 0, "note"},
        {{10, 0}, 1, "resize 2"},   {{3, 3}, 0, "note"},        {{95, 1}, 0, "note"},
        {{96, 1}, 0, "resize 3"},   {{106, 1}, 0, "note"},      {{1, -1}, 0, "note"},
        {{1, -1}, 1, "resize 2"},   {{50, INT_MAX}, 5, "note"}, {{INT_MIN, 2}, 5, "note"},
        {{50, 36}, 99, "resize 2"}, {{53, 37}, 99, "resize 1"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(row.expected, pick(row.point, row.size).toStdString())
            << row.point.x() << ' ' << row.point.y() << " size " << row.size;
}

TEST_F(VisAnnotationGl, IsMovedByItsStripAndResizedByItsCorners)
{
    struct Row {
        QPoint grabbed;
        int dx, dy;
        FenOglViewport expected;
    };
    Row const rows[] = {
        {{50, 65}, 7, -5, {47, 25, 100, 50}},      {{2, 2}, 5, 6, {45, 36, 95, 44}},
        {{1, 73}, 5, 6, {45, 30, 95, 56}},         {{105, 73}, 5, 6, {40, 30, 105, 56}},
        {{105, 1}, 5, 6, {40, 36, 105, 44}},       {{50, 25}, 9, 9, {40, 30, 100, 50}},
        {{105, 73}, -500, -500, {40, 30, 10, 10}}, {{2, 2}, 500, 500, {130, 70, 10, 10}},
    };
    for (char const* placement : {"bottomLeft", "bottomRight", "topLeft", "topRight", "center"}) {
        for (Row const& row : rows) {
            FenViewport& place = note->viewport;
            place.placement.set("bottomLeft");
            place.x.set(40);
            place.y.set(30);
            place.width.set(100);
            place.height.set(50);
            QString const side = placement;
            if (side.contains("Right")) place.x.set(400 - 140);
            if (side.contains("top")) place.y.set(300 - 80);
            if (side == "center") place.x.set(40 - 150), place.y.set(30 - 125);
            place.placement.set(side);
            ASSERT_EQ(FenOglViewport(40, 30, 100, 50), box()) << placement;
            pick(row.grabbed);
            EXPECT_TRUE(drag(row.dx, row.dy));
            EXPECT_EQ(row.expected, box()) << placement << ' ' << row.dx << ' ' << row.dy;
        }
    }
}

TEST_F(VisAnnotationGl, AForbiddenDragIsTakenAndChangesNothing)
{
    note->watcher().reset();
    note->resizeable.set(false);
    for (bool const moveable : {true, false}) {
        note->moveable.set(moveable);
        note->watcher().reset();
        for (QPoint const& point : {QPoint(2, 2), QPoint(50, 25), QPoint(50, 65)}) {
            if (moveable && pick(point) == "move") continue;
            pick(point);
            EXPECT_TRUE(drag(30, 30));
            EXPECT_FALSE(note->watcher().modified());
        }
    }
    note->resizeable.set(true); // is enough for moving
    pick(QPoint(50, 65));
    EXPECT_TRUE(drag(10, 0));
    EXPECT_EQ(FenOglViewport(50, 30, 100, 50), box());
}

TEST_F(VisAnnotationGl, ADragShowsAtOnceAndIsGivenUpWhereTheHitIsNoneOfIts)
{
    ASSERT_EQ("move", pick(QPoint(50, 65)));
    note->watcher().reset();
    auto const held = handler.lock();
    EXPECT_TRUE(held->OnMouseDrag(record, QPoint(-20, 0)));
    EXPECT_EQ(FenOglViewport(60, 30, 100, 50), box());
    EXPECT_FALSE(note->watcher().modified());
    EXPECT_FALSE(held->OnMouseRelease(FenVisHitRecord(77, 0.5)));
    EXPECT_FALSE(held->OnMouseDrag(FenVisHitRecord(77, 0.5), QPoint(5, 5)));
    EXPECT_EQ(FenOglViewport(40, 30, 100, 50), box());
    EXPECT_TRUE(held->OnMouseRelease(record));
    EXPECT_TRUE(held->OnMouseDrag(record, QPoint(1, 1)));
    note.reset(); // in the middle of a drag
    EXPECT_FALSE(held->OnMouseDrag(record, QPoint(1, 1)));
    EXPECT_FALSE(held->OnMouseRelease(record));
}

TEST_F(VisAnnotationGl, DrawsWhatItsSettingsAskForWhereItIsPicked)
{
    FenVisList list(group, "node");
    list.insert(note.get(), true);
    auto const draw = [&] {
        clear();
        list.update(passes.draw());
        expectPassKeepsState([&] { list.draw2d(passes.draw()); });
        return picture();
    };
    auto const area = [](int x, int y, int width, int height) {
        return QRect(x, 300 - y - height, width, height);
    };
    note->moveable.set(false);
    note->resizeable.set(false);
    EXPECT_TRUE(draw().boundingBox().isNull()) << "transparent without a border";
    note->backgroundColor.set(Qt::yellow);
    EXPECT_EQ(area(43, 33, 100, 50), draw().boundingBox());
    EXPECT_EQ(5000, picture().count(Qt::yellow));
    note->borderSize.set(2);
    EXPECT_EQ(100 * 50 - 96 * 46, draw().count(Qt::black));
    note->borderSize.set(1e30f);
    EXPECT_EQ(5000, draw().count(Qt::black));
    note->borderSize.set(0);
    note->moveable.set(true);
    EXPECT_EQ(area(43, 33, 100, 68), draw().boundingBox()) << "with the strip, as high as its last row";
    EXPECT_TRUE(picture().is(90, 300 - 99, Qt::black, 45)) << "dark at the top, clear at the bottom";
    EXPECT_TRUE(picture().is(90, 300 - 86, Qt::white, 45));
    note->getViewport(passes.viewport, own);
    pick(QPoint(50, 25));
    QString tooltip;
    EXPECT_TRUE(handler.lock()->OnMouseOver(record, FenStringBuilder(), tooltip));
    EXPECT_EQ(area(40, 30, 106, 74), draw().boundingBox()) << "grips up to the corners";
    note->viewport.width.set(-5);
    EXPECT_TRUE(draw().boundingBox().isNull());
}
