#include "host/edit/UndoPropertyEdit.h"

#include "host/scene/Scene.h"

#include "charts/chart2d/VisChart2D.h"
#include "services/chartdata/ChartAxis.h"

#include <gtest/gtest.h>

#include <QUndoStack>

namespace {

class UndoPropertyEditTest : public testing::Test {
protected:
    FenVisScene scene;
    FenVisChart2D& plot = scene.add<FenVisChart2D>(QStringLiteral("plot"));
    FenChartAxis& axis = *plot.chart.xAxes.first();
    FenUndoPropertyEdit& edit = scene.propertyEdit();
    QUndoStack& steps = scene.undoStack();

    /// What nodes do: both ends of a range in one bracket.
    void writeRange(char const* min, char const* max)
    {
        edit.beginEdit();
        edit.editProperty(plot.chart, axis, axis.min.name(), QString::fromLatin1(min));
        edit.editProperty(plot.chart, axis, axis.max.name(), QString::fromLatin1(max));
        edit.endEdit();
    }
};

TEST_F(UndoPropertyEditTest, OneBracketIsOneStepThatGoesBackAndForth)
{
    writeRange("2", "5");
    EXPECT_EQ(1, steps.count());
    EXPECT_EQ(5, axis.max.get());
    steps.undo();
    EXPECT_EQ(0, axis.min.get());
    EXPECT_EQ(1, axis.max.get());
    steps.redo();
    EXPECT_EQ(2, axis.min.get());
    EXPECT_EQ(5, axis.max.get());
}

TEST_F(UndoPropertyEditTest, ADragIsOneStepAndCancellingLeavesNone)
{
    edit.beginStep(QStringLiteral("Move plot"));
    writeRange("1", "2");
    writeRange("2", "3");
    EXPECT_EQ(3, axis.max.get()) << "shows while dragging";
    EXPECT_EQ(0, steps.count());
    edit.endStep();
    EXPECT_EQ(1, steps.count());
    EXPECT_EQ("Move plot", steps.undoText());

    edit.beginStep();
    writeRange("7", "8");
    edit.cancelStep();
    EXPECT_EQ(3, axis.max.get());
    EXPECT_EQ(1, steps.count());
    steps.undo();
    EXPECT_EQ(1, axis.max.get());
}

TEST_F(UndoPropertyEditTest, WhatEndsAsItBeganIsNoStep)
{
    edit.beginStep();
    writeRange("7", "8");
    writeRange("0", "1");
    edit.endStep();
    edit.edit(axis, axis.title.name(), axis.title.get());
    EXPECT_EQ(0, steps.count());
}

TEST_F(UndoPropertyEditTest, TextsSayWhatAPersonSees)
{
    FenChartVariable& speed = plot.chart.variables.append(QStringLiteral("speed"));
    struct {
        FenProperties& item;
        char const* key;
        char const* text;
    } const rows[] = {
        {axis, "max", "Set plot.x.max"},
        {speed, "lineColor", "Set plot.speed.lineColor"},
        {plot.chart, "title", "Set plot.title"},
        {plot, "layer", "Set plot.layer"},
        {plot.viewport, "width", "Set plot.viewport.width"},
        {scene.root(), "background", "Set background"},
    };
    for (auto const& row : rows) {
        edit.edit(row.item, QString::fromLatin1(row.key), QStringLiteral("7"));
        EXPECT_EQ(row.text, steps.undoText().toStdString());
    }
    writeRange("20", "50");
    EXPECT_EQ("Set plot.x.min, max", steps.undoText());
}

TEST_F(UndoPropertyEditTest, StepsOfOneGestureJoinAndOthersDoNot)
{
    auto const zoom = [&](char const* max, int id) {
        edit.beginStep(QStringLiteral("Zoom plot"), id);
        writeRange("0", max);
        edit.endStep();
    };
    zoom("8", 1);
    zoom("6", 1);
    zoom("4", 1);
    EXPECT_EQ(1, steps.count());
    zoom("3", -1);
    EXPECT_EQ(2, steps.count());
    steps.undo();
    EXPECT_EQ(4, axis.max.get());
    steps.undo();
    EXPECT_EQ(1, axis.max.get());
}

TEST_F(UndoPropertyEditTest, StepsOutliveTheirNodes)
{
    writeRange("2", "5");
    scene.root().erase(&plot);
    steps.undo();
    steps.redo();
    edit.beginStep();
    FenVisChart2D& other = scene.add<FenVisChart2D>(QStringLiteral("other"));
    edit.edit(other, other.layer.name(), QStringLiteral("3"));
    scene.root().erase(&other);
    edit.endStep();
    EXPECT_EQ(1, steps.count());

    // Whoever listens to the stack may delete what was edited.
    FenVisChart2D& third = scene.add<FenVisChart2D>(QStringLiteral("third"));
    QObject::connect(&steps, &QUndoStack::indexChanged,
                     [&](int) { scene.root().erase(scene.root().back()); });
    edit.edit(third, third.layer.name(), QStringLiteral("3"));
    EXPECT_EQ(0u, scene.root().size());
}

} // namespace
