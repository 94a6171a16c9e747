#include "services/chartdata/ChartVariable.h"

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

TEST(ChartVariable, SettingDataIsAModificationAndCopiesShareIt)
{
    FenModifiedGroup group;
    FenChartVariable variable(group), target(group);
    FenModifiedWatcher const watcher(&variable), ofTarget(&target);
    auto const modified = [](FenModifiedWatcher const& w) { return w.modified() && (w.reset(), true); };
    watcher.reset();
    ofTarget.reset();
    EXPECT_TRUE(variable.data(Vector3::CompY).empty());
    variable.setData(Vector3::CompY, {1, notANumber, 3});
    EXPECT_TRUE(modified(watcher));
    FenChartColumn::Ptr const column = variable.column(Vector3::CompY);
    variable.setColumn(Vector3::CompY, column); // the same one
    EXPECT_FALSE(modified(watcher));
    FenChartVariable const copy(variable);
    target = variable;
    EXPECT_TRUE(modified(ofTarget));
    variable.appendData(Vector3::CompY, {4});
    EXPECT_TRUE(modified(watcher));
    EXPECT_EQ(variable.data(Vector3::CompY).back(), 4);
    EXPECT_EQ(column->size(), 3U) << "who shares the old column sees no change";
    EXPECT_TRUE(copy.column(Vector3::CompY) == column && target.column(Vector3::CompY) == column);
    variable.setData(Vector3::CompY, {});
    EXPECT_FALSE(variable.column(Vector3::CompY));
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
                ASSERT_LT(i, row.defined.size());
                bool defined = true;
                for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
                    defined = defined && !iter->IsUndefined(comp);
                    EXPECT_EQ(iter->IsUndefined(comp), !std::isfinite(cache.value(comp, i)));
                    EXPECT_EQ(std::isfinite(variable.value(comp, i)), std::isfinite(cache.value(comp, i)));
                }
                EXPECT_EQ(defined, row.defined[i]);
                EXPECT_TRUE(!defined || iter->Current() == cache.points()[i]);
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
    EXPECT_TRUE(scaling.valid(0) && valid.findIndexByName("v") == 0);
    builder.chart.variables.removeAt(0);
    EXPECT_FALSE(cache.cache(0).alive() || scaling.valid(0) || valid.alive(0));
    EXPECT_EQ(valid.findIndexByName("v"), -1);
    EXPECT_EQ("", cache.cache(0).variable().name() + valid.variable(0).name());
    EXPECT_EQ(cache.cache(0).y(1), 2);
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
    auto const baseWith = [&](float min, float max) {
        list.push_back(builder.variable(), Vector2(min, max));
        return list.fillBaseLine(0);
    };
    EXPECT_EQ(list.fillBaseLine(0), 0);
    EXPECT_EQ(baseWith(2, 5), 2);
    EXPECT_EQ(baseWith(-1, 3), 0);
    list.clear();
    EXPECT_EQ(baseWith(-7, -4), -4);
    list.push_back(FenChartVariableCache());
    EXPECT_TRUE(list.minmax(1) == Vector2(0, 0) && list.minmax(9) == Vector2(0, 0));
}
