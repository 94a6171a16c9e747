#include "services/chartdata/Chart.h"

#include "services/chartdata/Chart2D.h"
#include "services/chartdata/Chart3D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartCorrelation.h"
#include "services/chartdata/ChartLegend.h"
#include "services/chartdata/ChartMultiAxis.h"
#include "services/chartdata/ChartPie.h"

#include <gtest/gtest.h>

namespace {

QStringList childrenOf(FenProperties const& node)
{
    QStringList names;
    for (unsigned i = 0; i < node.size(); ++i) names += node.at(i)->name();
    return names;
}

template <class Chart>
void expectCopies(QString const& key, QString const& fresh, QStringList const& children)
{
    FenModifiedGroup group;
    Chart chart(group), other(group);
    EXPECT_EQ(chart.getString(key, "undefined"), fresh);
    chart.title.set("changed");
    Chart const copy(chart);
    other = copy;
    for (Chart const* const one : std::initializer_list<Chart const*>{&chart, &copy, &other}) {
        EXPECT_EQ(childrenOf(*one), children);
        EXPECT_EQ(one->title.get(), "changed");
        EXPECT_EQ(one->type(), Chart::typeString);
    }
}

} // namespace

TEST(Chart, EachKindIsCopiedWithItsChildren)
{
    QStringList const axes = {"variables", "xAxes", "yAxes", "zAxes"};
    expectCopies<FenChart2D>("view3D", "false", axes);
    expectCopies<FenChart3D>("normalize", "true", axes);
    expectCopies<FenChartCorrelation>("bins", "[]", {"variables"});
    expectCopies<FenChartPie>("showPercent", "false", {"variables"});
    expectCopies<FenChartMultiAxis>("firstAxis", "", {"variables"});
    expectCopies<FenChartLegend>("orientation", FenChart::legendVertical, {"viewport"});
}

TEST(Chart, WhatNamesAnAxisOrAVariableFollowsItsRename)
{
    FenModifiedGroup group;
    FenChart3D chart(group);
    for (FenChartAxisPair* const pair : {&chart.xAxes, &chart.yAxes, &chart.zAxes})
        pair->setFirst("a", FenChartAxisContinuous::typeString);
    FenChartVariable& variable = chart.variables.append("v");
    for (auto* const axis : {&variable.xAxis, &variable.yAxis, &variable.zAxis}) axis->set("a");
    FenChartVariable const& plain = chart.variables.append("first axes");
    chart.xAxes.first()->rename("x");
    chart.zAxes.setSecond("z", FenChartAxisContinuous::typeString);
    EXPECT_FALSE(chart.zAxes.first()->rename("z"));
    EXPECT_EQ("x a a", variable.xAxis.get() + ' ' + variable.yAxis.get() + ' ' + variable.zAxis.get());
    EXPECT_EQ("", plain.xAxis.get());
    FenChartMultiAxis axes(group);
    axes.firstAxis.set(axes.variables.append("v").name());
    axes.variables[0].rename("w");
    EXPECT_EQ("w", axes.firstAxis.get());
}
