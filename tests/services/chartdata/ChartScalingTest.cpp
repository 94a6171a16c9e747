#include "services/chartdata/ChartPerVariableScaling.h"

#include "services/chartdata/Chart.h"
#include "tests/services/chartdata/ChartDataBuilder.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

constexpr double huge = std::numeric_limits<double>::max();

} // namespace

TEST(ChartAxisMapping, MapsItsEndsAndMiddleAndBack)
{
    struct {
        double min, max;
        bool logarithmic;
        double middle;
    } const rows[] = {
        {0, 1, false, 0.5},
        {1.7e9, 1.7e9 + 1, false, 1.7e9 + 0.5},
        {-1e-12, 3e-12, false, 1e-12},
        {-huge, huge, false, 0},
        {0, 8 * 5e-324, false, 4 * 5e-324},
        {1e-310, 3e-310, false, 2e-310},
        {1, 100, true, 10},
        {1e-300, 1e300, true, 1},
    };
    for (auto const& row : rows) {
        FenChartAxisMapping const mapping(row.min, row.max, row.logarithmic);
        EXPECT_NEAR(mapping.chart(row.min), -1, 1e-12) << row.min;
        EXPECT_NEAR(mapping.chart(row.middle), 0, 1e-9) << row.min;
        EXPECT_NEAR(mapping.chart(row.max), 1, 1e-12) << row.min;
        double const exact = std::abs(row.max) * 1e-9;
        EXPECT_NEAR(mapping.data(0), row.middle, exact) << row.min;
        EXPECT_NEAR(mapping.data(1), row.max, exact) << row.min;
    }
    FenChartAxisMapping const logarithmic(1, 10, true);
    for (double const undefined : {0.0, -1.0, std::nan("")})
        EXPECT_TRUE(std::isnan(logarithmic.chart(undefined)));
}

TEST(ChartPerVariableScaling, ResolvesTheAxesThatVariablesName)
{
    ChartDataBuilder builder({1, 2});
    builder.add("named", {1, 2}).yAxis.set("y");
    builder.add("lost", {1, 2}).xAxis.set("unheard");
    FenChartPerVariableScaling const scaling = builder.scaling();
    ASSERT_EQ(scaling.size(), 3U);
    EXPECT_TRUE(scaling.valid(0) && scaling.valid(1) && !scaling.valid(2) && !scaling.valid(3));
    EXPECT_EQ(scaling.variable(2).variable().name(), "lost");
    EXPECT_TRUE(scaling.variable(3).empty());
    builder.chart.xAxes.setFirst("x", FenChartAxisDiscrete::typeString);
    FenChartPerVariableScaling const discrete = builder.scaling();
    EXPECT_TRUE(discrete.isAxisDiscrete(Vector3::CompX, 0) && !discrete.isAxisDiscrete(Vector3::CompY, 0));
    EXPECT_DOUBLE_EQ(discrete.mapping(0, Vector3::CompX).chart(1), 0.5);
    builder.chart.yAxes.setFirst("", "");
    EXPECT_FALSE(builder.scaling().valid(0)) << "a pair without axes";
}

TEST(ChartPerVariableScaling, MatricesAgreeWithTheMappingOrItsLogarithm)
{
    ChartDataBuilder builder;
    builder.add("v", {1e6, 1e6 + 4}, {10, 20});
    FenChartPerVariableScaling const scaling = builder.scaling();
    FenChartVariableCache const& cache = scaling.variable(0);
    for (std::size_t i = 0; i < 2; ++i) {
        Vector3 const absolute = scaling.matrix(0) * cache.points()[i];
        Vector3 const relative = scaling.relativeMatrix(0) * cache.relativePoints()[i];
        for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY}) {
            double const exact = scaling.mapping(0, comp).chart(cache.value(comp, i));
            EXPECT_NEAR(absolute[comp], exact, comp == Vector3::CompX ? 1e-5 : 0.1);
            EXPECT_NEAR(relative[comp], exact, 1e-5);
        }
    }
    builder.variable().setData(Vector3::CompY, {-huge, huge});
    Kes::Math::Matrix const wide = builder.scaling().matrix(0);
    EXPECT_TRUE(std::isfinite(wide(1, 1)) && std::isfinite(wide(1, 3)));
    builder.variable().setData(Vector3::CompY, {1, 100});
    builder.y().logarithmic.set(true);
    EXPECT_NEAR((builder.scaling().matrix(0) * Vector3(0, 1, 0)).y(),
                builder.scaling().mapping(0, Vector3::CompY).chart(10), 1e-6);
}

TEST(ChartPerVariableScaling, GradientsSpanTheValuesAndFillsEndAtZeroOrTheNearestEnd)
{
    LogCapture log;
    log.expect("is logarithmic");
    struct {
        std::vector<double> data;
        bool logarithmic;
        Vector2 range;
        double fixedMin, fixedMax, base;
    } const rows[] = {
        {{-1, 3}, false, Vector2(-1, 3), -5, 5, 0},        {{5, 10}, false, Vector2(5, 10), 4, 12, 4},
        {{-5, -10}, false, Vector2(-10, -5), -12, -4, -4}, {{-5, 2, 10}, true, Vector2(2, 10), 1, 100, 1},
        {{std::nan("")}, false, Vector2(0, 0), 0, 1, 0},
    };
    for (auto const& row : rows) {
        ChartDataBuilder builder(row.data);
        builder.y().logarithmic.set(row.logarithmic);
        builder.fix(builder.y(), row.fixedMin, row.fixedMax);
        Vector2 range;
        double base = 99;
        EXPECT_TRUE(builder.scaling().gradientExtents(0, Vector3::CompY, range, base));
        EXPECT_EQ(range, row.range);
        EXPECT_EQ(base, row.base);
    }
    Vector2 range(1, 2);
    double base = 99;
    EXPECT_FALSE(FenChartPerVariableScaling().gradientExtents(0, Vector3::CompY, range, base));
    EXPECT_EQ(range, Vector2(0, 0));
    EXPECT_EQ(base, 0);
}
