#include "services/math/NumberFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <locale>
#include <string>

using Kes::Math::NumberFormat;

TEST(NumberFormat, PrintsAsToldInAnyLocale)
{
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Comma));
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
        {{}, -std::nan(""), "nan"},
        {{}, double(-INFINITY), "-inf"},
        {{'f', ',', 2}, -1234.567, "-1234,57"},
        {{'f', '.', 2}, -0.001, "0.00"},
        {{'e', ',', 3}, 12345.678, "1,235e+04"},
        {{'E', '.', 0}, 12345.678, "1E+04"},
        {{'G', '.', 3}, double(INFINITY), "INF"},
        {{'?', '\0', -1}, 1.5, "1.5"},
        {{'g', '.', 0}, 19.0, "2e+01"},
    };
    for (Row const& row : rows) EXPECT_EQ(row.text, row.format.format(row.value));
    EXPECT_EQ(size_t(309 + 1 + 99), NumberFormat('f', '.', 1000).format(1e308).size());
    std::locale::global(before);
}
