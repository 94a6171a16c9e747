#include "services/chartdata/ChartAxisScale.h"

#include "services/chartdata/Chart.h"
#include "tests/services/chartdata/ChartDataBuilder.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <functional>

using Kes::Math::NumberFormat;

namespace {

constexpr double infinity = ChartDataBuilder::infinity;
constexpr double notANumber = ChartDataBuilder::notANumber;
constexpr double huge = std::numeric_limits<double>::max();

typedef ChartDataBuilder Builder;

void logarithmic(Builder& b) { b.y().logarithmic.set(true); }
void bars(Builder& b) { b.variable().style.set(FenChart::styleBar); }
void fill(Builder& b) { b.variable().fillMode.set(FenChart::fillSolid); }
void dates(Builder& b) { b.y().format.set("date"); }
std::function<void(Builder&)> fixed(double min, double max)
{
    return [=](Builder& b) { b.fix(b.y(), min, max); };
}
std::function<void(Builder&)> both(std::function<void(Builder&)> const& f,
                                   std::function<void(Builder&)> const& g)
{
    return [=](Builder& b) { f(b), g(b); };
}

void expectTicksInside(FenChartAxisScale const& scale)
{
    for (unsigned i = 0; i < scale.size(); ++i) {
        EXPECT_GE(scale.percentage(i), 0.0);
        EXPECT_LE(scale.percentage(i), 1.0);
        if (i == 0) continue;
        EXPECT_LT(scale.percentage(i - 1), scale.percentage(i));
        EXPECT_NE(scale.label(i - 1), scale.label(i));
    }
}

} // namespace

TEST(ChartAxisScale, ResolvesRangesOfDataAndAxis)
{
    struct {
        char const* what;
        std::vector<double> data;
        std::function<void(Builder&)> change;
        double min, max;
    } const rows[] = {
        {"air", {0, 10}, {}, -0.5, 10.5},
        {"gaps", {notANumber, 0, infinity, 10}, {}, -0.5, 10.5},
        {"no data", {notANumber}, {}, 0, 1},
        {"single point", {5}, {}, 4.5, 5.5},
        {"equal zeros", {0, 0}, {}, -1, 1},
        {"bars stand on 0", {5, 10}, bars, 0, 10.5},
        {"bars hang from 0", {-5, -10}, bars, -10.5, 0},
        {"bars of nothing", {0, 0}, bars, 0, 1},
        {"filled", {5, 10}, fill, 0, 10.5},
        {"unknown fill", {0, 10}, [](Builder& b) { b.variable().fillMode.set("wool"); }, -0.5, 10.5},
        {"other axis", {0, 10}, [](Builder& b) { b.variable().yAxis.set("unheard"); }, 0, 1},
        {"fixed", {5, 10}, fixed(2, 3), 2, 3},
        {"fixed, turned", {5, 10}, fixed(3, 2), 2, 3},
        {"fixed, equal", {5, 10}, fixed(10, 10), 9, 11},
        {"fixed, not finite", {0, 10}, fixed(notANumber, 3), -0.5, 10.5},
        {"automatic, values written back", {0, 10}, [](Builder& b) { b.y().min.set(-77); }, -0.5, 10.5},
        {"extremes", {-huge, huge}, {}, -huge, huge},
        {"dates, none", {notANumber}, dates, 0, 86400},
        {"dates, one", {86400}, dates, 43200, 129600},
        {"log, no data", {-1, notANumber}, logarithmic, 1, 10},
        {"log, single", {100}, logarithmic, 10, 1000},
        {"log, bars", {30, 300}, both(logarithmic, bars), 10, 300 * std::pow(10, 0.05)},
        {"log, fixed", {1}, both(logarithmic, fixed(2, 200)), 2, 200},
        {"log, fixed below 0", {4, 5}, both(logarithmic, fixed(-2, 200)), 4, 200},
        {"log, fixed below 0 without data", {-1}, both(logarithmic, fixed(0, 100)), 0.1, 100},
        {"log, fixed all below 0", {100}, both(logarithmic, fixed(-2, -1)), 10, 1000},
        {"log, fixed equal", {1}, both(logarithmic, fixed(5, 5)), 0.5, 50},
    };
    for (auto const& row : rows) {
        LogCapture log;
        log.expect("is logarithmic");
        Builder builder(row.data);
        if (row.change) row.change(builder);
        FenChartAxisScale const scale = builder.yScale();
        EXPECT_DOUBLE_EQ(scale.min(), row.min) << row.what;
        EXPECT_DOUBLE_EQ(scale.max(), row.max) << row.what;
        EXPECT_GT(scale.size(), 1U) << row.what;
        expectTicksInside(scale);
    }
}

TEST(ChartAxisScale, LabelsTellTicksApartFarFromZeroAndCloseToIt)
{
    struct {
        std::vector<double> data;
        std::function<void(Builder&)> change;
        unsigned divisions;
        QStringList labels;
    } const rows[] = {
        {{0, 10}, {}, 6, {"0", "2", "4", "6", "8", "10"}},
        {{1.7e9, 1.7e9 + 0.2}, {}, 3, {"1700000000", "1700000000.1", "1700000000.2"}},
        {{0, 1e-12}, {}, 3, {"0", "5e-13", "1e-12"}},
        {{-1e308, 1e308}, {}, 3, {"-1e308", "0", "1e308"}},
        {{0, 40000}, [](Builder& b) { b.y().factor.set(1e4); }, 5, {"0", "1", "2", "3", "4"}},
        {{0, 4}, [](Builder& b) { b.y().factor.set(-1); }, 5, {"0", "-1", "-2", "-3", "-4"}},
        {{0, 4}, [](Builder& b) { b.y().factor.set(0); }, 5, {"0", "1", "2", "3", "4"}},
        {{1, 1e6}, logarithmic, 8, {"1e0", "1e1", "1e2", "1e3", "1e4", "1e5", "1e6"}},
        {{1e-6, 1e6}, logarithmic, 4, {"1e-6", "1e-3", "1e0", "1e3", "1e6"}},
        {{1, 100}, logarithmic, 5, {"1", "2", "5", "10", "20", "50", "100"}},
        {{2, 3}, logarithmic, 3, {"2", "2.5", "3"}},
    };
    for (auto const& row : rows) {
        Builder builder(row.data);
        if (row.change) row.change(builder);
        FenChartAxisScale const scale = builder.yScale(row.divisions);
        EXPECT_EQ(Builder::labels(scale), row.labels);
        expectTicksInside(scale);
    }
}

TEST(ChartAxisScale, ValuesThatALogarithmicAxisCannotShowAreReportedOnce)
{
    LogCapture log;
    Builder builder;
    logarithmic(builder);
    FenChartVariable& variable = builder.add("v", {});
    std::pair<std::vector<double>, int> const rows[] = {// and what is logged by then
                                                        {{-1, 0, 10}, 1},
                                                        {{-1, 0, 11}, 1},
                                                        {{1, 10}, 1},
                                                        {{0, 10, -3}, 2}}; // again after it was mended
    log.expect("\"y\" is logarithmic: 2 values");
    for (auto const& [values, lines] : rows) {
        variable.setData(Kes::Math::Vector3::CompY, values);
        builder.yScales();
        EXPECT_EQ(log.errors().size(), lines);
    }
}

TEST(ChartAxisScale, CategoriesLieInTheMiddleOfTheirIntervals)
{
    Builder builder({3, 1, 2}, FenChartAxisDiscrete::typeString);
    static_cast<FenChartAxisDiscrete&>(builder.x()).labels.set({"a", "b", "c"});
    FenChartAxisScale const scale = builder.xScale(3);
    EXPECT_TRUE(scale.centered() && scale.min() == -0.5 && scale.max() == 2.5);
    EXPECT_EQ(Builder::labels(scale), QStringList({"a", "b", "c"}));
    double const half = (scale.percentage(1) - scale.percentage(0)) / 2;
    for (unsigned i = 0; i < 3; ++i)
        EXPECT_NEAR(scale.percentage(i) - half, (scale.mapping().chart(i) + 1) / 2, 1e-12);
    bars(builder);
    EXPECT_EQ(builder.xScale().max(), 2.5) << "intervals have room for bars";
    Builder continuous({1, 2});
    bars(continuous);
    EXPECT_LE(continuous.xScale().min(), -0.5) << "but not the rest of an axis";
    continuous.variable().barWidth.set(notANumber);
    EXPECT_DOUBLE_EQ(continuous.xScale().min(), -0.02);
    builder.add("longer", {1, 2, 3, 4});
    EXPECT_EQ(builder.xScale().max(), 3.5) << "no point falls off the axis for want of a label";
    builder.fix(builder.x(), 0.5, 2.5);
    EXPECT_EQ(Builder::labels(builder.xScale()), QStringList({"b", "c"}));
    builder.fix(builder.x(), 1e300, 2e300);
    EXPECT_EQ(builder.xScale().size(), 0U);
}

TEST(ChartAxisScale, ManyCategoriesGetTicksBetweenGroupsAndTheLabelInTheMiddle)
{
    Builder builder(std::vector<double>(100000, 1.0), FenChartAxisDiscrete::typeString);
    FenChartAxisScale const scale = builder.xScale(7);
    EXPECT_EQ(scale.max(), 99999.5);
    EXPECT_TRUE(scale.size() > 50 && scale.size() < 200) << scale.size();
    double const half = (scale.percentage(1) - scale.percentage(0)) / 2;
    for (unsigned i = 0; i < scale.size(); ++i) {
        double const category = scale.label(i).toDouble();
        EXPECT_NEAR(scale.percentage(i) - half, (category + 0.5) / 1e5, 1e-9);
    }
    builder.variable().setData(Kes::Math::Vector3::CompX, {0, 1e308, notANumber, -3});
    EXPECT_EQ(builder.xScale().size(), 1U) << "no number of categories that nobody meant";
}

TEST(ChartAxisScale, ThinsLabelsThatWouldTouch)
{
    FenChartAxisScale const scale = Builder({0, 10}).yScale(10); // 11 ticks, 1/11 apart
    ASSERT_EQ(scale.size(), 11U);
    EXPECT_EQ(scale.labelStride(std::vector<double>(11, 40), 1100, 10), 1U);
    EXPECT_EQ(scale.labelStride(std::vector<double>(11, 95), 1100, 10), 2U);
    EXPECT_EQ(scale.labelStride(std::vector<double>(11, 5000), 1100, 10), 11U);
    EXPECT_EQ(scale.labelStride({}, 1100, 10), 1U);
    EXPECT_EQ(FenChartAxisScale().labelStride({1, 2}, 100, 3), 1U);
}

TEST(ChartAxisPairScale, FindsScalesByNameAndEachByItsOwnVariables)
{
    Builder builder({0, 10});
    builder.chart.yAxes.setSecond("right", FenChartAxisContinuous::typeString)->shown.set(false);
    builder.add("w", {0, 1000}).yAxis.set("right");
    FenChartAxisPairScale const scales = builder.yScales();
    EXPECT_TRUE(scales.find("") == scales.first() && scales.find("y") == scales.first());
    EXPECT_TRUE(scales.find("right") == scales.second() && !scales.find("unheard"));
    EXPECT_EQ(scales.first()->max(), 10.5);
    EXPECT_EQ(scales.second()->max(), 1050);
    EXPECT_TRUE(scales.first()->shown() && !scales.second()->shown());
    EXPECT_TRUE(!FenChartAxisPairScale().find("") && !FenChartAxisPairScale().first());
}
