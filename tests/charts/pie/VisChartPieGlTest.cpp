#include "charts/pie/VisChartPie.h"

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

class VisChartPie : public OffscreenGlTest {
protected:
    VisChartPie()
        : chart(scene.add<FenVisChartPie>("pie"))
    {
        scene.background.set(Qt::white);
    }
    FenChartVariable& slice(QString const& name, double value, QColor const& color, int ring = 0)
    {
        FenChartVariable& variable = chart.chart.variables.append(name);
        variable.setData(Vector3::CompY, {value});
        variable.fillMode.set(FenChart::fillSolid);
        variable.fillColor.set(color);
        variable.lineMode.set(FenChart::lineNone);
        variable.ring.set(ring);
        return variable;
    }
    Picture draw()
    {
        scene.resize(QSize(400, 300));
        scene.update();
        scene.draw();
        return picture();
    }
    /// Name and tooltip of the slice at a place of the circle [rad, px].
    std::string sliceAt(double angle, double radius)
    {
        QPoint const at(200 + int(std::sin(angle) * radius), 150 + int(std::cos(angle) * radius));
        FenVisPick const pick = scene.pick(at, QSize(1, 1));
        QString tooltip;
        if (auto const handler = pick.handler.lock())
            handler->OnMouseOver(pick.record, FenStringBuilder(), tooltip);
        return tooltip.toStdString();
    }

    FenVisScene scene;
    FenVisChartPie& chart;
};

} // namespace

TEST_F(VisChartPie, GivesEachVariableItsShareAndPicksItThere)
{
    // A radius of 142 px: a disc of 94 and a ring of 47.
    slice("a", 1, Qt::red);
    slice("b", -1, Qt::green);
    slice("hidden", 5, Qt::black).visible.set(false);
    slice("c", 2, Qt::blue);
    slice("d", 3, Qt::yellow, 4);
    Picture const drawn = draw();
    struct {
        double angle, radius;
        QColor color;
        char const* name;
    } const rows[] = {{0.1, 50, Qt::red, "a"},  {2.9, 50, Qt::green, "b"},   {3.3, 50, Qt::blue, "c"},
                      {6.1, 90, Qt::blue, "c"}, {6.1, 100, Qt::yellow, "d"}, {3.0, 139, Qt::yellow, "d"},
                      {2.0, 145, Qt::white, ""}};
    for (auto const& row : rows) {
        int const x = 200 + int(std::sin(row.angle) * row.radius);
        int const y = 150 + int(std::cos(row.angle) * row.radius);
        EXPECT_EQ(row.color.rgb(), drawn.pixelGl(x, y).rgb()) << row.name << row.radius;
        scene.touch();
        scene.update(); // forgets what is hovered
        EXPECT_EQ(row.name, sliceAt(row.angle, row.radius)) << row.radius;
    }
    EXPECT_EQ(4u, chart.validVariables().size());
}

TEST_F(VisChartPie, HighlightsUntilThePointerLeaves)
{
    slice("a", 1, Qt::red);
    slice("b", 1, Qt::blue);
    Picture const plain = draw();
    EXPECT_EQ("b", sliceAt(4, 50));
    EXPECT_EQ("", sliceAt(4.2, 50)) << "the same again";
    EXPECT_LT(0, draw().differingPixels(plain));
    FenVisPick const pick = scene.pick(QPoint(150, 150), QSize(1, 1));
    auto const handler = pick.handler.lock();
    ASSERT_TRUE(handler);
    for (QString tooltip : {"b", "changed by others"}) {
        sliceAt(1, 50);
        sliceAt(4, 50);
        QString const expected = tooltip == "b" ? QString() : tooltip;
        EXPECT_TRUE(handler->OnMouseLeave(pick.record, FenStringBuilder(), tooltip));
        EXPECT_FALSE(handler->OnMouseLeave(pick.record, FenStringBuilder(), tooltip));
        EXPECT_EQ(expected, tooltip);
    }
    EXPECT_EQ(0, draw().differingPixels(plain));
}

TEST_F(VisChartPie, WithoutAnyAmountIsAFaintPlaceholder)
{
    slice("a", 0, Qt::red);
    slice("b", std::nan(""), Qt::red);
    Picture const blank = draw();
    chart.chart.showPercent.set(true);
    Picture const labelled = draw();
    EXPECT_EQ(0, blank.count(Qt::red));
    EXPECT_NEAR(285, blank.boundingBox().width(), 1) << "the dashed outline";
    EXPECT_LT(20, labelled.differingPixels(blank)) << "one label";
    EXPECT_EQ("", sliceAt(1, 50));
}

TEST_F(VisChartPie, OfManySlicesShowsTheLabelsThatFitAndHitsTheOneUnderTheMouse)
{
    chart.chart.showPercent.set(true);
    for (int i = 0; i < 10000; ++i) slice(QString::number(i), i == 0 ? 5000 : 1, i % 2 ? Qt::red : Qt::green);
    Picture const drawn = draw();
    EXPECT_LT(0, drawn.count(Qt::black)) << "34 %";
    std::string const name = sliceAt(5, 120);
    EXPECT_NEAR((5 / (2 * M_PI) * 14999) - 5000, std::stoi(name), 30);
}
