#include "charts/correlation/CorrelationLayout.h"
#include "charts/correlation/CorrelationBins.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(CorrelationBins, TakeValuesUpToTheirUpperEdge)
{
    double const nan = std::nan("");
    struct {
        std::vector<double> edges;
        unsigned count;
        double value;
        unsigned bin;
    } const rows[] = {
        {{0, 0.5, 1}, 2, 0.7, 1},
        {{0, 0.5, 1}, 2, 0.5, 0},
        {{0, 0.5, 1}, 2, -3, 0},
        {{0, 0.5, 1}, 2, 9, 1},
        {{-1, -0.5, 0.5, 1}, 3, 0, 1},
        {{-1, 0, 1}, 2, nan, 1},
        {{0, 1}, 1, 0.5, 0},
        {{0}, 0, 0.5, 0},
        {{}, 0, 0.5, 0},
        {{0, 1, 1}, 0, 0.5, 0},
        {{0, 2, 1}, 0, 5, 0},
        {{0, nan, 1}, 0, 0.5, 0},
    };
    for (auto const& row : rows) {
        fen::CorrelationBins const bins(row.edges);
        EXPECT_EQ(row.count, bins.count());
        EXPECT_EQ(row.bin, bins.bin(row.value)) << row.value;
    }
}

TEST(CorrelationLayout, FitsTheCellsIntoWhatTheNamesLeave)
{
    // Lines of 13 px: a padding of 4 and a margin of 14.
    struct {
        char const* what;
        int variables;
        QSize data;
        int names;
        QSize cell;
        bool numbers;
    } const rows[] = {
        {"room for all", 3, {800, 600}, 40, {112, 56}, true},
        {"low", 10, {800, 300}, 40, {48, 24}, true},
        {"narrow", 10, {200, 600}, 40, {14, 14}, false},
        {"many", 300, {1266, 786}, 60, {3, 2}, false},
        {"one pixel each", 100, {154, 154}, 40, {1, 1}, false},
        {"too many", 101, {154, 154}, 40, {0, 0}, false},
        {"none", 0, {800, 600}, 40, {0, 0}, false},
        {"no rectangle", 3, {0, 0}, 0, {0, 0}, false},
    };
    for (auto const& row : rows) {
        FenOglViewport const data(7, 9, row.data.width(), row.data.height());
        fen::CorrelationLayout const layout(data, row.variables, {13, row.names, 28});
        EXPECT_EQ(row.cell.isNull(), !layout.matrix.valid()) << row.what;
        EXPECT_EQ(row.numbers, layout.numbersFit) << row.what;
        if (!layout.matrix.valid()) continue;
        EXPECT_EQ(row.cell, layout.cell) << row.what;
        EXPECT_EQ(row.cell * row.variables, layout.matrix.size()) << row.what;
        EXPECT_GE(layout.matrix.x(), data.x() + row.names + 5) << row.what;
        EXPECT_LE(layout.matrix.x() + layout.matrix.width(), data.x() + data.width()) << row.what;
        EXPECT_LE(layout.matrix.y() + layout.matrix.height() + row.names + 5, data.y() + data.height())
            << row.what;
        // Every cell is where its middle is found, and points outside count to the cells at the rim.
        for (int i = 0; i < row.variables; ++i) {
            FenOglViewport const cell = layout.cellRectangle(i, row.variables - 1 - i);
            QPoint const middle = cell.origin() + QPoint(cell.width() / 2, cell.height() / 2);
            EXPECT_EQ(QPoint(row.variables - 1 - i, i), layout.cellAt(middle)) << row.what;
        }
        EXPECT_EQ(QPoint(0, row.variables - 1), layout.cellAt(QPoint(-100, -100)));
    }
}
