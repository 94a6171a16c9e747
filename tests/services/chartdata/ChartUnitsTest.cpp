#include "services/chartdata/ChartUpdateVariableUnits.h"

#include "services/math/IVariableIter.h"
#include "services/properties/ModifiedWatcher.h"
#include "tests/services/chartdata/ChartDataBuilder.h"

#include <gtest/gtest.h>

using Kes::Math::Vector3;

namespace {

struct ChartUnits : testing::Test {
    ChartUnits()
        : builder({1, 2})
    {
        builder.chart.unitSystem.setUnit("m", "mm", 1000.0);
        builder.variable().unitY.set("m");
        builder.y().unit.set("m");
    }
    std::vector<FenChartVariable const*> convert()
    {
        FenChart2D& c = builder.chart;
        return FenChartUpdateVariableUnits(c.unitSystem, c.xAxes, c.yAxes, c.zAxes, c.variables)();
    }
    ChartDataBuilder builder;
};

} // namespace

TEST_F(ChartUnits, EverythingThatIsShownSpeaksTheConvertedUnitAndNothingIsModified)
{
    FenModifiedWatcher const watcher(&builder.chart);
    watcher.reset();
    EXPECT_EQ(convert().size(), 1U);
    EXPECT_FALSE(watcher.modified());
    FenChartVariable const& variable = builder.variable();
    EXPECT_EQ(variable.data(Vector3::CompY), std::vector<double>({1, 2})) << "as it was set";
    EXPECT_EQ(variable.column(Vector3::CompY)->values(), std::vector<double>({1000, 2000}));
    EXPECT_EQ(variable.column(Vector3::CompX), nullptr);
    EXPECT_EQ("mm m", variable.unit(Vector3::CompY) + ' ' + variable.unitY.get());
    auto const iter = variable.iter();
    iter->MoveNext();
    EXPECT_EQ(iter->Current(), Vector3(0, 1000, 0));
    EXPECT_EQ(iter->Unit(Vector3::CompY), "mm");
    EXPECT_EQ(FenChartVariableCache(variable).range(Vector3::CompY).max, 2000);
    EXPECT_EQ("mm m", builder.y().shownUnit() + ' ' + builder.y().unit.get());
}

TEST_F(ChartUnits, ColumnsAreConvertedOncePerChange)
{
    convert();
    FenChartColumn::Ptr const before = builder.variable().column(Vector3::CompY);
    convert();
    EXPECT_EQ(builder.variable().column(Vector3::CompY), before);
    builder.chart.unitSystem.setUnit("m", "km", 0.001);
    convert();
    EXPECT_EQ(builder.variable().column(Vector3::CompY)->value(0), 0.001);
    EXPECT_EQ(builder.variable().unit(Vector3::CompY), "km");
    builder.variable().setData(Vector3::CompY, {7});
    EXPECT_EQ(builder.variable().column(Vector3::CompY)->value(0), 7)
        << "new data are never shown as old ones";
    builder.variable().unitY.set("unheard");
    convert();
    EXPECT_EQ(builder.variable().column(Vector3::CompY), builder.variable().sourceColumn(Vector3::CompY));
    EXPECT_EQ(builder.variable().unit(Vector3::CompY), "unheard");
    builder.variable().visible.set(false);
    EXPECT_TRUE(convert().empty()) << "hidden variables are not drawn";
}
