#include "scene/TextMarkup.h"

#include <gtest/gtest.h>

namespace {

/// Runs as a text: "[bi#rrggbb:characters]" each, without what does not hold.
std::string runsOf(QString const& line)
{
    QString all;
    for (fen::TextRun const& run : fen::textRuns(line))
        all += QStringLiteral("[%1%2%3:%4]")
                   .arg(run.bold ? "b" : "", run.italic ? "i" : "",
                        run.color.isValid() ? run.color.name() : "", run.text);
    return all.toStdString();
}

} // namespace

TEST(TextMarkup, TakesALineApartAtItsTags)
{
    std::pair<char const*, char const*> const rows[] = {
        {"", ""},
        {"plain", "[:plain]"},
        {"a<b>b</b>c", "[:a][b:b][:c]"},
        {"<b>x<i>y</b>z</i>w", "[b:x][bi:y][i:z][:w]"},
        {"<b>never closed", "[b:never closed]"},
        {"</b></i>x", "[:x]"},
        {"<font color=\"#ff0000\">red</font>, black", "[#ff0000:red][: black]"}, // the comma is swallowed
        {"<font color=\"#f00\">red</font>", "[#ff0000:red]"},
        {"<font color=\"#f00\"><b>x</font>yz", "[b#ff0000:x][b:z]"},
        {"<font color=\"#12345\">x", "[:x]"}, // no colour
        {"<font color=\"red\">x", "[:font color=\"red\">x]"},
        {"<font color='#f00'>x", "[:font color='#f00'>x]"},
        {"1 < 2 <B>x</B>", "[:1  2 B>x/B>]"},
        {"<<b>x", "[b:x]"},
        {"<", ""},
        {"a<font color=\"#", "[:afont color=\"#]"},
    };
    for (auto const& [line, expected] : rows) EXPECT_EQ(expected, runsOf(line)) << line;
}

TEST(TextMarkup, LongLinesTakeTimeInProportionAndEndBeyondAnyScreen)
{
    QString tags;
    for (int i = 0; i < 100000; ++i) tags += QStringLiteral("<b></b><font color=\"#f00\"></font>x<");
    EXPECT_LE(fen::textRuns(tags).size(), 4097u);
    std::vector<fen::TextRun> const runs = fen::textRuns(QString(1000000, u'x'));
    ASSERT_EQ(1u, runs.size());
    EXPECT_EQ(4097, runs[0].text.size());
    EXPECT_EQ(1u, fen::textRuns("<font color=\"#" + QString(1000000, u'f')).size());
}
