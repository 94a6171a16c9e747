#include "tests/framework/RecordingNode.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>

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
        auto draw = passes.draw();
        auto select = passes.select(point);
        draw.flags = select.flags = flags;
        list->resize(draw);
        list->draw2d(draw);
        list->draw3d(draw);
        list->select2d(select);
        list->select3d(select);
        return log;
    }

    FenModifiedGroup group;
    Passes passes;
    QStringList log;
    std::unique_ptr<FenVisList> list = std::make_unique<FenVisList>(group, "node");
};

} // namespace

TEST_F(VisList, MakesTheTypesOfItsTableNamesUnnamedNodesAndGivesOnlyNodes)
{
    for (QString const& type : FenVisList::creatableTypes()) {
        FenVisualization& node = list->child("my " + type, type);
        EXPECT_EQ("my " + type, node.name());
        EXPECT_EQ(type, node.type());
        EXPECT_EQ(&node, &list->child(node.name(), "no matter what"));
    }
    auto* const plain = new FenProperties(group);
    plain->rename("plain");
    list->insert(plain, false);
    EXPECT_EQ(nullptr, list->back());
    EXPECT_EQ(nullptr, list->at(999u));
    RecordingNode& unnamed = add("");
    EXPECT_EQ(&unnamed, (*list)["node"]);
    RecordingNode second(group);
    EXPECT_FALSE(list->insert(&second, true)); // "node" is taken
    LogCapture errors;
    FenVisualization& failed = list->child("%1", "visualization.light");
    EXPECT_FALSE(list->insert(&failed, false)); // it belongs to no tree
    EXPECT_EQ(&failed, &std::as_const(*list).child("b", ""));
    EXPECT_EQ(&failed, &list->child("plain", ""));
    QStringList const lines = errors.take();
    ASSERT_EQ(4, lines.size());
    EXPECT_EQ("Failed to create visualization object %1 of type visualization.light", lines[0]);
    EXPECT_TRUE(lines[1].startsWith("\"c && \"Type is incorrect\"\" - ")) << lines[1].toStdString();
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
    struct Row {
        FenPropertyAdaptor<bool> FenVisualization::*flag;
        quint32 flags;
        int visits; // of resize, draw2d, draw3d, select2d, select3d
    } const rows[] = {{&FenVisualization::enabled, 0, 0},
                      {&FenVisualization::selectable, 0, 3},
                      {&FenVisualization::thumbnail, FenVisualization::KeepLightingFlag, 5},
                      {&FenVisualization::thumbnail, FenVisualization::ThumbnailFlag, 0}};
    RecordingNode& node = add("a");
    for (Row const& row : rows) {
        update();
        (node.*row.flag).set(false);
        EXPECT_EQ(row.visits, visits(row.flags).size());
        (node.*row.flag).set(true);
    }
    for (QPoint const& inside : {QPoint(0, 0), QPoint(399, 299)}) EXPECT_EQ(5, visits(0, inside).size());
    for (QPoint const& outside : {QPoint(400, 0), QPoint(0, 300), QPoint(-1, 10), QPoint(INT_MAX, INT_MIN)})
        EXPECT_EQ(3, visits(0, outside).size());
    passes.viewport = FenOglViewport(0, 0, -9, -9);
    EXPECT_EQ(3, visits(0, QPoint(-2, -2)).size());
}

TEST_F(VisList, SkipsDestroyedChildrenAndKeepsRemovedOnesUntilTheNextUpdate)
{
    RecordingNode& removed = add("removed");
    RecordingNode* gone = &add("gone", 1);
    update();
    list->remove(&removed);
    std::unique_ptr<RecordingNode> const owner(&removed);
    removed.inside = [&](FenVisualization::DrawContext const&) {
        if (gone) list->erase(std::exchange(gone, nullptr));
    };
    EXPECT_EQ(5, visits().filter("removed").size());
    EXPECT_TRUE(log.filter("gone").isEmpty());
    gone = &add("gone", 1);
    list->insert(&removed, true);
    removed.modify();
    EXPECT_EQ(QStringList("removed.update"), update()); // which destroys the other

    auto copy = std::make_unique<FenVisList>(*list);
    EXPECT_EQ(0u, copy->size());
    std::swap(copy, list);
    EXPECT_EQ(5, visits().size()) << "a copy visits the children of its source until its own update";
    copy.reset();
    update();
    EXPECT_TRUE(visits().isEmpty());
}

TEST_F(VisList, ListsColourMapsAndPlanesAndTellsWhetherAnEnabledPairBelongsTogether)
{
    EXPECT_TRUE(list->listPlane().isEmpty());
    RecordingNode& map = add("m", 0, "visualization.colorMap");
    RecordingNode& plane = add("p", 0, "visualization.plane");
    EXPECT_EQ(QStringList("p"), list->listPlane());
    plane.rename("q");
    EXPECT_EQ(QStringList("q"), list->listPlane());
    QStringList first("x"), second;
    list->colorMapList(first, second);
    EXPECT_EQ(QStringList({"x", "m"}), first);
    EXPECT_EQ(QStringList("m"), second);

    struct Row {
        QString named;
        bool plane, map, expected;
    } const rows[] = {{"", true, true, false},   {"m", true, true, true},  {"m", false, true, false},
                      {"m", true, false, false}, {"q", true, true, false}, {"z", true, true, false}};
    for (Row const& row : rows) {
        plane.setValue("colorMap", row.named);
        plane.enabled.set(row.plane);
        map.enabled.set(row.map);
        EXPECT_EQ(row.expected, list->colorMapping()) << row.named.toStdString();
        EXPECT_EQ(QStringList("m"), list->listColorMap());
    }
    list->erase(&map);
    EXPECT_TRUE(list->listColorMap().isEmpty());
}
