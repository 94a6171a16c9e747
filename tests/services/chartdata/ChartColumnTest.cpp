#include "services/chartdata/ChartColumn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>

namespace {

typedef std::vector<double> Values;
constexpr double infinity = std::numeric_limits<double>::infinity();
double const notANumber = std::nan("");

/// Extremes by looking at every value, to compare with.
FenChartColumn::Range slowRange(Values const& values, std::size_t first, std::size_t last)
{
    FenChartColumn::Range range;
    for (std::size_t i = first; i < std::min(last, values.size()); ++i) {
        if (!std::isfinite(values[i])) {
            range.gap = true;
            continue;
        }
        range.min = range.any ? std::min(range.min, values[i]) : values[i];
        range.max = range.any ? std::max(range.max, values[i]) : values[i];
        range.any = true;
    }
    return range;
}

/// The column has these values, and answers all questions as a look at every one of them does.
void expectColumn(FenChartColumn const& column, Values const& values, std::size_t step = 37)
{
    auto const parts = [](FenChartColumn::Range const& r) { return std::tuple(r.min, r.max, r.gap, r.any); };
    FenChartColumn::Range const all = slowRange(values, 0, values.size());
    EXPECT_EQ(column.size(), values.size());
    EXPECT_EQ(column.hasGaps(), all.gap);
    EXPECT_EQ(column.ascending(), !all.gap && std::is_sorted(values.begin(), values.end()));
    for (std::size_t first = 0; first <= values.size(); first += step)
        for (std::size_t last = first; last <= values.size() + 100; last += step)
            EXPECT_EQ(parts(column.range(first, last)), parts(slowRange(values, first, last)));
    for (std::size_t b = 0; b < column.blocks(); ++b) {
        FenChartColumn::Range const slow = slowRange(values, b * 64, b * 64 + 64);
        EXPECT_EQ(column.blockHasGap(b), slow.gap);
        EXPECT_EQ(column.blockMin(b), slow.any ? slow.min : infinity);
        EXPECT_EQ(column.blockMax(b), slow.any ? slow.max : -infinity);
    }
}

/// Walks up and down; every hundredth value, and one whole block, is a gap.
Values walk(std::size_t count, bool withGaps)
{
    std::mt19937 random(7);
    Values values(count);
    double at = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        at += double(random() % 2001) - 1000.0;
        bool const gap = withGaps && (random() % 100 == 0 || (i >= 128 && i < 192));
        values[i] = gap ? (random() % 2 ? notANumber : -infinity) : at;
    }
    return values;
}

} // namespace

TEST(ChartColumn, RangesAgreeWithALookAtEveryValue)
{
    for (bool const withGaps : {false, true})
        expectColumn(FenChartColumn(walk(1000, withGaps)), walk(1000, withGaps), 13);
    expectColumn(FenChartColumn(Values{-1e308, 1e308}), {-1e308, 1e308}, 1);
    Values ascending(300);
    for (std::size_t i = 0; i < 300; ++i) ascending[i] = double(i / 2);
    expectColumn(FenChartColumn(ascending), ascending);
    for (std::size_t const at : {0U, 1U, 63U, 64U, 200U, 298U, 299U}) {
        for (double const value : {notANumber, infinity, -infinity, at == 0 ? 1000.0 : -1.0}) {
            Values broken = ascending;
            broken[at] = value;
            expectColumn(FenChartColumn(broken), broken);
        }
    }
}

TEST(ChartColumn, AppendedColumnsAreAsThoseMadeAtOnceAndLeaveTheOldOnesAlone)
{
    for (Values const& start : {Values(), {1, 2, 3}, walk(200, false), walk(200, true)}) {
        for (Values const& end : {Values(), {4, 5}, {0}, {notANumber}, walk(150, true)}) {
            Values all = start;
            all.insert(all.end(), end.begin(), end.end());
            expectColumn(*FenChartColumn::appended(FenChartColumn::make(start), end), all);
        }
    }
    FenChartColumn::Ptr const first = FenChartColumn::make({1, 2, 3});
    FenChartColumn::Ptr const second = FenChartColumn::appended(first, {4, 5});
    FenChartColumn::Ptr const third = FenChartColumn::appended(second, {-1});
    FenChartColumn::Ptr const branch = FenChartColumn::appended(second, {6, 7}); // third grew in place before
    for (auto const& [column, values] : {std::pair(first, Values{1, 2, 3}),
                                         {second, {1, 2, 3, 4, 5}},
                                         {third, {1, 2, 3, 4, 5, -1}},
                                         {branch, {1, 2, 3, 4, 5, 6, 7}}}) {
        expectColumn(*column, values, 1);
        EXPECT_EQ(column->values(), values);
    }
    EXPECT_EQ(second->upperBound(9), 5u);
}

TEST(ChartColumn, SharesValuesWithoutCopying)
{
    auto const values = std::make_shared<Values const>(Values{3, 1, 2});
    EXPECT_EQ(&FenChartColumn::share(values)->values(), values.get());
    EXPECT_TRUE(FenChartColumn::share(nullptr)->empty());
    Values moved = {1, 2, 3};
    double const* const place = moved.data();
    EXPECT_EQ(FenChartColumn::make(std::move(moved))->values().data(), place);
}

TEST(ChartColumn, KnowsDistancesAndWhatALogarithmicAxisCanShow)
{
    struct {
        Values values;
        double minDelta, minPositive;
        std::size_t nonPositive;
    } const rows[] = {
        {{}, 1, 0, 0},
        {{5, 5, 5}, 1, 5, 0},
        {{0, 2, 2, 2.5, 9}, 0.5, 2, 1},
        {{9, 0, 2.5, 2}, 0.5, 2, 1},
        {{0, notANumber, 3, infinity, 7, -infinity}, 3, 3, 1},
        {{-2, -1}, 1, 0, 2},
        {{notANumber, notANumber}, 1, 0, 0},
    };
    for (auto const& row : rows) {
        FenChartColumn const column(row.values);
        EXPECT_EQ(column.minDelta(), row.minDelta);
        EXPECT_EQ(column.minPositive(), row.minPositive);
        EXPECT_EQ(column.nonPositive(), row.nonPositive);
    }
}
