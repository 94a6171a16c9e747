#include "host/link/LinkedSelection.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/parallel/VisChartPCP.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"
#include "host/table/DataTable.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/chartdata/ChartVariable.h"
#include "tests/support/OffscreenGlTest.h"

#include <boost/make_shared.hpp>

/// Parallel coordinates at the left, a scatter chart in groups at the right, of one table of six rows.
class LinkedSelectionGlTest : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        QString error;
        ASSERT_TRUE(FenDataTable::parse("kind,x,y\na,1,1\nb,2,5\na,3,2\nb,4,4\na,5,3\nb,6,6\n", "t.csv",
                                        table, error));
        FenChartOptions options;
        options.kind = "parallel";
        parallel = dynamic_cast<FenVisChartPCP*>(add(table, options, "bottomLeft"));
        options.kind = "2d";
        options.x = "x";
        options.y = QStringList("y");
        options.group = "kind";
        options.style = "none";
        options.symbol = "ellipse";
        scatter = dynamic_cast<FenVisChart2D*>(add(table, options, "bottomRight"));
        ASSERT_TRUE(parallel && scatter);
        scene.resize(QSize(400, 300));
    }
    FenVisChart* add(FenDataTable const& from, FenChartOptions const& options, char const* corner)
    {
        QString error;
        FenVisChart* const chart = fen::addChart(scene, from, options, FenTheme::light(), error);
        if (!chart) return nullptr;
        chart->viewport.placement.set(corner);
        chart->viewport.width.set(0.5);
        return chart;
    }
    Picture draw()
    {
        clear();
        scene.update();
        scene.draw();
        return picture();
    }
    static FenVisHitProperty point(FenProperties const& owner, quint32 index)
    {
        return FenVisHitProperty(&owner, boost::make_shared<FenVisHitDataPointQualifier>(index));
    }

    FenVisScene scene;
    FenDataTable table;
    FenVisChartPCP* parallel = nullptr;
    FenVisChart2D* scatter = nullptr;
};

TEST_F(LinkedSelectionGlTest, ARowThatIsHoveredGlowsInTheOtherChartsOfItsTable)
{
    Picture const before = draw();
    QRect const right(200, 0, 200, 300), left(0, 0, 200, 300);
    auto const changed = [&](QRect const& part) {
        return draw().copy(part).differingPixels(before.copy(part));
    };
    FenLinkedSelection& links = scene.links();
    EXPECT_TRUE(links.hover(point(parallel->chart, 3), parallel));
    EXPECT_EQ(3u, links.row()->row);
    EXPECT_GT(changed(right), 20) << "the second point of group b";
    EXPECT_EQ(0, changed(left)) << "the source shows its hit itself";
    EXPECT_FALSE(links.hover(point(parallel->chart, 3), parallel)) << "the same again";
    EXPECT_TRUE(links.hover(point(scatter->chart.variables[1], 1), scatter));
    EXPECT_EQ(3u, links.row()->row) << "the same row from the other side";
    EXPECT_GT(changed(left), 20);
    EXPECT_TRUE(links.hover(FenVisHitProperty(&scatter->chart), scatter));
    EXPECT_FALSE(links.row());
    links.setEnabled(false);
    EXPECT_FALSE(links.hover(point(parallel->chart, 3), parallel));
}

TEST_F(LinkedSelectionGlTest, AnotherTableIsLeftAloneAndChartsMayGo)
{
    FenDataTable other;
    QString error;
    ASSERT_TRUE(FenDataTable::parse("x,y\n1,1\n2,5\n3,2\n4,1\n", "u.csv", other, error));
    FenChartOptions options;
    options.kind = "parallel";
    FenVisChart* const foreign = add(other, options, "topLeft");
    ASSERT_TRUE(foreign);
    draw();
    EXPECT_FALSE(scene.links().hover(point(*foreign->content(), 3), foreign));
    EXPECT_TRUE(scene.links().hover(point(parallel->chart, 3), parallel));
    scene.root().erase(scatter);
    EXPECT_FALSE(scene.links().hover(FenVisHitProperty(), nullptr));
    draw();
}
