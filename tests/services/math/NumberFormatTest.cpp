#include "services/math/NumberFormat.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <string>

using Kes::Math::NumberFormat;

TEST(NumberFormat, PrintsAsTold)
{
    double const infinity = std::numeric_limits<double>::infinity();
    struct Row {
        NumberFormat format;
        double value;
        char const* text;
    };
    Row const rows[] = {
        {{}, 0.1, "0.1"},
        {{}, 1e6, "1e+06"},
        {{}, 123456.7, "123457"},
        {{}, -0.0, "0"},
        {{}, std::nan(""), "nan"},
        {{}, -std::nan(""), "nan"},
        {{}, -infinity, "-inf"},
        {{'f', ',', 2}, -1234.567, "-1234,57"},
        {{'f', '.', 2}, -0.001, "0.00"},
        {{'e', ',', 3}, 12345.678, "1,235e+04"},
        {{'E', '.', 0}, 12345.678, "1E+04"},
        {{'G', '.', 3}, infinity, "INF"},
        {{'?', '\0', -1}, 1.5, "1.5"},
        {{'g', '.', 0}, 19.0, "2e+01"},
    };
    for (Row const& row : rows) EXPECT_EQ(row.text, row.format.format(row.value));
    EXPECT_EQ(size_t(309 + 1 + 99), NumberFormat('f', '.', 1000).format(1e308).size());
}

TEST(NumberFormat, KnowsNoLocale)
{
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Comma));
    EXPECT_EQ("12345.6", NumberFormat().format(12345.6));
    std::locale::global(before);
}

TEST(NumberFormat, TheShortestTextReadsBackExactly)
{
    EXPECT_EQ("0.1", Kes::Math::shortestText(0.1));
    EXPECT_EQ("0.1", Kes::Math::shortestText(0.1f));
    std::mt19937_64 random(1);
    for (int i = 0; i < 10000; ++i) {
        double const value = std::ldexp(double(random()), int(random() % 2000) - 1050);
        EXPECT_EQ(value, std::stod(Kes::Math::shortestText(value)));
    }
}
