#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartUpdateVariableUnits.h"
#include "services/chartdata/ChartValidVariableList.h"
#include "services/properties/ModifiedWatcher.h"
#include "tests/services/chartdata/ChartDataBuilder.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>

using Kes::Math::NumberFormat;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

class Chance {
public:
    explicit Chance(unsigned seed)
        : _random(seed)
    {
    }
    unsigned below(unsigned n) { return unsigned(_random() % n); }
    double number()
    {
        static double const hostile[] = {
            0,         -0.0,    1,        -1,    0.1,   1e308,        -1e308, 1.7976931348623157e308,
            5e-324,    -5e-324, 2.2e-308, 1e-12, 1.7e9, 1.7e9 + 1e-6, NAN,    INFINITY,
            -INFINITY, 1e300};
        double const plain = double(below(2001)) / 10 - 100;
        return below(3) ? plain : hostile[below(std::size(hostile))];
    }
    std::vector<double> column()
    {
        std::vector<double> values(below(4) ? below(6) : below(300));
        for (double& value : values) value = number();
        if (below(3) == 0) std::sort(values.begin(), values.end(), [](double a, double b) { return a < b; });
        return values;
    }
    QString any(QStringList const& texts) { return texts[int(below(unsigned(texts.size())))]; }

private:
    std::mt19937 _random;
};

void buildAxis(FenChartAxis* axis, Chance& chance)
{
    if (!axis) return;
    axis->autoRange.set(chance.below(2) == 0);
    axis->min.set(chance.number());
    axis->max.set(chance.number());
    if (auto* const continuous = dynamic_cast<FenChartAxisContinuous*>(axis)) {
        continuous->logarithmic.set(chance.below(3) == 0);
        continuous->factor.set(chance.below(2) ? 1.0 : chance.number());
        continuous->format.set(chance.any({"", "", "date", "wool"}));
        continuous->unit.set(chance.any({"", "m", "wool"}));
    } else if (auto* const discrete = dynamic_cast<FenChartAxisDiscrete*>(axis)) {
        discrete->labels.set(chance.below(2) ? QStringList() : QStringList({"a", "", "c"}));
    }
}

void build(FenChart2D& chart, Chance& chance)
{
    QStringList const types = {FenChartAxisContinuous::typeString, FenChartAxisContinuous::typeString,
                               FenChartAxisDiscrete::typeString, ""};
    for (FenChartAxisPair* const pair : {&chart.xAxes, &chart.yAxes}) {
        buildAxis(pair->setFirst("first", chance.any(types)), chance);
        buildAxis(pair->setSecond("second", chance.any(types)), chance);
    }
    chart.unitSystem.setUnit("m", "mm", 1000.0);
    for (unsigned n = chance.below(4); n > 0; --n) {
        FenChartVariable& variable = chart.variables.append("v");
        for (Vector3::Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ})
            variable.setData(
                comp, comp == Vector3::CompX && chance.below(2) ? std::vector<double>() : chance.column());
        variable.style.set(chance.any({"line", "bar", "step", "wool"}));
        variable.fillMode.set(chance.any({"none", "solid", "wool"}));
        variable.barWidth.set(chance.number());
        variable.xAxis.set(chance.any({"", "first", "second", "wool"}));
        variable.yAxis.set(chance.any({"", "first", "second", "wool"}));
        variable.unitY.set(chance.any({"", "m"}));
    }
}

void expectSound(FenChartAxisScale const* scale)
{
    if (!scale) return;
    EXPECT_TRUE(std::isfinite(scale->min()) && std::isfinite(scale->max()));
    EXPECT_LT(scale->min(), scale->max());
    if (scale->logarithmic()) {
        EXPECT_GT(scale->min(), 0.0);
    }
    EXPECT_LT(scale->size(), 3000U);
    for (unsigned i = 0; i < scale->size(); ++i) {
        EXPECT_TRUE(scale->percentage(i) >= 0.0 && scale->percentage(i) <= 1.0);
        EXPECT_TRUE(i == 0 || scale->percentage(i) >= scale->percentage(i - 1));
    }
    FenChartAxisMapping const mapping = scale->mapping();
    EXPECT_NEAR(mapping.chart(scale->min()), -1.0, 1e-6);
    EXPECT_NEAR(mapping.chart(scale->max()), 1.0, 1e-6);
}

/// Ranges cover the points whose coordinates are all finite, and nothing else.
void expectRangesOfDefinedPoints(FenChartVariableCache const& cache)
{
    FenChartRange x, y;
    if (cache.empty()) return; // nothing to draw, or of an axis that is not there
    for (std::size_t i = 0; i < cache.count(); ++i) {
        if (!std::isfinite(cache.x(i)) || !std::isfinite(cache.y(i)) || !std::isfinite(cache.z(i))) continue;
        x.insert(cache.x(i));
        y.insert(cache.y(i));
    }
    EXPECT_EQ(cache.range(Vector3::CompX), x);
    EXPECT_EQ(cache.range(Vector3::CompY), y);
}

} // namespace

TEST(ChartDataFuzz, AnyDataAndAnySettingsGiveSoundScales)
{
    LogCapture log;
    log.expect("is logarithmic");
    for (unsigned seed = 0; seed < 2000 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(seed);
        FenModifiedGroup group;
        FenChart2D chart(group);
        build(chart, chance);
        FenModifiedWatcher const watcher(&chart);
        watcher.reset();
        auto const shown = FenChartUpdateVariableUnits(chart.unitSystem, chart.xAxes, chart.yAxes,
                                                       chart.zAxes, chart.variables)();
        FenChartVariableListCache const cache(shown, chart.xAxes.names());
        FenChartAxisPairScale x(chart.xAxes, cache), y(chart.yAxes, cache);
        unsigned const divisions = chance.below(3) ? 3 + chance.below(10) : chance.below(100000);
        for (FenChartAxisPairScale* const scales : {&x, &y}) {
            scales->update(divisions, NumberFormat());
            expectSound(scales->first());
            expectSound(scales->second());
        }
        if (FenChartAxisScale const* const scale = y.first()) {
            // Divisions change ticks only.
            FenChartAxisPairScale const again(chart.yAxes, cache);
            EXPECT_EQ(scale->min(), again.first()->min());
            EXPECT_EQ(scale->max(), again.first()->max());
        }
        FenChartPerVariableScaling const scaling(x, y, cache);
        FenChartValidVariableList valid;
        for (unsigned i = 0; i < scaling.size(); ++i) {
            FenChartVariableCache const& variable = scaling.variable(i);
            Kes::Math::BoundingBox const box = variable.boundingBox();
            EXPECT_EQ(box.defined(), !variable.empty());
            expectRangesOfDefinedPoints(variable);
            if (box.defined()) {
                EXPECT_TRUE(std::isfinite(box.min().y()) && std::isfinite(box.max().y()));
            }
            EXPECT_GT(variable.minXDelta(), 0.0);
            EXPECT_EQ(variable.relativePoints().size(), variable.count());
            Vector2 range;
            double base = 0;
            EXPECT_EQ(scaling.gradientExtents(i, Vector3::CompY, range, base), scaling.valid(i));
            EXPECT_TRUE(std::isfinite(range.x()) && std::isfinite(range.y()) && std::isfinite(base));
            for (int k = 0; k < 16; ++k) EXPECT_TRUE(std::isfinite(scaling.matrix(i)[k]));
            valid.push_back(variable);
            EXPECT_TRUE(std::isfinite(valid.fillBaseLine(i)));
        }
        EXPECT_FALSE(watcher.modified());
    }
}
