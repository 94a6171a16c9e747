#include "services/chartdata/ChartColumn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
double const notANumber = std::nan("");

/// Extremes by looking at every value, to compare with.
FenChartColumn::Range slowRange(std::vector<double> const& values, std::size_t first, std::size_t last)
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

void expectRange(FenChartColumn::Range const& a, FenChartColumn::Range const& b)
{
    EXPECT_EQ(a.min, b.min);
    EXPECT_EQ(a.max, b.max);
    EXPECT_EQ(a.gap, b.gap);
    EXPECT_EQ(a.any, b.any);
}

/// Walks up and down; every hundredth value, and one whole block, is a gap.
std::vector<double> walk(std::size_t count, bool withGaps)
{
    std::mt19937 random(7);
    std::vector<double> values(count);
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
    for (bool const withGaps : {false, true}) {
        std::vector<double> const values = walk(1000, withGaps);
        FenChartColumn const column(values);
        EXPECT_EQ(column.hasGaps(), withGaps);
        expectRange(column.range(0, values.size()), slowRange(values, 0, values.size()));
        for (std::size_t first = 0; first < 260; first += 13)
            for (std::size_t last = 0; last <= 1100; last += 37)
                expectRange(column.range(first, last),
                            first < last ? slowRange(values, first, last) : FenChartColumn::Range());
        for (std::size_t b = 0; b < column.blocks(); ++b) {
            FenChartColumn::Range const slow = slowRange(values, b * 64, b * 64 + 64);
            EXPECT_EQ(column.blockHasGap(b), slow.gap);
            EXPECT_EQ(column.blockMin(b), slow.any ? slow.min : infinity);
            EXPECT_EQ(column.blockMax(b), slow.any ? slow.max : -infinity);
        }
    }
}

TEST(ChartColumn, AscendsOnlyWithoutStepsDownAndWithoutGaps)
{
    std::vector<double> ascending(300);
    for (std::size_t i = 0; i < 300; ++i) ascending[i] = double(i / 2);
    EXPECT_TRUE(FenChartColumn(ascending).ascending());
    EXPECT_TRUE(FenChartColumn(std::vector<double>{}).ascending());
    EXPECT_TRUE(FenChartColumn(std::vector<double>{-1e308, 1e308}).ascending());
    for (std::size_t const at : {0U, 1U, 63U, 64U, 200U, 298U, 299U}) {
        for (double const value : {notANumber, infinity, -infinity, at == 0 ? 1000.0 : -1.0}) {
            std::vector<double> broken = ascending;
            broken[at] = value;
            FenChartColumn const column(broken);
            EXPECT_FALSE(column.ascending()) << at << ' ' << value;
            expectRange(column.range(0, 300), slowRange(broken, 0, 300));
            expectRange(column.range(5, 299), slowRange(broken, 5, 299));
        }
    }
}

TEST(ChartColumn, AppendedColumnsAreAsThoseMadeAtOnce)
{
    std::vector<std::vector<double>> const starts = {{}, {1, 2, 3}, walk(200, false), walk(200, true)};
    std::vector<std::vector<double>> const ends = {{}, {4, 5}, {0}, {notANumber}, walk(150, true)};
    for (std::vector<double> const& start : starts) {
        for (std::vector<double> const& end : ends) {
            std::vector<double> all = start;
            all.insert(all.end(), end.begin(), end.end());
            FenChartColumn const whole(all);
            FenChartColumn::Ptr const joined = FenChartColumn::appended(FenChartColumn::make(start), end);
            EXPECT_EQ(joined->size(), whole.size());
            EXPECT_EQ(joined->ascending(), whole.ascending());
            expectRange(joined->range(0, all.size()), whole.range(0, all.size()));
            for (std::size_t b = 0; b < whole.blocks(); ++b)
                expectRange(joined->range(b * 64, b * 64 + 64), whole.range(b * 64, b * 64 + 64));
        }
    }
}

TEST(ChartColumn, StaysAsItWasWhenOthersAppendToIt)
{
    FenChartColumn::Ptr const first = FenChartColumn::make({1, 2, 3});
    FenChartColumn::Ptr const second = FenChartColumn::appended(first, {4, 5});
    FenChartColumn::Ptr const third = FenChartColumn::appended(second, {-1});
    FenChartColumn::Ptr const branch = FenChartColumn::appended(second, {6, 7}); // third grew in place before
    struct Row {
        FenChartColumn::Ptr column;
        std::vector<double> values;
    };
    Row const rows[] = {{first, {1, 2, 3}},
                        {second, {1, 2, 3, 4, 5}},
                        {third, {1, 2, 3, 4, 5, -1}},
                        {branch, {1, 2, 3, 4, 5, 6, 7}}};
    for (Row const& row : rows) {
        EXPECT_EQ(row.column->size(), row.values.size());
        EXPECT_EQ(row.column->max(), *std::max_element(row.values.begin(), row.values.end()));
        EXPECT_EQ(row.column->values(), row.values);
    }
    EXPECT_EQ(second->upperBound(9), 5u);
}

TEST(ChartColumn, SharesValuesWithoutCopying)
{
    auto const values = std::make_shared<std::vector<double> const>(std::vector<double>{3, 1, 2});
    EXPECT_EQ(&FenChartColumn::share(values)->values(), values.get());
    EXPECT_TRUE(FenChartColumn::share(nullptr)->empty());
    std::vector<double> moved = {1, 2, 3};
    double const* const place = moved.data();
    EXPECT_EQ(FenChartColumn::make(std::move(moved))->values().data(), place);
}

TEST(ChartColumn, KnowsDistancesAndWhatALogarithmicAxisCanShow)
{
    struct {
        std::vector<double> values;
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
