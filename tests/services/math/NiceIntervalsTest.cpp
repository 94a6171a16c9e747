#include "services/math/NiceIntervals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <string>

using Kes::Math::NiceIntervals;
using Kes::Math::NumberFormat;

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr bool clip = true;
constexpr bool widen = false;

std::string labels(NiceIntervals const& intervals)
{
    std::string text;
    for (unsigned i = 0; i < intervals.size(); ++i) text += (i ? " " : "") + intervals.label(i);
    return text;
}

} // namespace

TEST(NiceIntervals, FindsTheValuesOfTheTable)
{
    struct Row {
        double min, max;
        unsigned count;
        bool clips, useFactor;
        char const* labels;
        double factor;
        NumberFormat format = {};
    };
    Row const rows[] = {
        {0, 0.2, 4, clip, false, "0 0,05 0,1 0,15 0,2", 1, {'g', ',', 6}},
        {0, 0.2, 4, clip, false, "0.00 0.05 0.10 0.15 0.20", 1, {'f', '.', 1}}, // or they would look alike
        {0, 0.2, 4, clip, false, "0.0e+00 5.0e-02 1.0e-01 1.5e-01 2.0e-01", 1, {'e', '.', 0}},
        {-0.25, 0.35, 6, clip, true, "-0.2 -0.1 0 0.1 0.2 0.3", 1},
        {double(0.1f), double(0.9f), 8, clip, true, "0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9", 1}, // from floats
        {1, 0, 5, clip, true, "0 0.2 0.4 0.6 0.8 1", 1}, // the wrong way round
        {0.3, 9.7, 5, clip, true, "2 4 6 8", 1},
        {0.3, 9.7, 5, widen, true, "0 2 4 6 8 10", 1},
        {-1, 1, 1, widen, true, "-1 0 1", 1},
        {7.5, 7.5, 5, clip, true, "7.5", 1}, // one number
        {7.5, 7.5, 3, widen, true, "6 7 8 9", 1},
        {0, 5e6, 5, clip, true, "0 1 2 3 4 5", 1e6}, // factors
        {0, 5e6, 5, clip, false, "0 1e+06 2e+06 3e+06 4e+06 5e+06", 1},
        {0, 2e-4, 4, clip, true, "0 50 100 150 200", 1e-6},
        {1e6, 1e6 + 1, 2, clip, true, "1000000 1000000.5 1000001", 1}, // digits before factors
        {1e300, 3e300, 2, clip, true, "1 2 3", 1e300}, // the ends of the number line
        {1e-300, 3e-300, 2, clip, true, "1 2 3", 1e-300},
        {-largest, largest, 4, clip, false, "-1e+308 0 1e+308", 1},
        {-largest, largest, 4, widen, false, "-1e+308 0 1e+308", 1},
    };
    for (Row const& row : rows) {
        NiceIntervals const found(row.min, row.max, row.count, row.clips, row.useFactor, row.format);
        EXPECT_EQ(row.labels, labels(found)) << row.min << " .. " << row.max << ", " << row.count;
        EXPECT_EQ(row.factor, found.factor()) << row.labels;
    }
}

// Any range, near or far from 0, wide or a few numbers wide: a fair number of distinct values, inside, with
// distinct labels.
TEST(NiceIntervals, HoldsItsPromisesForAnyRange)
{
    std::mt19937_64 random(3);
    auto const number = [&random] {
        double const mantissa = double(random() % 2000001) - 1e6;
        return std::ldexp(mantissa, int(random() % 2040) - 1060);
    };
    for (int round = 0; round < 4000; ++round) {
        double const min = number();
        double const width = round % 3 ? number() : std::fabs(min) * std::ldexp(1.0, -int(random() % 54));
        double const max = min + width;
        unsigned const count = unsigned(random() % 20);
        bool const clips = round % 2;
        NiceIntervals const found(min, max, count, clips, true, NumberFormat());
        if (!std::isfinite(max)) continue;
        ASSERT_TRUE(found.size() >= 1 && found.size() <= std::max(count, 3u) + 2) << min << ' ' << max;
        std::set<std::string> texts;
        for (unsigned i = 0; i < found.size(); ++i) {
            ASSERT_TRUE(found.value(i) >= found.min() && found.value(i) <= found.max()) << min << ' ' << max;
            ASSERT_TRUE(i == 0 || found.value(i) > found.value(i - 1)) << min << ' ' << max;
            ASSERT_TRUE(texts.insert(found.label(i)).second) << min << ' ' << max << ' ' << found.label(i);
        }
        ASSERT_TRUE(found.min() <= std::min(min, max) && found.max() >= std::max(min, max));
        ASSERT_TRUE(!clips || found.max() - found.min() == std::fabs(max - min)) << min << ' ' << max;
    }
    for (double const none : {NAN, INFINITY, -INFINITY}) {
        NiceIntervals const nothing(0, none, 5, clip, true, NumberFormat());
        EXPECT_EQ(0u, nothing.size());
        EXPECT_EQ(1.0,
                  nothing.min() + nothing.max() + nothing.fraction(3) + nothing.value(3) + nothing.factor());
        EXPECT_EQ("", nothing.label(3));
    }
    for (double const edge : {smallest, largest, -largest}) {
        EXPECT_EQ(1u, NiceIntervals(edge, edge, 5, clip, true, NumberFormat()).size());
        EXPECT_GE(NiceIntervals(edge, edge, 5, widen, true, NumberFormat()).size(), 1u) << edge;
        EXPECT_GE(NiceIntervals(0, edge, 4000000000u, clip, true, NumberFormat()).size(), 1u) << edge;
    }
}
