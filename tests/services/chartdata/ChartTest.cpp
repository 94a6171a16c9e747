#include "services/chartdata/Chart.h"

#include "services/chartdata/Chart2D.h"
#include "services/chartdata/Chart3D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartCorrelation.h"
#include "services/chartdata/ChartLegend.h"
#include "services/chartdata/ChartMultiAxis.h"
#include "services/chartdata/ChartPie.h"
#include "services/properties/ModifiedWatcher.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

/// One line per key and child, as "title=".
QStringList keysOf(FenProperties const& node, QStringList const& keys)
{
    QStringList lines;
    for (QString const& key : keys) lines += key + '=' + node.getString(key, "undefined");
    for (unsigned i = 0; i < node.size(); ++i) lines += node.at(i)->name();
    return lines;
}

template <class Chart>
void expectChart(QStringList const& expected)
{
    FenModifiedGroup group;
    Chart chart(group);
    QStringList keys;
    for (QString const& line : expected)
        if (line.contains('=')) keys += line.section('=', 0, 0);
    EXPECT_EQ(keysOf(chart, keys), expected);
    EXPECT_EQ(chart.getString("title", "?"), "");
    EXPECT_EQ(chart.getString("titleColor", "?"), "#ff000000");
    EXPECT_EQ(chart.getString("textColor", "?"), "#ff000000");
    chart.title.set("changed");
    Chart const copy(chart);
    EXPECT_EQ(keysOf(copy, keys), expected) << "children are there again";
    EXPECT_EQ(copy.title.get(), "changed");
    Chart other(group);
    other = copy;
    EXPECT_EQ(other.title.get(), "changed");
    EXPECT_EQ(other.type(), Chart::typeString);
}

} // namespace

TEST(Chart, EachKindHasItsKeysAndChildren)
{
    QStringList const axes = {"view3D=false", "normalize=true", "variables", "xAxes", "yAxes", "zAxes"};
    expectChart<FenChart2D>(axes);
    expectChart<FenChart3D>(axes);
    expectChart<FenChartCorrelation>({"bins=[]", "colors=[]", "variables"});
    expectChart<FenChartPie>({"showPercent=false", "variables"});
    expectChart<FenChartMultiAxis>({"firstAxis=", "variables"});
    expectChart<FenChartLegend>({"chart=", "orientation=" + FenChart::legendVertical, "viewport"});
}

TEST(Chart, AxesHaveTheirKeys)
{
    FenModifiedGroup group;
    FenChart2D chart(group);
    FenChartAxis const& continuous = *chart.xAxes.setFirst("x", FenChartAxisContinuous::typeString);
    FenChartAxis const& discrete = *chart.xAxes.setSecond("d", FenChartAxisDiscrete::typeString);
    QStringList const common = {"title=",
                                "titleColor=#ff000000",
                                "titleBoxColor=#00000000",
                                "color=#ff000000",
                                "gridColor=#ffc0c0c0",
                                "labelColor=#ff000000",
                                "shown=true",
                                "autoRange=true",
                                "min=0",
                                "max=1"};
    QStringList const own = {"unit=", "logarithmic=false", "factor=1", "fixed=false", "format="};
    auto const keys = [](QStringList lines) { return lines.replaceInStrings(QRegularExpression("=.*"), ""); };
    EXPECT_EQ(keysOf(continuous, keys(common + own)), common + own);
    EXPECT_EQ(keysOf(discrete, keys(common + QStringList("labels=[]"))), common + QStringList("labels=[]"));
}

TEST(Chart, ChangesBelowReachTheChart)
{
    FenModifiedGroup group;
    FenChart2D chart(group);
    FenModifiedWatcher const watcher(&chart);
    auto const changes = [&](auto const& change) {
        watcher.reset();
        change();
        return watcher.modified();
    };
    EXPECT_TRUE(changes([&] { chart.variables.append("v"); }));
    EXPECT_TRUE(changes([&] { chart.variables[0].setData(Kes::Math::Vector3::CompX, {1}); }));
    EXPECT_TRUE(changes([&] { chart.yAxes.setFirst("y", FenChartAxisContinuous::typeString); }));
    EXPECT_TRUE(changes([&] { chart.yAxes.first()->min.set(3); }));
    EXPECT_FALSE(changes([&] { chart.yAxes.first()->min.set(3); }));
    EXPECT_TRUE(changes([&] { chart.yAxes.setFirst("", ""); }));
}
