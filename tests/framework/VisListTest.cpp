#include "axes/VisColorMap.h"
#include "tests/support/LogCapture.h"
#include "tests/support/RecordingNode.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <memory>
#include <tuple>

namespace {

struct VisList : testing::Test {
    RecordingNode& add(QString const& name, int layer = 0, QString const& type = {})
    {
        auto* const node = new RecordingNode(group, name, &log);
        node->layer.set(layer);
        node->setType(type);
        EXPECT_TRUE(list->insert(node, false));
        return *node;
    }
    QStringList update()
    {
        log.clear();
        list->update(passes.draw());
        return log;
    }
    /// All passes but update; there is no OpenGL context, and none is needed.
    QStringList visits(quint32 flags = 0, QPoint const& point = QPoint(200, 150))
    {
        log.clear();
        auto select = passes.select(point);
        auto draw = passes.draw();
        draw.flags = select.flags = flags;
        std::function<void()> const all[] = {
            [&] { list->resize(draw); }, [&] { list->draw2d(draw); }, [&] { list->draw3d(draw); },
            [&] { hits = list->select2d(select); }, [&] { list->select3d(select); }};
        for (auto const& pass : all)
            if (list) pass();
        return log;
    }

    FenModifiedGroup group;
    Passes passes;
    QStringList log;
    FenVisHitRecordList hits; ///< of the last select2d
    std::unique_ptr<FenVisList> list = std::make_unique<FenVisList>(group, "node");
};

} // namespace

TEST_F(VisList, NamesUnnamedNodesAndGivesOnlyNodes)
{
    auto* const plain = new FenProperties(group);
    plain->rename("plain");
    list->insert(plain, false);
    EXPECT_EQ(nullptr, list->back());
    RecordingNode& unnamed = add("");
    EXPECT_EQ(&unnamed, (*list)["node"]);
    RecordingNode second(group);
    EXPECT_FALSE(list->insert(&second, true)); // "node" is taken
    LogCapture errors;
    FenVisualization& failed = list->child("%1", "visualization.light");
    EXPECT_FALSE(list->insert(&failed, false)); // it belongs to no tree
    failed.layer.set(7);
    failed.child("below", {});
    EXPECT_EQ(&failed, &std::as_const(*list).child("b", ""));
    EXPECT_EQ(0u, failed.size() + unsigned(failed.layer.get())) << "it comes back fresh";
    EXPECT_EQ(&failed, &list->child("plain", ""));
    ASSERT_EQ(4, errors.errors().size());
    EXPECT_EQ("Failed to create visualization object %1 of type visualization.light", errors.take()[0]);
}

TEST_F(VisList, VisitsEnabledChildrenInTheLayerOrderOfTheLastUpdate)
{
    RecordingNode& top = add("top", 5);
    add("bottom", -1);
    add("off").enabled.set(false);
    EXPECT_TRUE(visits().isEmpty());
    EXPECT_EQ(QStringList({"bottom.update", "top.update"}), update());
    EXPECT_TRUE(update().isEmpty()); // nothing changed
    top.layer.set(-2);
    QStringList expected;
    for (QString const pass : {".resize", ".draw2d", ".draw3d", ".select2d", ".select3d"})
        expected << "bottom" + pass << "top" + pass;
    EXPECT_EQ(expected, visits());
    EXPECT_EQ(QStringList("top.update"), update());
    EXPECT_EQ("top.resize", visits().first());
}

TEST_F(VisList, SkipsWhatIsDisabledNotSelectableNoThumbnailOrNotUnderThePoint)
{
    RecordingNode& node = add("a");
    std::tuple<FenPropertyAdaptor<bool>&, quint32, int> const rows[] = {
        {node.enabled, 0, 0}, // of resize, draw2d, draw3d, select2d, select3d
        {node.selectable, 0, 3},
        {node.thumbnail, FenVisualization::KeepLightingFlag, 5},
        {node.thumbnail, FenVisualization::ThumbnailFlag, 0}};
    for (auto const& [property, flags, expected] : rows) {
        update();
        property.set(false);
        EXPECT_EQ(expected, visits(flags).size());
        property.set(true);
    }
    for (QPoint const& inside : {QPoint(0, 0), QPoint(399, 299)}) EXPECT_EQ(5, visits(0, inside).size());
    for (QPoint const& outside : {QPoint(400, 0), QPoint(0, 300), QPoint(-1, 10), QPoint(INT_MAX, INT_MIN)})
        EXPECT_EQ(3, visits(0, outside).size());
}

TEST_F(VisList, KeepsRemovedChildrenUntilTheNextUpdateAndACopyThoseOfItsSource)
{
    RecordingNode& removed = add("removed");
    update();
    list->remove(&removed);
    std::unique_ptr<RecordingNode> const owner(&removed);
    EXPECT_EQ(5, visits().size());
    auto const source = std::exchange(list, std::make_unique<FenVisList>(*list));
    EXPECT_EQ(5, visits().size());
    update();
    EXPECT_TRUE(visits().isEmpty());
}

TEST_F(VisList, EveryPassSurvivesThatANodeDestroysItselfAnotherOrTheList)
{
    QStringList const all = {".update", ".resize", ".draw2d", ".draw3d", ".select2d", ".select3d"};
    for (int pass = 0; pass < all.size(); ++pass) {
        for (QString const victim : {"first", "second", "list"}) {
            SCOPED_TRACE((all[pass] + ' ' + victim).toStdString());
            list = std::make_unique<FenVisList>(group, "node");
            RecordingNode& first = add("first");
            first.own = FenOglViewport(100, 100, 200, 100);
            add("second", 1);
            first.inside = [this, pass = all[pass], victim](FenVisualization::DrawContext const&) {
                if (log.last() != "first" + pass) return;
                if (victim == "list") list.reset();
                if (list) list->erase(list->at(victim));
            };
            QStringList seen = update();
            seen += visits();
            EXPECT_EQ(victim == "second" ? 6 : pass + 1, seen.filter("first").size());
            EXPECT_EQ(victim == "first" ? 6 : pass, seen.filter("second").size());
            if (all[pass] != ".select2d" || victim == "list") continue;
            EXPECT_EQ(victim == "first" ? nullptr : &first, hits.source(0)) << "of a hit";
        }
    }
}

TEST_F(VisList, ListsLieInEachOtherNoDeeperThanPassesMayRecurse)
{
    LogCapture errors;
    FenVisList* deepest = list.get();
    for (int level = 2; level <= 64; ++level) {
        auto* const below = new FenVisList(group, "node");
        below->enabled.set(true);
        ASSERT_TRUE(deepest->insert(below, false));
        deepest = below;
    }
    FenVisList more(group, "node");
    EXPECT_FALSE(deepest->insert(&more, true));
    EXPECT_FALSE(more.insert(list.get(), true)) << "from the bottom up";
    EXPECT_EQ(2, errors.take().filter("WARNING: fits && ").size());
    EXPECT_TRUE(deepest->insert(new RecordingNode(group, "leaf", &log), false));
    EXPECT_EQ(QStringList("leaf.update"), update());
}

TEST_F(VisList, ListsColourMapsAndPlanesAndTellsWhetherAnEnabledPairBelongsTogether)
{
    auto& map = dynamic_cast<FenVisColorMap&>(list->child("m", "visualization.colorMap"));
    FenVisualization& plane = list->child("p", "visualization.plane");
    plane.rename("q");
    EXPECT_EQ(QStringList("q"), list->listPlane());
    std::tuple<QString, bool, bool, bool> const rows[] = {
        {"", true, true, false},   {"m", true, true, true},  {"m", false, true, false},
        {"m", true, false, false}, {"q", true, true, false}, {"z", true, true, false},
        {"n", true, true, false}};
    add("n", 0, "visualization.colorMap"); // the class counts, not what a node calls itself
    add("r", 0, "visualization.plane");
    for (auto const& [named, planeOn, mapOn, expected] : rows) {
        plane.setValue("colorMap", named);
        plane.enabled.set(planeOn);
        map.enabled.set(mapOn);
        EXPECT_EQ(expected, list->colorMapping()) << named.toStdString();
    }
    list->erase(&map);
    EXPECT_TRUE(list->listColorMap().isEmpty());
}
