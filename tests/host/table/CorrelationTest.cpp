#include "host/table/Correlation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

using fen::CorrelationMethod;

namespace {

typedef std::vector<std::vector<double>> Columns;

double const missing = std::nan("");

double coefficient(std::vector<double> const& a, std::vector<double> const& b, CorrelationMethod method)
{
    auto const matrix = fen::correlationMatrix({a, b}, method);
    EXPECT_TRUE(matrix[1] == matrix[2] || (std::isnan(matrix[1]) && std::isnan(matrix[2])));
    return matrix[1];
}

} // namespace

TEST(Correlation, OfKnownData)
{
    double const inf = std::numeric_limits<double>::infinity();
    double const most = std::numeric_limits<double>::max();
    std::vector<double> const anscombeX{10, 8, 13, 9, 11, 14, 6, 4, 12, 7, 5};
    std::vector<double> const anscombe1{8.04, 6.95, 7.58, 8.81, 8.33, 9.96, 7.24, 4.26, 10.84, 4.82, 5.68};
    std::vector<double> const anscombe2{9.14, 8.14, 8.74, 8.77, 9.26, 8.10, 6.13, 3.10, 9.13, 7.26, 4.74};
    struct {
        char const* what;
        std::vector<double> a, b;
        double pearson, spearman;
    } const rows[] = {
        {"Anscombe 1", anscombeX, anscombe1, 0.81642051634484, 0.818181818181818},
        {"Anscombe 2", anscombeX, anscombe2, 0.81623650600024, 0.690909090909091},
        {"falling", {1, 2, 3}, {9, 4, 1}, -0.989743318610787, -1},
        {"equal ranks", {1, 2, 2, 3}, {1, 3, 2, 4}, 0.948683298050514, 0.948683298050514},
        {"some missing", {1, missing, 2, 3, 4}, {1, 5, 4, inf, 3}, 0.5, 0.5},
        {"constant", {0.1, 0.1, 0.1}, {1, 2, 3}, missing, missing},
        {"one common row", {1, missing, 3}, {missing, 2, 5}, missing, missing},
        {"all missing", {missing, missing}, {missing, missing}, missing, missing},
        {"nothing", {}, {}, missing, missing},
        {"huge", {-most, 0, most}, {1, 2, 3}, 1, 1},
        {"far from 0", {1e15, 1e15 + 1, 1e15 + 2}, {3, 2, 1}, -1, -1},
    };
    for (auto const& row : rows) {
        double const got[] = {coefficient(row.a, row.b, CorrelationMethod::Pearson),
                              coefficient(row.a, row.b, CorrelationMethod::Spearman)};
        double const expected[] = {row.pearson, row.spearman};
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(std::isnan(expected[i]), std::isnan(got[i])) << row.what;
            if (std::isnan(expected[i])) continue;
            EXPECT_NEAR(expected[i], got[i], 1e-12) << row.what;
        }
    }
    EXPECT_TRUE(fen::correlationMatrix({}, CorrelationMethod::Pearson).empty());
}

TEST(Correlation, OfManyColumnsIsThatOfEachPair)
{
    std::mt19937 random(1);
    Columns columns(11, std::vector<double>(1300)); // panels and blocks that are not full
    for (auto& column : columns)
        for (double& value : column) value = double(random() % 1000);
    for (std::size_t i = 1; i < 1300; i += 7) columns[3][i] = columns[8][i / 2] = missing;
    std::vector<std::span<double const>> const views(columns.begin(), columns.end());
    for (CorrelationMethod const method : {CorrelationMethod::Pearson, CorrelationMethod::Spearman}) {
        auto const matrix = fen::correlationMatrix(views, method);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            EXPECT_NEAR(1, matrix[i * 11 + i], 1e-12);
            for (std::size_t k = 0; k < i; ++k) {
                std::vector<double> a, b;
                for (std::size_t row = 0; row < 1300; ++row)
                    if (!std::isnan(columns[i][row] + columns[k][row]))
                        a.push_back(columns[i][row]), b.push_back(columns[k][row]);
                EXPECT_NEAR(coefficient(a, b, method), matrix[i * 11 + k], 1e-12);
            }
        }
    }
}

TEST(Correlation, ClustersBringSimilarVariablesTogether)
{
    // Variables of the same parity belong together; 4 is not defined.
    std::vector<double> matrix(49);
    for (std::size_t i = 0; i < 7; ++i)
        for (std::size_t k = 0; k < 7; ++k)
            matrix[i * 7 + k] = i == 4 || k == 4 ? missing : i == k ? 1 : i % 2 == k % 2 ? 0.8 : -0.7;
    auto order = fen::clusterOrder(matrix, 7);
    ASSERT_EQ(7u, order.size());
    std::erase(order, 4u);
    auto const odd = [](std::size_t i) { return i % 2 == 1; };
    EXPECT_TRUE(std::ranges::is_partitioned(order, odd)
                || std::ranges::is_partitioned(order, std::not_fn(odd)));
    std::ranges::sort(order);
    EXPECT_EQ((std::vector<std::size_t>{0, 1, 2, 3, 5, 6}), order);
    EXPECT_EQ(std::vector<std::size_t>{0}, fen::clusterOrder({1}, 1));
    EXPECT_TRUE(fen::clusterOrder({}, 0).empty());
}
