#include "charts/correlation/VisChartCorrelation.h"

#include "charts/legend/VisLegend.h"
#include "host/scene/Scene.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitRecordList.h"
#include "services/chartdata/ChartVariable.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/SceneBuilder.h"

#include <cmath>

using Kes::Math::Vector3;

namespace {

class VisChartCorrelation : public OffscreenGlTest {
protected:
    VisChartCorrelation()
        : chart(scene.add<FenVisChartCorrelation>("matrix"))
    {
        scene.background.set(Qt::white);
        chart.lineColor.set(Qt::transparent); // no frame where the node is smaller than the picture
        chart.chart.bins.set({-1, 0, 1});
        chart.chart.colors.set({Qt::blue, Qt::red});
    }
    void rows(std::vector<std::vector<double>> const& matrix)
    {
        for (auto const& row : matrix) chart.chart.variables.append("v").setData(Vector3::CompY, row);
    }
    Picture draw()
    {
        scene.resize(QSize(400, 300));
        scene.update();
        scene.draw();
        return picture();
    }
    /// "(row, column)" of the cell at a point, "nothing", and what it says.
    QString cellAt(QPoint const& point)
    {
        FenVisPick const pick = scene.pick(point, QSize(3, 3));
        QString tooltip;
        if (auto const handler = pick.handler.lock())
            handler->OnMouseOver(pick.record, FenStringBuilder(), tooltip);
        QString const what = pick.property.qualifier ? pick.property.qualifier->toString() : "nothing";
        return QString("%1 %2 %3").arg(pick.record.context()).arg(what, tooltip);
    }

    FenVisScene scene;
    FenVisChartCorrelation& chart;
};

} // namespace

TEST_F(VisChartCorrelation, ShowsEachCellInTheColourOfItsBinAndPicksIt)
{
    rows({{1, -0.5, 0.25}, {-0.5, 1, std::nan("")}, {0.25, std::nan(""), 1}});
    Picture const drawn = draw();
    EXPECT_EQ(QRect(), drawn.copy(QRect(0, 0, 400, 5)).boundingBox());
    // 3 x 3 cells of 112 x 56 px, names of one letter.
    QRect const cells = [&] {
        QRect box;
        for (int y = 0; y < 300; ++y)
            for (int x = 0; x < 400; ++x)
                if (drawn.is(x, y, Qt::red) || drawn.is(x, y, Qt::blue)) box |= QRect(x, y, 1, 1);
        return box;
    }();
    QSize const cell = cells.size() / 3;
    EXPECT_EQ(cells.size(), cell * 3);
    struct {
        int row, column;
        QColor color;
        char const* pick;
    } const rows[] = {
        {0, 0, Qt::red, "1 vector2(0,0) 1"},    {0, 1, Qt::blue, "2 vector2(0,1) -0.5"},
        {2, 0, Qt::red, "7 vector2(2,0) 0.25"}, {1, 2, Qt::white, "6 vector2(1,2) nan"},
        {2, 2, Qt::red, "9 vector2(2,2) 1"},
    };
    for (auto const& row : rows) {
        QPoint const at =
            cells.topLeft() + QPoint(row.column * cell.width() + 5, row.row * cell.height() + 5);
        EXPECT_TRUE(drawn.is(at.x(), at.y(), row.color)) << row.pick;
        EXPECT_EQ(row.pick, cellAt(QPoint(at.x(), 299 - at.y())).toStdString());
    }
    EXPECT_EQ(0u, scene.select(QPoint(2, 2), QSize(3, 3)).size());
    EXPECT_LT(0, draw().differingPixels(drawn)) << "the last cell is framed";
}

TEST_F(VisChartCorrelation, DrawsNothingThatMakesNoSense)
{
    std::vector<std::vector<double>> const good{{1, 0}, {0, 1}};
    std::pair<char const*, std::function<void(FenVisChartCorrelation&)>> const rows[] = {
        {"one edge", [](auto& node) { node.chart.bins.set({1}); }},
        {"edges that fall",
         [](auto& node) {
             node.chart.bins.set({1, 0, 2});
         }},
        {"a short row", [](auto& node) { node.chart.variables[0].setData(Vector3::CompY, {1}); }},
        {"no row", [](auto& node) { node.chart.variables[0].setData(Vector3::CompY, {}); }},
        {"no place", [](auto& node) { node.viewport.width.set(20); }},
    };
    this->rows(good);
    EXPECT_FALSE(draw().boundingBox().isNull());
    for (auto const& [what, spoil] : rows) {
        FenVisChartCorrelation const before(chart);
        spoil(chart);
        EXPECT_TRUE(draw().boundingBox().isNull()) << what;
        EXPECT_FALSE(scene.pick(QPoint(200, 150), QSize(3, 3))) << what;
        chart.chart = before.chart;
        chart.viewport = before.viewport;
    }
    EXPECT_FALSE(draw().boundingBox().isNull());
}

TEST_F(VisChartCorrelation, LeavesOutHiddenVariablesAndListsItsBins)
{
    rows({{1, -1, 1}, {-1, 1, -1}, {1, -1, 1}});
    chart.chart.variables[1].visible.set(false);
    FenVisLegend& legend = scene.add<FenVisLegend>("legend");
    legend.legend.chart.set("matrix");
    Picture const drawn = draw();
    EXPECT_EQ(1, chart.value(1, 0));
    EXPECT_TRUE(std::isnan(chart.value(2, 0)));
    EXPECT_TRUE(legend.box().valid());
    EXPECT_LT(0, drawn.count(Qt::blue)) << "in the legend alone";
}
