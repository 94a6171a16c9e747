#include "host/table/DataTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace {

/// A field of random text in quotes, doubled where needed.
std::string inQuotes(std::string const& text)
{
    std::string field = "\"";
    for (char const c : text) field += c == '"' ? std::string("\"\"") : std::string(1, c);
    return field + '"';
}

} // namespace

TEST(DataTableFuzz, AnyBytesGiveATableOrOneMessage)
{
    std::minstd_rand random(7);
    std::string const pieces =
        std::string("\",;,\n\t\r\n1,-2.5e3,2012-01-01\nNA,x\xC3\xA9 inf,\n7,\xEF\xBB\xBF\xFF") + '\0';
    int tables = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto i = random() % 40; i > 0; --i)
            text += pieces.substr(random() % pieces.size(), 1 + random() % 3);
        FenDataTable table;
        QString error;
        if (FenDataTable::parse(text, QStringLiteral("f"), table, error)) {
            ++tables;
            ASSERT_GT(table.rows(), 0U);
            for (std::size_t i = 0; i < table.columns(); ++i) {
                FenDataTable::Column const& column = table.column(i);
                ASSERT_EQ(table.rows(), column.values->size());
                for (double const value : *column.values)
                    ASSERT_TRUE(column.categories.isEmpty() || std::isnan(value)
                                || value < double(column.categories.size()));
            }
        } else {
            ASSERT_TRUE(error.startsWith(QStringLiteral("f:"))) << error.toStdString();
        }
    }
    EXPECT_GT(tables, 200); // the loop reaches both ends
}

TEST(DataTableFuzz, QuotedTextsAndNumbersComeBackAsTheyWere)
{
    std::minstd_rand random(8);
    char const characters[] = "ab \",;\n\r'0";
    std::uniform_real_distribution<double> exponents(-300, 300);
    for (int round = 0; round < 500; ++round) {
        std::string text = "t,n\n";
        QStringList texts;
        std::vector<double> numbers;
        for (int row = 0; row < 20; ++row) {
            std::string own = std::to_string(row) + '_';
            for (auto i = random() % 8; i > 0; --i) own += characters[random() % (std::size(characters) - 1)];
            own += '.';
            texts.append(QString::fromStdString(own));
            numbers.push_back(std::pow(10.0, exponents(random)));
            text += inQuotes(own) + ',' + QString::number(numbers.back(), 'g', 17).toStdString() + '\n';
        }
        FenDataTable table;
        QString error;
        ASSERT_TRUE(FenDataTable::parse(text, QStringLiteral("f"), table, error)) << error.toStdString();
        ASSERT_EQ(texts, table.column(0).categories);
        ASSERT_EQ(numbers, *table.column(1).values);
    }
}
