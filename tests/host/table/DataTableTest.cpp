#include "host/table/DataTable.h"

#include "host/Limits.h"
#include "host/output/MessageText.h"
#include "host/table/DateText.h"

#include <QSet>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

typedef FenDataTable::Kind Kind;

FenDataTable parsed(std::string_view text)
{
    FenDataTable table;
    QString error;
    EXPECT_TRUE(FenDataTable::parse(text, QStringLiteral("t.csv"), table, error)) << error.toStdString();
    return table;
}

/// Values of a column as one text: numbers or categories, "-" for what is missing.
std::string shown(FenDataTable const& table, std::size_t column)
{
    FenDataTable::Column const& from = table.column(column);
    QStringList texts;
    for (double const value : *from.values) {
        if (std::isnan(value))
            texts.append(QStringLiteral("-"));
        else if (from.kind == Kind::Text)
            texts.append(from.categories.value(int(value)));
        else
            texts.append(QString::number(value, 'g', 17));
    }
    return texts.join(QLatin1Char('|')).toStdString();
}

} // namespace

TEST(DataTable, ReadsWhatSpreadsheetsWrite)
{
    struct Row {
        char const* text;
        char const* name; ///< of the first column
        char const* first; ///< its values
        char const* second; ///< values of the second column
    };
    Row const rows[] = {
        {"a,b\n1,2\n3,4\n", "a", "1|3", "2|4"},
        {"a,b\n1,2\n3,4", "a", "1|3", "2|4"}, // no line end at the end
        {"\xEF\xBB\xBF"
         "a,b\r\n1,2\r\n",
         "a", "1", "2"}, // byte order mark, CRLF
        {"a,b\r1,2\r3,4\r", "a", "1|3", "2|4"}, // old line ends
        {"\n\na,b\n\n1,2\n\n\n3,4\n\n", "a", "1|3", "2|4"}, // blank lines
        {"a;b\n1,5;2\n-3,25e2;4.5\n", "a", "1.5|-325", "2|4.5"}, // decimal comma
        {"a\tb\n1\t\n\t2\n", "a", "1|-", "-|2"},
        {"\"a;b\",c\n1,2\n", "a;b", "1", "2"}, // the separator in quotes does not count
        {"\"x \"\"y\"\"\",b\n\"1\",\"p,q\nr\"\n", "x \"y\"", "1", "p,q\nr"},
        {" a , b \n 1 , 2 \n+3,-0\n", "a", "1|3", "2|0"},
        {"a,b\nNA,n\nN/A,NaN\nnull,\n7,m\n", "a", "-|-|-|7", "n|-|-|m"},
        {"a,b\ninf,1e999\n-Infinity,-1e999\n1e-999,0x10\n", "a", "inf|-inf|0", "inf|-inf|-"},
        {"a,b\n2012-01-02,5\n,6\n1970-01-01T00:00:01Z,7\n", "a", "1325462400|-|1", "5|6|7"},
        {"a,b\n1,2012-01-02\n2,later\nx,2012-01-02\n", "a", "1|2|-", "1325462400|-|1325462400"}, // one is odd
        {"a,b\nx1,y\n2,later\n3,z\ny4,u\n", "a", "x1|2|3|y4", "y|later|z|u"},
        {"a,b\n,\n,x\n", "a", "-|-", "-|x"},
        {"1,2\n3,4\n", "column 1", "1|3", "2|4"}, // no header
        {",a\n5,6\n", "column 1", "5", "6"},
        {"\xC2\xB5m,b\n\xE6\xB8\xA9,1\n", "\xC2\xB5m", "\xE6\xB8\xA9", "1"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.text);
        FenDataTable const table = parsed(row.text);
        ASSERT_EQ(2U, table.columns());
        EXPECT_EQ(row.name, table.column(0).name.toStdString());
        EXPECT_EQ(row.first, shown(table, 0));
        EXPECT_EQ(row.second, shown(table, 1));
    }
}

TEST(DataTable, FindsOutHowAColumnIsWritten)
{
    struct Row {
        char const* text;
        Kind kind; ///< of the first column
        char const* values;
        char const* unit;
        char const* zone;
    };
    Row const rows[] = {
        // numbers
        {"speed [rpm],b\n\"1,234.5\",1\n\"2,000\",2\n", Kind::Number, "1234.5|2000", "rpm", ""},
        {"speed (m/s);b\n1.234,5;1\n2;2\n", Kind::Number, "1234.5|2", "m/s", ""},
        {"price;b\n1 234,5 €;1\n2 €;2\n", Kind::Number, "1234.5|2", "€", ""},
        {"share;b\n12 %;1\n\u22123 %;2\n", Kind::Number, "12|-3", "%", ""},
        {"balance,b\n(12.5),1\n1'000,2\n", Kind::Number, "-12.5|1000", "", ""},
        {"t,b\ns,V\n1,2\n3,4\n", Kind::Number, "1|3", "s", ""}, // a row of units
        {"# made by a logger\n#a,b\n1,2\n3,4\n", Kind::Number, "1|3", "", ""},
        {"Device: 7\nStart;now\n\na;b;c\n1;2;3\n3;4;5\n", Kind::Number, "1|3", "", ""},
        {"a|b\n1|2\n# a remark\n3|4\n", Kind::Number, "1|3", "", ""},
        {"a,b\n1\n3,4,,\n", Kind::Number, "1|3", "", ""},
        // dates
        {"d,b\n2012-01-02,1\n2012-01-03 12:00,2\n", Kind::Date, "1325462400|1325592000", "", ""},
        {"d,b\n2012-01-02T00:00+02:00,1\n,2\n2012-01-03T00:00+02:00,2\n", Kind::Date,
         "1325462400|-|1325548800", "", "UTC+02:00"},
        {"d,b\n2012-01-02T00:00+02:00,1\n2012-01-03T00:00+01:00,2\n", Kind::Date, "1325455200|1325545200", "",
         "UTC"},
        {"d,b\n02.01.2012,1\n03.01.12,2\n", Kind::Date, "1325462400|1325548800", "", ""},
        {"d,b\n01/02/2012,1\n01/13/2012,2\n", Kind::Date, "1325462400|1326412800", "", ""},
        {"d,b\n02/01/2012,1\n13/01/2012,2\n", Kind::Date, "1325462400|1326412800", "", ""},
        {"d,b\n12/31/2011,1\n01/02/2012 1:30 PM,2\n", Kind::Date, "1325289600|1325511000", "", ""},
        {"d,b\n2-Jan-2012,1\n\"Jan 3, 2012\",1\n3 January 2012,2\n", Kind::Date, "1325462400|-|1325548800",
         "", ""},
        {"timestamp,b\n1325462400,1\n1325462401,2\n", Kind::Date, "1325462400|1325462401", "", "UTC"},
        {"time,b\n1325462400500,1\n1325462401000,2\n", Kind::Date, "1325462400.5|1325462401", "", "UTC"},
        {"revenue,b\n1325462400,1\n1325462401,2\n", Kind::Number, "1325462400|1325462401", "", ""},
        {"clock,b\n12:30,1\n12:30:01.5,2\n", Kind::Time, "45000|45001.5", "", ""},
        {"day,clock\n2012-01-02,12:30\n2012-01-03,00:00\n", Kind::Date, "1325507400|1325548800", "", ""},
        // kinds
        {"late,b\n,1\n,2\n2013-01-01,3\n", Kind::Date, "-|-|1356998400", "", ""},
        {"empty,b\n,1\n,2\n", Kind::Number, "-|-", "", ""},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.text);
        FenDataTable::Column const column = parsed(row.text).column(0);
        EXPECT_EQ(int(row.kind), int(column.kind));
        EXPECT_EQ(row.values, shown(parsed(row.text), 0));
        EXPECT_EQ(row.unit, column.unit.toStdString());
        EXPECT_EQ(row.zone, column.zone.toStdString());
    }
}

TEST(DataTable, FirstRowsThatMisleadAreMendedByTheRest)
{
    std::string months = "d,n\n";
    for (int i = 0; i < 2000; ++i) months += "01/02/2012,7\n";
    EXPECT_EQ("1328054400", shown(parsed(months + "25/02/2012,x\n"), 0).substr(0, 10)); // 1 February
    for (int i = 0; i < 2000; ++i) months += "02/02/2012,word\n";
    FenDataTable const table = parsed(months);
    EXPECT_EQ(Kind::Text, table.column(1).kind);
    EXPECT_EQ(QStringList({QStringLiteral("7"), QStringLiteral("word")}), table.column(1).categories);
}

TEST(DataTable, DoesWhatItIsToldAndSaysWhatItLeftOut)
{
    FenReadOptions options;
    options.delimiter = ' ';
    options.decimal = ',';
    options.dateFormat = QStringLiteral("yyyyMMdd-HH");
    options.skipRows = 1;
    options.unitsRow = true;
    options.comment = QStringLiteral("%");
    options.columns = {{QStringLiteral("id"), FenReadOptions::As::Category}};
    FenDataTable table;
    QString error;
    ASSERT_TRUE(
        FenDataTable::parse("ignored\n% this too\nd v id\n- kW -\n20120102-06 1,5 7\n20120103-00 x 7\n"
                            "20120104-00 2,5\n",
                            QStringLiteral("t.csv"), table, error, options))
        << error.toStdString();
    EXPECT_EQ("1325484000|1325548800|1325635200", shown(table, 0));
    EXPECT_EQ("1.5|-|2.5", shown(table, 1));
    EXPECT_EQ(QStringLiteral("kW"), table.column(1).unit);
    EXPECT_EQ("7|7|-", shown(table, 2));
    EXPECT_EQ(QStringList(
                  {QStringLiteral("t.csv:7: a row with fewer fields than the first row; the rest is missing"),
                   QStringLiteral("t.csv:6: column \"v\": \"x\" cannot be read; left out")}),
              table.notes());
    EXPECT_TRUE(
        parsed("a,b\n01/02/2012,1\n").notes().join(QString()).contains(QStringLiteral("--date-format")));
    EXPECT_EQ(0, parsed("speed [rpm],b\n1,2\n").find(QStringLiteral("speed [rpm]")));
    EXPECT_EQ(0, parsed("speed [rpm],b\n1,2\n").find(QStringLiteral("speed")));
}

TEST(DataTable, NamesEachColumnOnce)
{
    QStringList const names = parsed("a,a,b,a,a.2,\n1,2,3,4,5,6\n").names();
    EXPECT_EQ(6, QSet<QString>(names.begin(), names.end()).size())
        << names.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(QStringLiteral("a"), names[0]);
    EXPECT_EQ(QStringLiteral("a.2"), names[1]);
    EXPECT_EQ(QStringLiteral("column 6"), names[5]);
}

TEST(DataTable, SaysWhereAndWhatIsWrongAndKeepsTheOldTable)
{
    std::string const longField = "a,b\n1," + std::string(10'000'000, '7') + "\n";
    std::string unclosed = "a,b\n1,\"2\n";
    for (int i = 0; i < 500'000; ++i) unclosed += "3,4\n";
    std::string const manyColumns = std::string(70'000, ',') + "\n";
    struct Row {
        std::string text;
        char const* error;
    };
    Row const rows[] = {
        {"", "t.csv:1: the file is empty"},
        {"\xEF\xBB\xBF\n \n", "t.csv:1: the file is empty"},
        {"\n\na,b\n", "t.csv:3: no rows after the header"},
        {"a,b\n\"1\n\n\",2\n\n3,4,5\n",
         "t.csv:6: 3 fields, but the first row has 2"}, // lines inside quotes count
        {"a,b\n1,\"2\n3,4\n", "t.csv:2: a quoted field that begins in this row is never closed"},
        {"a,b\n1,2\"3\n", "t.csv:2: stray quote"},
        {std::string("a,b\n1,\0002\n", 9), "t.csv:2: control character 0x00: this is no text"},
        {"\x89PNG\r\n\x1A\n", "t.csv:1: this line is not UTF-8; save"},
        {"a,b\n\xC0\xAF,1\n", "t.csv:2: this line is not UTF-8"},
        {"a,b\n1,\xE6\xB8", "t.csv:2: this line is not UTF-8"},
        {"a,b\r1,2\r3,\xFF\r", "t.csv:3: this line is not UTF-8"},
        {"\xFF\xFE"
         "a\0,\0",
         "t.csv:1: this is UTF-16"},
        {longField, "t.csv:2: a field that begins in this row is longer than 1048576 bytes"},
        {unclosed,
         "t.csv:2: a field that begins in this row is longer than 1048576 bytes, or its quote is never "
         "closed"},
        {manyColumns, "t.csv:1: more than 65536 fields"},
        {"a" + std::string(1024, 'b') + ",c\n1,2\n",
         "t.csv:1: the name of column 1 is longer than 1024 characters"},
    };
    for (Row const& row : rows) {
        FenDataTable table = parsed("kept\n1\n2\n");
        QString error;
        EXPECT_FALSE(FenDataTable::parse(row.text, QStringLiteral("t.csv"), table, error)) << row.error;
        EXPECT_TRUE(error.startsWith(QString::fromUtf8(row.error))) << error.toStdString();
        EXPECT_EQ(2U, table.rows());
    }
}

TEST(DataTable, TakesWhatTheLimitsJustAllow)
{
    std::string const field(std::size_t(fen::limits::csvFieldBytes), 'x');
    EXPECT_EQ(1, parsed("a,b\n1," + field + "\n").column(1).categories.size());
    std::string const columns(std::size_t(fen::limits::csvColumns) - 1, ',');
    EXPECT_EQ(std::size_t(fen::limits::csvColumns), parsed(columns + "\n1" + columns + "\n").columns());
}

TEST(DataTable, EscapesWhatCouldMislead)
{
    FenDataTable table;
    QString error;
    FenDataTable::parse("", QStringLiteral("a\x1b[31m\u202Eb.csv"), table, error);
    EXPECT_EQ(QStringLiteral("a\\u{1b}[31m\\u{202e}b.csv:1: the file is empty"), error);
    QString const told = fen::messageText(QStringLiteral("\u2028\u2029\u00e9 \U0001F600\U000E0041"));
    EXPECT_EQ(QStringLiteral("\\u{2028}\\u{2029}\u00e9 \U0001F600\\u{e0041}"), told);
}

TEST(DataTable, AppendsColumnsOfItsLengthOnly)
{
    FenDataTable table;
    EXPECT_TRUE(table.append(QStringLiteral("a"), Kind::Number, {1, 2}));
    EXPECT_FALSE(table.append(QStringLiteral("a"), Kind::Number, {1, 2}));
    EXPECT_FALSE(table.append(QStringLiteral("b"), Kind::Number, {1}));
    EXPECT_TRUE(table.append(QStringLiteral("b"), Kind::Date, {3, 4}));
    EXPECT_EQ(1, table.find(QStringLiteral("b")));
    EXPECT_EQ(-1, table.find(QStringLiteral("c")));
}

TEST(DateText, ReadsIsoDatesAndNothingElse)
{
    struct Row {
        char const* text;
        double seconds; ///< NaN: no date
    };
    double const none = std::nan("");
    Row const rows[] = {
        {"1970-01-01", 0},
        {"1969-12-31T23:59:59", -1},
        {"2000-02-29", 951782400},
        {"1900-02-29", none},
        {"2012-04", 1333238400},
        {"2012-04-15T14:30", 1334500200},
        {"2012-04-15 14:30:05.25Z", 1334500205.25},
        {"2012-04-15T14:30:05+02:00", 1334493005},
        {"2012-04-15T14:30:05-0930", 1334534405},
        {"0001-01-01", -62135596800},
        {"9999-12-31", 253402214400},
        {"2012-13-01", none},
        {"2012", none},
        {"2012-04-", none},
        {"2012-04-15T24:00", none},
        {"2012-04-15T12:00:00.", none},
        {"2012-04-15x", none},
        {"2012-04-15T4:30", 1334464200},
        {"", none},
    };
    for (Row const& row : rows) {
        double const seconds = fen::secondsFromIsoDate(row.text).value_or(none);
        if (std::isnan(row.seconds))
            EXPECT_TRUE(std::isnan(seconds)) << row.text;
        else
            EXPECT_DOUBLE_EQ(row.seconds, seconds) << row.text;
    }
}
