#include "services/chartdata/ChartAxisPair.h"

#include "services/chartdata/ChartAxis.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

QString const& continuous = FenChartAxisContinuous::typeString;
QString const& discrete = FenChartAxisDiscrete::typeString;

} // namespace

TEST(ChartAxisPair, SetsReplacesAndRemovesAxes)
{
    FenModifiedGroup group;
    FenChartAxisPair pair(group);
    EXPECT_TRUE(!pair.first() && !pair.second() && !pair.resolve(""));
    EXPECT_TRUE(dynamic_cast<FenChartAxisContinuous*>(pair.setFirst("a", continuous)));
    EXPECT_TRUE(dynamic_cast<FenChartAxisDiscrete*>(pair.setSecond("b", discrete)));
    EXPECT_EQ(pair.names(), QStringList({"a", "b"}));
    EXPECT_TRUE(pair.find("b") == pair.second() && !pair.find("c"));
    EXPECT_EQ(pair.resolve(""), pair.first());
    fen::view_ptr<FenChartAxis> const old(pair.first());
    EXPECT_EQ(pair.setFirst("c", discrete)->type(), discrete);
    EXPECT_FALSE(old);
    EXPECT_TRUE(!pair.setFirst("", "") && !pair.first());
    EXPECT_EQ(pair.resolve(""), pair.second()) << "the first axis there is";
    EXPECT_TRUE(pair.erase(pair.second()) && !pair.second());
}

TEST(ChartAxisPair, RefusesUnknownTypesTakenNamesAndAThirdAxis)
{
    LogCapture log;
    FenModifiedGroup group;
    FenChartAxisPair pair(group);
    FenChartAxis* const first = pair.setFirst("a", continuous);
    log.expect("Failed to create chart axis");
    EXPECT_TRUE(!pair.setFirst("x", "chart.axis.unheard") && !pair.setSecond("a", continuous));
    EXPECT_EQ(pair.first(), first);
    EXPECT_EQ(pair.child("b", "chart.axis.unheard"), nullptr);
    EXPECT_EQ(log.errors().size(), 3);
    EXPECT_TRUE(pair.child("b", discrete)) << "as a scene file makes it";
    EXPECT_EQ(pair.second(), pair.find("b"));
    EXPECT_EQ(pair.child("c", discrete), nullptr);
    FenProperties plain(group);
    EXPECT_FALSE(pair.insert(&plain, true));
    std::unique_ptr<FenProperties> const removed(pair.first());
    EXPECT_TRUE(pair.remove(removed.get()) && !pair.first());
}

TEST(ChartAxisPair, CopiesAndAssignsItsOwnAxes)
{
    FenModifiedGroup group;
    FenChartAxisPair source(group, Kes::Math::Vector3::CompY), target(group);
    source.setSecond("right", continuous)->title.set("T");
    FenChartAxisPair const copy(source);
    EXPECT_EQ(copy.comp(), Kes::Math::Vector3::CompY);
    ASSERT_TRUE(!copy.first() && copy.second() && copy.second() != source.second());
    EXPECT_EQ(copy.second()->title.get(), "T");
    target.setFirst("left", discrete);
    target = source;
    EXPECT_EQ(target.names(), QStringList("right"));
    fen::view_ptr<FenChartAxis> const kept(target.second());
    source.second()->title.set("U");
    target = source;
    EXPECT_TRUE(kept) << "axes of the same names are assigned, so that who points at them goes on";
    EXPECT_EQ(target.second()->title.get(), "U");
}
