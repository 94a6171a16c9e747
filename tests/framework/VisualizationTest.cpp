#include "framework/IVisPropertyEdit.h"
#include "tests/support/LogCapture.h"
#include "tests/support/RecordingNode.h"

#include <gtest/gtest.h>

TEST(Visualization, DeclaresCopiesAndAssignsItsSettings)
{
    FenModifiedGroup group;
    FenVisList const fresh(group, "");
    QString declared;
    for (QString const& key : fresh.string().keys()) declared += key + '=' + fresh.getString(key, {}) + ' ';
    EXPECT_EQ("enabled=false lighting=true layer=0 thumnbnail=true status= lineColor=#ffc0c0c0 "
              "fillColor=#00000000 selectable=false ",
              declared);
    RecordingNode source(group, "source"), target(group, "target");
    source.layer.set(7);
    source.hitProperties().insert(5, FenVisHitProperty(&source));
    source.watcher().reset();
    target.watcher().reset();
    RecordingNode copy(source);
    target = source;
    for (RecordingNode* const node : {&copy, &target}) {
        EXPECT_EQ(7, node->layer.get());
        EXPECT_TRUE(node->hitProperty(5).isPropertyEqual(&source));
        EXPECT_TRUE(node->watcher().modified());
        node->layer.set(8);
    }
    EXPECT_FALSE(source.watcher().modified());
}

TEST(DrawContext, AlwaysHoldsAnEditorThatWarnsWhenNoneWasGiven)
{
    LogCapture log;
    Passes passes;
    FenModifiedGroup group;
    FenProperties item(group);
    for (auto const& context : {passes.draw(), FenVisualization::DrawContext(passes.select(QPoint()))}) {
        context.propertyEdit->beginEdit();
        context.propertyEdit->editProperty(item, item, "min", "1");
        context.propertyEdit->endEdit();
        EXPECT_EQ("a = 0.25", context.formatter("%1 = %2")("a")(0.25)());
    }
    EXPECT_EQ(QStringList({"WARNING: Property editing instance is invalid for draw method!",
                           "WARNING: Property editing not allowed from select!"}),
              log.take());
    EXPECT_FALSE(item.string().defined("min"));
}
