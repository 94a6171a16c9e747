#include "services/chartdata/DateTicks.h"

#include "tests/services/chartdata/ChartDataBuilder.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace {

double seconds(char const* iso) { return double(QDateTime::fromString(iso, Qt::ISODate).toSecsSinceEpoch()); }

QStringList labels(std::vector<fen::DateTick> const& ticks)
{
    QStringList texts;
    for (fen::DateTick const& tick : ticks) texts += tick.label;
    return texts;
}

} // namespace

TEST(DateTicks, FallOnCalendarStepsWithUnambiguousLabels)
{
    struct {
        char const *from, *to;
        unsigned divisions;
        QStringList labels;
    } const rows[] = {
        {"1999-06-01T00:00:00Z", "2004-06-01T00:00:00Z", 5, {"2000", "2001", "2002", "2003", "2004"}},
        {"1890-06-01T00:00:00Z", "1975-06-01T00:00:00Z", 4, {"1900", "1920", "1940", "1960"}},
        {"2012-10-20T00:00:00Z",
         "2013-05-10T00:00:00Z",
         7,
         {"Nov 2012", "Dec", "Jan 2013", "Feb", "Mar", "Apr", "May"}},
        {"2012-02-10T00:00:00Z", "2013-03-10T00:00:00Z", 4, {"Apr 2012", "Jul", "Oct", "Jan 2013"}},
        {"2012-12-27T12:00:00Z",
         "2013-01-03T12:00:00Z",
         7,
         {"28 Dec 2012", "29 Dec", "30 Dec", "31 Dec", "1 Jan 2013", "2 Jan", "3 Jan"}},
        {"2012-02-20T12:00:00Z",
         "2012-03-06T12:00:00Z",
         7,
         {"21 Feb 2012", "23 Feb", "25 Feb", "27 Feb", "1 Mar", "3 Mar", "5 Mar"}}, // no 29 Feb beside 1 Mar
        {"2012-04-15T19:00:00Z",
         "2012-04-16T07:00:00Z",
         4,
         {"15 Apr 2012 21:00", "16 Apr", "03:00", "06:00"}},
        {"2012-04-15T14:22:00Z",
         "2012-04-15T14:52:00Z",
         6,
         {"15 Apr 2012 14:25", "14:30", "14:35", "14:40", "14:45", "14:50"}},
        {"2012-04-15T23:59:50Z", "2012-04-16T00:00:12Z", 2, {"15 Apr 2012 23:59:50", "16 Apr", "00:00:10"}},
        {"1969-12-31T23:00:00Z", "1970-01-01T01:00:00Z", 2, {"31 Dec 1969 23:00", "1 Jan 1970", "01:00"}},
    };
    for (auto const& row : rows) {
        double const from = seconds(row.from), to = seconds(row.to);
        std::vector<fen::DateTick> const ticks = fen::dateTicks(from, to, row.divisions);
        EXPECT_EQ(labels(ticks), row.labels);
        for (std::size_t i = 0; i < ticks.size(); ++i) {
            EXPECT_GE(ticks[i].seconds, i == 0 ? from : ticks[i - 1].seconds + 1);
            EXPECT_LE(ticks[i].seconds, to);
        }
    }
}

TEST(DateTicks, ReachDownToPartsOfASecond)
{
    double const at = seconds("2012-04-15T14:30:05Z");
    EXPECT_EQ(labels(fen::dateTicks(at - 0.01, at + 1.01, 4)),
              QStringList({"15 Apr 2012 14:30:05.0", "14:30:05.5", "14:30:06.0"}));
    EXPECT_EQ(labels(fen::dateTicks(at + 0.0009, at + 0.0021, 1)),
              QStringList({"15 Apr 2012 14:30:05.001", "14:30:05.002"}));
}

TEST(DateTicks, LeaveWhatNoCalendarHoldsToNumbers)
{
    for (auto const& [min, max] :
         {std::pair(0.0, 1e12), {-1e300, 0.0}, {1e9, 1e9 + 1e-7}, {5.0, 5.0}, {NAN, 1.0}})
        EXPECT_TRUE(fen::dateTicks(min, max, 5).empty()) << min;
    ChartDataBuilder builder({0, 1e12});
    builder.y().format.set("date");
    builder.y().unit.set("s");
    builder.y().factor.set(10);
    EXPECT_EQ(ChartDataBuilder::labels(builder.yScale(3)), QStringList({"0", "5e11", "1e12"}));
    EXPECT_EQ(builder.y().shownUnit(), "");
    EXPECT_EQ(builder.y().shownFactor(), 1);
    builder.y().logarithmic.set(true); // has no meaning for dates
    EXPECT_FALSE(builder.yScale().logarithmic());
}
