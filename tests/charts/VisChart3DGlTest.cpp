#include "charts/chart2d/VisChart2D.h"
#include "charts/chart3d/VisChart3D.h"
#include "framework/DrawContext.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitRecordQuery.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "services/opengl/GlWrappers.h"
#include "services/properties/ModifiedGroup.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/SceneBuilder.h"

#include <chrono>
#include <cmath>
#include <random>

using namespace Kes::Math;

namespace {

typedef std::vector<double> Column;
constexpr int size = 400; // [px] of the picture, which shows 2 units of the scene

/// A chart seen from a direction, in orthographic projection.
template <class Node>
class DepthGl : public OffscreenGlTest {
protected:
    void SetUp() override
    {
        OffscreenGlTest::SetUp();
        resizePicture(size, size);
        node = std::make_unique<Node>(group);
        node->lighting.set(false);
        for (FenChartAxisPair* pair : {&node->chart.xAxes, &node->chart.yAxes, &node->chart.zAxes}) {
            pair->setFirst("", FenChartAxisContinuous::typeString);
            pair->first()->gridColor.set(Qt::transparent);
        }
        look(0, 90);
    }
    FenChartAxisContinuous& axis(FenChartAxisPair& pair)
    {
        return dynamic_cast<FenChartAxisContinuous&>(*pair.first());
    }
    void look(double azimuth, double elevation)
    {
        modelView = Matrix::rotate(VectorX, elevation - 90) * Matrix::rotate(VectorZ, azimuth)
            * Matrix::translation(Vector3(-0.5f, -0.5f, -0.5f));
        projection = Matrix();
        projection(2, 2) = -0.1f;
    }
    void load() const
    {
        glMatrixMode(GL_PROJECTION);
        glLoadMatrix(projection);
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrix(modelView);
    }
    FenVisualization::DrawContext context()
    {
        FenVisualization::DrawContext made(geometry, *cache, resource, viewport(), *text, {}, {});
        made.modelView = modelView;
        made.projection = projection;
        return made;
    }
    void update()
    {
        node->update(context());
        node->resize(context());
    }
    Picture draw()
    {
        clear();
        load();
        expectPassKeepsState([&] { node->draw3d(context()); });
        pixelMode();
        return picture();
    }
    /// [px] of a point of the data, y up.
    QPoint pixel(Vector3 const& data)
    {
        Vector3 const at = FenOglGeometry::Project(data, node->scaling(), node->offset())
                               .project(modelView, projection, viewport());
        return QPoint(int(at.x()), int(at.y()));
    }
    QColor colorAt(Vector3 const& data) { return draw().pixelGl(pixel(data).x(), pixel(data).y()); }
    /// What a pick finds, and the tooltip of it.
    std::string hover(QPoint const& point, int extent = 3)
    {
        FenVisualization::SelectContext select(geometry, *cache, resource, viewport(), *text, {});
        select.modelView = modelView;
        select.projection = projection;
        select.point = point;
        select.size = QSize(extent, extent);
        load();
        FenVisHitRecordList hits;
        expectPassKeepsState([&] { hits = node->select3d(select); });
        pixelMode();
        if (!FenVisHitRecordQuery::any(hits)) return "nothing";
        record = FenVisHitRecordQuery::top(hits);
        std::string const found = describeHit(node->hitProperty(record.context())).toStdString();
        QString tooltip;
        hits.handler(0).lock()->OnMouseOver(record, FenStringBuilder(), tooltip);
        return found + (tooltip.isEmpty() ? "" : " | " + tooltip.toStdString());
    }
    std::string hover(Vector3 const& data) { return hover(pixel(data)); }

    FenModifiedGroup group;
    std::unique_ptr<Node> node;
    Matrix modelView, projection;
    FenVisHitRecord record;
};

class VisChart3DGl : public DepthGl<FenVisChart3D> {
protected:
    FenChartVariable& add(Column x, Column y, Column z)
    {
        FenChartVariable& variable = node->chart.variables.append("v");
        variable.setData(Vector3::CompX, std::move(x));
        variable.setData(Vector3::CompY, std::move(y));
        variable.setData(Vector3::CompZ, std::move(z));
        variable.lineColor.set(Qt::red);
        variable.fillColor.set(Qt::blue);
        return variable;
    }
    /// A 3 x 3 grid, higher in the middle.
    FenChartVariable& hill()
    {
        return add({0, 1, 2, 0, 1, 2, 0, 1, 2}, {0, 0, 0, 1, 1, 1, 2, 2, 2}, {0, 0, 0, 0, 4, 0, 0, 0, 0});
    }
};

typedef DepthGl<FenVisChart2D> VisChart2DDepthGl;

} // namespace

TEST_F(VisChart3DGl, BarsStandOnTheirFootprintAndArePickedByTheirPoint)
{
    FenChartVariable& bars = hill();
    bars.style.set(FenChart::styleBar);
    bars.fillMode.set(FenChart::fillSolid);
    bars.barWidth.set(0.5);
    bars.lineMode.set(FenChart::lineNone);
    update();
    EXPECT_EQ(BoundingBox(Vector3(-0.25f, -0.25f, 0), Vector3(1.25f, 1.25f, 1)), node->boundingBox());
    EXPECT_EQ(Vector3(0.5f, 0.5f, 0.25f), node->scaling());
    // Bars of no height are flat squares; half the width of a step each.
    EXPECT_EQ(QColor(Qt::blue), colorAt({1, 1, 4}));
    EXPECT_EQ(QColor(Qt::blue), colorAt({1.2f, 0.8f, 4}));
    EXPECT_EQ(QColor(Qt::white), colorAt({1.35f, 1, 4}));
    EXPECT_EQ("variable v, vector3(1,1,4) | v { 1, 1, 4 }", hover({1.2f, 0.8f, 4}));
    EXPECT_EQ("chart", hover({1.5f, 1.5f, 4}));
    // The hovered bar glows around its outline.
    hover({1, 1, 4});
    QPoint const beside = pixel({0.75f, 1, 4}) - QPoint(2, 0);
    EXPECT_NE(QColor(Qt::white), draw().pixelGl(beside.x(), beside.y()));
}

TEST_F(VisChart3DGl, SurfacesShowTheirColoursAndArePickedWhereThePointerMeetsThem)
{
    FenChartVariable& surface = hill();
    surface.surface.set(true);
    surface.lineMode.set(FenChart::lineNone);
    surface.fillMode.set(FenChart::fillGradient);
    surface.colors.set({Qt::green, Qt::red});
    update();
    EXPECT_NEAR(255, colorAt({1, 1, 4}).red(), 3);
    EXPECT_NEAR(127, colorAt({1, 0.5f, 2}).green(), 3);
    EXPECT_EQ("variable v, usabilityplane(0 = 0) | v { 1.005, 0.505, 2 }", hover({1, 0.5f, 2}));
    EXPECT_EQ("variable v, vector3(1,1,4) | v { 1, 1, 4 }", hover({1, 1, 4})) << "a sample beats its surface";
    look(20, 30);
    EXPECT_EQ(0, draw().count(Qt::white, QRect(190, 190, 20, 20)));
    surface.surface.set(false);
    surface.style.set(FenChart::styleStep);
    update();
    EXPECT_EQ("chart", hover({1, 1, 2})) << "an upright line that is not drawn";
    surface.lineMode.set(FenChart::lineSolid);
    update();
    EXPECT_EQ("variable v, vector3(1,1,4) | v { 1, 1, 4 }", hover({1, 1, 2}));
}

TEST_F(VisChart3DGl, LinesOfAFixedAxisCarryTheirPlane)
{
    axis(node->chart.yAxes).fixed.set(true);
    FenChartVariable& line = add({0, 4}, {7, 7}, {0, 2});
    add({0, 4}, {9, 9}, {2, 0}).lineColor.set(Qt::darkGreen);
    look(0, 0);
    update();
    EXPECT_EQ(QColor(Qt::red), colorAt({3, 7, 1.5f}));
    // From the front the pointer knows no depth; the plane does.
    EXPECT_EQ("variable v, usabilityplane(2 = 7)", hover({3, 7, 1.5f}).substr(0, 33));
    EXPECT_NE(std::string::npos, hover({3, 7, 1.5f}).find(", 7, 1.5"));
    EXPECT_EQ("variable v, vector3(4,7,2) | v { 4, 7, 2 }", hover({4, 7, 2}));
    line.lineWidth.set(9);
    update();
    EXPECT_EQ(QColor(Qt::red), draw().pixelGl(pixel({3, 7, 1.5f}).x(), pixel({3, 7, 1.5f}).y() + 4));
    EXPECT_EQ("variable v, usabilityplane(2 = 7)",
              hover(pixel({3, 7, 1.5f}) + QPoint(0, 4), 1).substr(0, 33));
    axis(node->chart.zAxes).fixed.set(true);
    update();
    EXPECT_FALSE(node->boundingBox().defined());
    EXPECT_EQ("nothing", hover(QPoint(200, 200)));
    EXPECT_EQ(1, draw().colors());
}

TEST_F(VisChart3DGl, AxesAreNamedFirstAndTheirHiddenPartsAreDotted)
{
    FenChartVariable& plate = add({0, 1, 0, 1}, {0, 0, 1, 1}, {1, 1, 1, 1});
    plate.surface.set(true);
    add({0}, {0}, {0}).lineMode.set(FenChart::lineNone); // the plate is the top of the box
    axis(node->chart.xAxes).color.set(Qt::magenta);
    axis(node->chart.xAxes).title.set("width");
    update();
    hover(QPoint(10, 10));
    char const* const names[] = {"", "chart", "axis first", "axis first", "axis first"};
    for (quint32 name = 1; name < 5; ++name)
        EXPECT_EQ(names[name], describeHit(node->hitProperty(name)).toStdString());
    EXPECT_TRUE(node->hitProperty(2).isPropertyEqual(node->chart.xAxes.first()));
    look(30, -30); // from below nothing hides the axes
    int const shown = draw().count(Qt::magenta, 60);
    look(150, 60); // from behind and above the plate does
    int const hidden = draw().count(Qt::magenta, 60);
    EXPECT_GT(shown, 2 * 100);
    EXPECT_GT(hidden, 20);
    EXPECT_LT(hidden, shown / 2);
    look(30, -30);
    EXPECT_EQ("axis first | first", hover({0.5f, 0, 0}));
    EXPECT_TRUE(node->hitProperty(record.context()).isPropertyEqual(node->chart.xAxes.first()));
}

TEST_F(VisChart3DGl, AnUpdateOfUnchangedDataRecordsNothingAnew)
{
    std::mt19937 random(1);
    Column x, y, z;
    for (int i = 0; i < 40000; ++i) {
        x.push_back(i % 200);
        y.push_back(i / 200);
        z.push_back(int(random() % 100));
    }
    FenChartVariable& surface = add(x, y, z);
    surface.surface.set(true);
    auto const milliseconds = [&] {
        auto const start = std::chrono::steady_clock::now();
        update();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    };
    double const first = milliseconds();
    double const again = milliseconds();
    EXPECT_LT(again, first / 4);
    Picture const before = draw();
    surface.fillColor.set(Qt::green);
    update();
    EXPECT_GT(before.differingPixels(draw()), 1000) << "a change is seen";
    FenVisChart3D copy(*node);
    EXPECT_FALSE(copy.boundingBox().defined());
    EXPECT_EQ(QString("axes"), copy.axes.name());
}

TEST_F(VisChart3DGl, NothingBreaksIt)
{
    Column const nothing, one{1}, same(5, 3.0), line{0, 1, 2, 3, 4}, holes{0, NAN, 2, INFINITY, 4},
        huge{-1e308, 1e308, 0, 1, 2}, tiny{1e-310, 2e-310, 3e-310, 0, -1e-320};
    for (Column const& x : {nothing, same, line, huge})
        for (Column const& y : {same, line, tiny})
            for (Column const& z : {one, same, holes, huge, tiny})
                for (int look3 = 0; look3 < 4; ++look3) {
                    node->chart.variables.removeAt(0);
                    FenChartVariable& v = add(x, y, z);
                    v.surface.set(look3 == 0);
                    v.style.set(look3 == 1 ? FenChart::styleBar : FenChart::styleSpline);
                    v.fillMode.set(look3 == 2 ? FenChart::fillGradient : FenChart::fillSolid);
                    v.symbol.set(look3 == 3 ? FenChart::symbolStar : FenChart::symbolNone);
                    update();
                    look(20, 20);
                    draw();
                    hover(QPoint(200, 200));
                }
    node->chart.variables.removeAt(0);
    hill().surface.set(true);
    update();
    for (Matrix const& view :
         {Matrix::translation(Vector3(-0.5f, -0.5f, -0.5f)), Matrix::scaling(Vector3(1e20f, 0, 1e-20f))}) {
        modelView = view; // inside the box, and no view at all
        projection(3, 2) = -1;
        draw();
        hover(QPoint(3, 3));
    }
    for (QSize const& extent : {QSize(1, 1), QSize(4000, 10)}) {
        resizePicture(extent.width(), extent.height());
        look(30, 30);
        update();
        draw();
        hover(QPoint(0, 0));
    }
    node->chart.xAxes.setFirst("", "");
    update();
    EXPECT_FALSE(node->boundingBox().defined());
    draw();
}

TEST_F(VisChart2DDepthGl, VariablesStandOneBehindTheOtherAndArePickedAsInThePlane)
{
    node->chart.view3D.set(true);
    auto* const sides = node->chart.xAxes.setFirst("side", FenChartAxisDiscrete::typeString);
    static_cast<FenChartAxisDiscrete*>(sides)->labels.set({"north", "south"});
    for (FenChartAxis* axis : {sides, node->chart.yAxes.first()}) axis->autoRange.set(false); // no editor
    for (QColor const& color : {QColor(Qt::red), QColor(Qt::blue)}) {
        FenChartVariable& bars = node->chart.variables.append(color == QColor(Qt::red) ? "front" : "back");
        bars.setData(Vector3::CompY, color == QColor(Qt::red) ? Column{4, 0} : Column{4, 8});
        bars.style.set(FenChart::styleBar);
        bars.fillMode.set(FenChart::fillSolid);
        bars.fillColor.set(color);
        bars.lineMode.set(FenChart::lineNone);
        bars.barWidth.set(0.5);
    }
    update();
    // The box without its rim is a unit wide; categories have halves of it.
    BoundingBox const box = node->boundingBox();
    EXPECT_NEAR(1.1, box.extent().x(), 1e-5);
    float const left = box.min().x() + 0.05f, low = box.min().y() + 0.05f;
    auto const at = [&](double x, double y) {
        return Vector3(left + float(x), low + float(y), box.center().z())
            .project(modelView, projection, viewport());
    };
    auto const pixelOf = [&](double x, double y) { return QPoint(int(at(x, y).x()), int(at(x, y).y())); };
    Picture const drawn = draw();
    auto const color = [&](double x, double y) {
        return drawn.pixelGl(pixelOf(x, y).x(), pixelOf(x, y).y());
    };
    EXPECT_EQ(QColor(Qt::red), color(0.25, 0.3)) << "the first is in front";
    EXPECT_EQ(QColor(Qt::blue), color(0.75, 0.3));
    EXPECT_EQ(QColor(Qt::white), color(0.5, 0.3));
    EXPECT_EQ("variable front, ??? no string version avaialble ??? | front { north, 4 } ",
              hover(pixelOf(0.25, 0.3)));
    EXPECT_EQ("variable back, ??? no string version avaialble ??? | back { south, 8 } ",
              hover(pixelOf(0.75, 0.3)));
    look(180, -90); // from behind
    EXPECT_EQ("variable back", hover(pixelOf(0.25, 0.3)).substr(0, 13));
    EXPECT_EQ("axis side | side", hover(QPoint(int((at(0, 0).x() + at(1, 0).x()) / 2), int(at(0, 0).y()))));
}
