#include "host/table/ChartBuilder.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartArguments.h"
#include "host/table/DataTable.h"
#include "host/table/TableRows.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/legend/VisLegend.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartColumn.h"
#include "services/chartdata/ChartVariable.h"

#include <QCommandLineParser>

#include <gtest/gtest.h>

#include <set>

using Kes::Math::Vector3;

namespace {

FenDataTable table(std::string_view text)
{
    FenDataTable made;
    QString error;
    EXPECT_TRUE(FenDataTable::parse(text, QStringLiteral("t"), made, error)) << error.toStdString();
    return made;
}

FenDataTable weather()
{
    return table("date,high,low,wind,kind\n"
                 "2012-01-01,10,1,3,sun\n2012-01-02,11,,4,rain\n2012-01-03,12,3,5,sun\n2012-01-04,13,4,6,\n");
}

class ChartBuilder : public testing::Test {
protected:
    /// The chart that these options make of a table; null after an error.
    FenVisChart2D* build(FenDataTable const& from, char const* words)
    {
        QCommandLineParser parser;
        parser.addOptions(fen::chartArguments());
        EXPECT_TRUE(parser.parse(QStringList(QString())
                                 + QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts)))
            << parser.errorText().toStdString();
        FenChartOptions options;
        if (!fen::readChartArguments(parser, options, error)) return nullptr;
        return dynamic_cast<FenVisChart2D*>(fen::addChart(scene, from, options, FenTheme::light(), error));
    }
    std::string variables(FenVisChart2D& chart)
    {
        QStringList names;
        for (unsigned i = 0; i < chart.chart.variables.size(); ++i) {
            FenChartVariable const& variable = chart.chart.variables[i];
            names.append(variable.name() + QLatin1Char(':') + variable.yAxis.get() + QLatin1Char(':')
                         + QString::number(variable.count()));
        }
        return names.join(QLatin1Char(' ')).toStdString();
    }

    FenVisScene scene;
    QString error;
};

} // namespace

TEST_F(ChartBuilder, ShowsTheColumnsThatAreAskedFor)
{
    struct Row {
        char const* words;
        char const* variables; ///< name:axis:points
        char const* xTitle;
        char const* yTitle;
    };
    Row const rows[] = {
        {"", "high:y:4 low:y:4 wind:y:4", "", "high, low, wind"}, // dates along x, all numbers
        {"--y high", "high:y:4", "", "high"},
        {"--x wind --y high,low", "high:y:4 low:y:4", "wind", "high, low"},
        {"--y high --y low --y2 wind", "high:y:4 low:y:4 wind:y2:4", "", "high, low"},
        {"--y2 wind", "wind:y2:4", "", ""},
        {"--y high --group kind", "sun:y:2 rain:y:1 (none):y:1", "", "high"},
        {"--y high,low --group kind",
         "high sun:y:2 high rain:y:1 high (none):y:1 low sun:y:2 low rain:y:1 low (none):y:1", "",
         "high, low"},
        {"--x kind --y high", "high:y:4", "kind", "high"},
        {"--y high --x-title t --y-title u", "high:y:4", "t", "u"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.words);
        FenVisChart2D* const chart = build(weather(), row.words);
        ASSERT_TRUE(chart) << error.toStdString();
        EXPECT_EQ(row.variables, variables(*chart));
        EXPECT_EQ(row.xTitle, chart->chart.xAxes.first()->title.get().toStdString());
        EXPECT_EQ(row.yTitle, chart->chart.yAxes.first()->title.get().toStdString());
    }
    EXPECT_EQ("a,b:y:1 c:y:1", variables(*build(table("\"a,b\",c\n1,2\n"), "--y a,b --y c")));
}

TEST_F(ChartBuilder, SharesColumnsAndSplitsGroupsByRow)
{
    FenDataTable const from = weather();
    FenVisChart2D* chart = build(from, "--y low");
    EXPECT_EQ(from.column(0).values->data(), chart->chart.variables[0].data(Vector3::CompX).data());
    EXPECT_EQ(from.column(2).values->data(), chart->chart.variables[0].data(Vector3::CompY).data());
    chart = build(from, "--x high --y wind --group kind");
    EXPECT_EQ((std::vector<double>{10, 12}), chart->chart.variables[0].data(Vector3::CompX));
    EXPECT_EQ((std::vector<double>{3, 5}), chart->chart.variables[0].data(Vector3::CompY));
}

TEST_F(ChartBuilder, PointsOfOneRowAreKnownInEveryVariable)
{
    FenDataTable const from = weather();
    FenVisChart2D* const whole = build(from, "--y low");
    FenVisChart2D* const groups = build(from, "--y wind --group kind");
    auto const row = [&](FenVisChart2D* chart, unsigned variable, std::size_t point) {
        return scene.tableRows().row(&chart->chart.variables[variable], point);
    };
    EXPECT_EQ(2U, row(whole, 0, 2)->row);
    EXPECT_EQ(row(whole, 0, 2), row(groups, 0, 1)) << "the second day of sun is the third day";
    EXPECT_EQ(from.id(), row(groups, 1, 0)->table);
    EXPECT_FALSE(row(groups, 1, 7));
    FenChartVariable const stranger(scene.group());
    EXPECT_FALSE(scene.tableRows().row(&stranger, 0));
}

TEST_F(ChartBuilder, ChoosesAxesThatFitTheColumns)
{
    auto const* dates = dynamic_cast<FenChartAxisContinuous*>(build(weather(), "")->chart.xAxes.first());
    ASSERT_TRUE(dates);
    EXPECT_EQ(QStringLiteral("date"), dates->format.get());
    auto const* texts =
        dynamic_cast<FenChartAxisDiscrete*>(build(weather(), "--x kind --y high")->chart.xAxes.first());
    ASSERT_TRUE(texts);
    EXPECT_EQ(QStringList({QStringLiteral("sun"), QStringLiteral("rain")}), texts->labels.get());
    FenVisChart2D* const chart =
        build(weather(), "--x wind --y high --log x,y --x-range 1,10 --y-range 2012-01-01,2012-01-02");
    auto const* x = dynamic_cast<FenChartAxisContinuous*>(chart->chart.xAxes.first());
    auto const* y = dynamic_cast<FenChartAxisContinuous*>(chart->chart.yAxes.first());
    EXPECT_TRUE(x->logarithmic.get() && y->logarithmic.get());
    EXPECT_FALSE(x->autoRange.get());
    EXPECT_EQ(10, x->max.get());
    EXPECT_EQ(1325376000, y->min.get());
}

TEST_F(ChartBuilder, KeepsPointsWithoutALineVisibleAndBarsSolid)
{
    FenChartVariable const& points =
        build(weather(), "--y high --style none --symbol star")->chart.variables[0];
    EXPECT_EQ(FenChart::styleLine, points.style.get());
    EXPECT_EQ(FenChart::lineNone, points.lineMode.get());
    EXPECT_EQ(FenChart::symbolEllipse, build(table("a\n1\n"), "")->chart.variables[0].symbol.get());
    FenChartVariable const& bars = build(weather(), "--style bar")->chart.variables[0];
    EXPECT_EQ(FenChart::fillSolid, bars.fillMode.get());
    EXPECT_EQ(FenChart::lineNone, bars.lineMode.get()); // outlines would join neighbours
    EXPECT_EQ(FenChart::fillNone,
              build(weather(), "--style bar --fill none")->chart.variables[0].fillMode.get());
}

TEST_F(ChartBuilder, AddsALegendWhenThereIsSomethingToTellApart)
{
    for (char const* words : {"--y high,low", "--y high --legend"}) {
        FenVisChart2D* const chart = build(weather(), words);
        auto const* last = dynamic_cast<FenVisLegend*>(scene.root().back());
        ASSERT_TRUE(last) << words;
        EXPECT_EQ(chart->name(), last->legend.chart.get());
    }
    for (char const* words : {"--y high", "--y high,low --no-legend"}) {
        FenVisChart2D const* const chart = build(weather(), words);
        EXPECT_EQ(chart, scene.root().back()) << words;
    }
}

TEST_F(ChartBuilder, SaysWhatDoesNotFitAndAddsNothing)
{
    struct Row {
        char const* words;
        char const* error;
    };
    Row const rows[] = {
        {"--x foo", "no column \"foo\"; there are: date, high, low, wind, kind"},
        {"--y kind", "column \"kind\" holds texts, not numbers"},
        {"--y2 date", "column \"date\" holds dates, not numbers"},
        {"--group wind", "column \"wind\" holds numbers; groups are made of texts"},
        {"--log x", "column \"date\" holds dates, which have no logarithm"},
        {"--style curve", "--style \"curve\": expected one of: none, line, spline, step, bar, surface"},
        {"--log z", "--log \"z\": expected one of: x, y, x,y"},
        {"--line-width 1e9", "--line-width \"1e9\": expected a number from 0.1 to 64"},
        {"--symbol-size nan", "--symbol-size \"nan\": expected a number from 1 to 64"},
        {"--x-range 2,1", "--x-range \"2,1\": expected a range such as 0,10 or 2012-01-01,2012-06-30"},
        {"--x-range 1,inf", "--x-range \"1,inf\": expected a range such as 0,10 or 2012-01-01,2012-06-30"},
    };
    for (Row const& row : rows) {
        EXPECT_FALSE(build(weather(), row.words)) << row.words;
        EXPECT_EQ(row.error, error.toStdString());
    }
    EXPECT_FALSE(build(table("a,b\nx,y\n"), ""));
    EXPECT_EQ("no column of numbers to show", error.toStdString());
    EXPECT_EQ(0U, scene.root().size());
}

TEST_F(ChartBuilder, RefusesMoreVariablesThanAChartCanShow)
{
    std::string text = "v,g\n";
    for (int i = 0; i < 10'001; ++i) text += std::to_string(i) + ",g" + std::to_string(i) + '\n';
    EXPECT_FALSE(build(table(text), "--group g"));
    EXPECT_EQ("10001 variables are more than a chart can show (10000)", error.toStdString());
}

TEST(Theme, ColoursOfVariablesDifferFromEachOtherAndTheGround)
{
    for (FenTheme const* theme : {&FenTheme::light(), &FenTheme::dark()}) {
        std::set<QRgb> colors{theme->background.rgb()};
        unsigned const count = 3 * unsigned(theme->palette.size());
        for (unsigned i = 0; i < count; ++i) colors.insert(theme->color(i).rgb());
        EXPECT_EQ(count + 1, colors.size()) << theme->name.toStdString();
        EXPECT_EQ(theme, FenTheme::find(theme->name));
    }
    EXPECT_FALSE(FenTheme::find(QStringLiteral("blue")));
}
