#include "services/chartdata/ChartVariable.h"

#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartValidVariableList.h"
#include "services/math/IVariableIter.h"
#include "services/properties/ModifiedWatcher.h"
#include "tests/services/chartdata/ChartDataBuilder.h"

#include <gtest/gtest.h>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

constexpr double notANumber = ChartDataBuilder::notANumber;
constexpr double infinity = ChartDataBuilder::infinity;

} // namespace

TEST(ChartVariable, SettingDataIsAModificationAndKeepsTheNumbers)
{
    FenModifiedGroup group;
    FenChartVariable variable(group);
    FenModifiedWatcher const watcher(&variable);
    watcher.reset();
    EXPECT_TRUE(variable.data(Vector3::CompY).empty());
    variable.setData(Vector3::CompY, {1, notANumber, 3});
    EXPECT_TRUE(watcher.modified());
    EXPECT_EQ(variable.data(Vector3::CompY).size(), 3U);
    FenChartColumn::Ptr const column = variable.column(Vector3::CompY);
    watcher.reset();
    variable.setColumn(Vector3::CompY, column); // the same one
    EXPECT_FALSE(watcher.modified());
    variable.appendData(Vector3::CompY, {4});
    EXPECT_TRUE(watcher.modified());
    EXPECT_EQ(variable.data(Vector3::CompY).back(), 4);
    EXPECT_EQ(column->size(), 3U) << "who shares the old column sees no change";
    variable.setData(Vector3::CompY, {});
    EXPECT_FALSE(variable.column(Vector3::CompY));
}

TEST(ChartVariable, CopiesShareTheColumnsAndTakeAllProperties)
{
    FenModifiedGroup group;
    FenChartVariable source(group), target(group);
    source.setData(Vector3::CompY, {1, 2});
    source.symbol.set(FenChart::symbolStar);
    FenChartVariable const copy(source);
    FenModifiedWatcher const watcher(&target);
    watcher.reset();
    target = source;
    EXPECT_TRUE(watcher.modified());
    for (FenChartVariable const* const variable : {&copy, static_cast<FenChartVariable const*>(&target)}) {
        EXPECT_EQ(variable->column(Vector3::CompY), source.column(Vector3::CompY));
        EXPECT_EQ(variable->symbol.get(), FenChart::symbolStar);
    }
}

TEST(ChartVariable, MissingAndShortColumnsFollowTheRulesInIteratorAndCache)
{
    struct {
        std::vector<double> x, y, z;
        std::size_t count;
        std::vector<bool> defined; // per point: all three coordinates
    } const rows[] = {
        {{}, {5, 6}, {}, 2, {true, true}},
        {{1, 2, 3}, {5, 6}, {}, 3, {true, true, false}},
        {{1}, {5, 6}, {}, 2, {true, false}},
        {{1, 2}, {}, {}, 2, {false, false}},
        {{1, notANumber}, {5, 6}, {7, 8}, 2, {true, false}},
        {{1, 2}, {infinity, 6}, {7, 8}, 2, {false, true}},
        {{}, {}, {}, 0, {}},
    };
    for (auto const& row : rows) {
        ChartDataBuilder builder;
        FenChartVariable& variable = builder.add("v", row.y, row.x);
        variable.setData(Vector3::CompZ, row.z);
        FenChartVariableCache const cache(variable);
        EXPECT_EQ(cache.count(), row.count);
        EXPECT_EQ(cache.points().size(), row.count);
        auto const iter = variable.iter();
        for (int round = 0; round < 2; ++round, iter->Reset()) {
            std::size_t i = 0;
            for (; iter->MoveNext(); ++i) {
                bool defined = true;
                for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
                    defined = defined && !iter->IsUndefined(comp);
                    EXPECT_EQ(iter->IsUndefined(comp), !std::isfinite(cache.value(comp, i)));
                    EXPECT_EQ(std::isfinite(variable.value(comp, i)), std::isfinite(cache.value(comp, i)));
                }
                ASSERT_LT(i, row.defined.size());
                EXPECT_EQ(defined, row.defined[i]);
                if (defined) {
                    EXPECT_EQ(iter->Current(), cache.points()[i]);
                }
            }
            EXPECT_EQ(i, row.count);
        }
    }
}

TEST(ChartVariableCache, RelativePointsKeepTheResolutionFarFromZero)
{
    ChartDataBuilder builder;
    FenChartVariableCache const far(builder.add("far", {1, 2}, {1.7e9, 1.7e9 + 0.25}));
    EXPECT_EQ(far.origin(Vector3::CompX), 1.7e9);
    EXPECT_EQ(far.relativePoints()[1], Vector3(0.25F, 2, 0));
    EXPECT_EQ(far.points()[0], far.points()[1] - Vector3(0, 1, 0)) << "as float they are the same x";
    FenChartVariableCache const near(builder.add("near", {1, 2}, {0.5, 100}));
    EXPECT_EQ(near.origin(Vector3::CompX), 0);
    EXPECT_EQ(near.origin(Vector3::CompY), 0);
}

TEST(ChartVariableCache, OutlivesItsVariable)
{
    ChartDataBuilder builder({1, 2});
    FenChartVariableListCache const cache = builder.cache();
    FenChartPerVariableScaling const scaling = builder.scaling();
    FenChartValidVariableList valid;
    valid.push_back(cache.cache(0));
    EXPECT_TRUE(scaling.valid(0));
    EXPECT_EQ(valid.findIndexByName("v"), 0);
    builder.chart.variables.removeAt(0);
    EXPECT_FALSE(cache.cache(0).alive());
    EXPECT_EQ(cache.cache(0).y(1), 2);
    EXPECT_EQ(cache.cache(0).variable().name(), QString());
    EXPECT_FALSE(scaling.valid(0));
    EXPECT_FALSE(valid.alive(0));
    EXPECT_EQ(valid.findIndexByName("v"), -1);
    EXPECT_EQ(valid.variable(0).name(), QString());
    EXPECT_EQ(valid.minmax(0), Vector2(1, 2));
}

TEST(ChartVariableListCache, ListsVisibleVariablesAndHonoursAxes)
{
    ChartDataBuilder builder({1, 2, 3});
    builder.add("hidden", {100}).visible.set(false);
    builder.add("elsewhere", {200, 200, 200, 200}).xAxis.set("other");
    EXPECT_EQ(builder.cache().size(), 2U);
    EXPECT_EQ(builder.cache().maxScalarLen(), 4U);
    EXPECT_EQ(builder.cache().bounds().max().y(), 200);
    FenChartVariableListCache cache({&builder.chart.variables[0], nullptr, &builder.chart.variables[2]},
                                    {"x"});
    ASSERT_EQ(cache.size(), 2U);
    EXPECT_TRUE(cache.cache(1).empty());
    EXPECT_EQ(cache.bounds().max(), Vector3(2, 3, 0));
    EXPECT_TRUE(cache.cache(7).empty());
    cache.clear();
    EXPECT_FALSE(cache.bounds().defined());
}

TEST(ChartValidVariableList, FillsDownToZeroWithinTheCommonRange)
{
    ChartDataBuilder builder({1});
    FenChartValidVariableList list;
    EXPECT_EQ(list.fillBaseLine(0), 0);
    list.push_back(builder.variable(), Vector2(2, 5));
    EXPECT_EQ(list.fillBaseLine(0), 2);
    list.push_back(builder.variable(), Vector2(-1, 3));
    EXPECT_EQ(list.fillBaseLine(0), 0);
    list.clear();
    list.push_back(builder.variable(), Vector2(-7, -4));
    EXPECT_EQ(list.fillBaseLine(0), -4);
    list.push_back(FenChartVariableCache());
    EXPECT_EQ(list.minmax(1), Vector2(0, 0));
    EXPECT_EQ(list.minmax(9), Vector2(0, 0));
}
