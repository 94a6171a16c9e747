#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "services/opengl/GlWrappers.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/SceneBuilder.h"

#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace {

double const infinite = std::numeric_limits<double>::infinity();
double const undefined = std::numeric_limits<double>::quiet_NaN();

} // namespace

class VisChart2DGlTest : public OffscreenGlTest {
protected:
    Picture show()
    {
        clear();
        scene.draw();
        return picture();
    }
    Picture updated()
    {
        scene.update();
        return show();
    }
    /// Fixed ranges, so that data is easy to find: x 0..10, y -5..5.
    void fixRanges()
    {
        scene.range("x", 0, 10);
        scene.range("y", -5, 5);
    }
    /// Colour at a place given in data of these ranges.
    QColor at(Picture const& drawn, double x, double y)
    {
        FenOglViewport const data = scene.data();
        return drawn.pixelGl(data.x() + int(x / 10 * data.width()),
                             data.y() + int((y + 5) / 10 * data.height()));
    }

    ChartScene scene;
};

TEST_F(VisChart2DGlTest, EachStyleDrawsWhatItsNameSays)
{
    QColor const blue(Qt::blue), white(Qt::white);
    struct Probe {
        double x, y;
        QColor color;
    };
    struct Row {
        char const* what;
        QString style;
        std::function<void(FenChartVariable&)> set;
        std::vector<Probe> probes;
    };
    auto const fill = [](QString const& mode) {
        return [mode](FenChartVariable& v) {
            v.lineMode.set(FenChart::lineNone);
            v.fillMode.set(mode);
            v.fillColor.set(Qt::blue);
            v.colors.set({Qt::red, Qt::blue});
        };
    };
    auto const plain = [](FenChartVariable&) {};
    auto const solid = fill(FenChart::fillSolid), ramp = fill(FenChart::fillGradient);
    auto const narrow = [&](FenChartVariable& v) { solid(v), v.barWidth.set(0.25); };
    auto const symbols = [](FenChartVariable& v) {
        v.lineMode.set(FenChart::lineNone);
        v.symbol.set(FenChart::symbolRect);
        v.symbolSize.set(9);
        v.symbolColor.set(Qt::blue);
    };
    Row const rows[] = {
        {"line", "line", plain, {{3, 0.5, blue}, {3, 2, white}, {7, -1.5, blue}}},
        {"step", "step", plain, {{3, 2, blue}, {3, 0.5, white}, {7, -1, blue}, {5, 0.5, blue}}},
        {"spline", "spline", plain, {{5, -1, blue}, {5, 1, white}}},
        {"filled line", "line", solid, {{2, 0.5, blue}, {2, 2.4, white}, {8, -1, blue}, {8, 1, white}}},
        {"filled step", "step", solid, {{3, 1.8, blue}, {3, -0.5, white}}},
        {"ramp", "line", ramp, {{1.1, 1.9, QColor(5, 0, 250)}, {9, -1.9, QColor(2, 0, 253)}}},
        {"bars", "bar", solid, {{1, 1, blue}, {1, -0.5, white}, {5, -0.8, blue}, {9, -1.8, blue}}},
        {"narrow bars", "bar", narrow, {{1, 1, blue}, {2, 1, white}, {1.3, 1, blue}}},
        {"nothing", "none", solid, {{2, 0.5, white}}},
        {"only symbols", "line", symbols, {{5, -1, blue}, {3, 0.5, white}}},
        {"unknown", "sawtooth", plain, {{3, 0.5, blue}}},
    };
    log.expect("sawtooth");
    for (Row const& row : rows) {
        scene.chart->chart.variables.removeAt(0);
        FenChartVariable& v = scene.add("v", {{1, 2}, {5, -1}, {9, -2}}, row.style);
        v.lineColor.set(blue);
        v.lineWidth.set(3);
        row.set(v);
        fixRanges();
        scene.axis("x").gridColor.set(Qt::transparent);
        scene.axis("y").gridColor.set(Qt::transparent);
        Picture const drawn = updated();
        for (Probe const& p : row.probes) {
            QColor const seen = at(drawn, p.x, p.y);
            int const off = std::abs(seen.red() - p.color.red()) + std::abs(seen.green() - p.color.green())
                + std::abs(seen.blue() - p.color.blue());
            bool const fades = QLatin1String(row.what) == QLatin1String("ramp");
            if (fades && p.y < 0)
                EXPECT_GT(seen.red(), 230) << "low end of the ramp";
            else
                EXPECT_LT(off, fades ? 60 : 6)
                    << row.what << " at " << p.x << ", " << p.y << ": " << seen.name().toStdString();
        }
    }
}

TEST_F(VisChart2DGlTest, BarsOfSeveralVariablesStandSideBySide)
{
    scene.categories({"a", "b"});
    QColor const colors[] = {Qt::red, Qt::green, Qt::blue};
    for (int v = 0; v < 3; ++v)
        scene.bars(QString::number(v), {{0, 3}, {1, v == 1 ? -3.0 : 3.0}}).fillColor.set(colors[v]);
    scene.chart->chart.variables[1].xAxis.set("x"); // which an empty name means too
    scene.range("y", -5, 5);
    Picture const drawn = updated();
    FenOglViewport const data = scene.data();
    int const interval = data.width() / 2, up = data.y() + data.height() * 6 / 10;
    for (int category = 0; category < 2; ++category)
        for (int v = 0; v < 3; ++v) {
            int const x = data.x() + category * interval + int(interval * (0.5 + (v - 1) * 0.8 / 3));
            bool const below = category == 1 && v == 1;
            EXPECT_TRUE(drawn.is(x, drawn.height() - 1 - up, below ? QColor(Qt::white) : colors[v]))
                << category << v;
            EXPECT_TRUE(drawn.is(x, drawn.height() - 1 - (data.y() + data.height() * 4 / 10),
                                 below ? colors[v] : QColor(Qt::white)))
                << category << v;
        }
}

TEST_F(VisChart2DGlTest, BarsOnDifferentAxesShareNoPlace)
{
    scene.chart->chart.xAxes.setSecond("top", FenChartAxisContinuous::typeString);
    for (char const* axis : {"x", "top"}) {
        scene.bars(axis, {{4, 4}, {5, 4}, {6, 4}}).xAxis.set(axis);
        scene.range(axis, 0, 10);
    }
    scene.range("y", -5, 5);
    scene.chart->chart.variables[0].fillColor.set(Qt::blue);
    Picture const drawn = updated();
    for (double x : {3.6, 4.4, 4.6, 6.4}) EXPECT_EQ(QColor(Qt::blue), at(drawn, x, 2)) << x;
}

TEST_F(VisChart2DGlTest, TheFirstVariableLiesOnTop)
{
    fixRanges();
    scene.bars("first", {{5, 3}}).fillColor.set(Qt::red);
    scene.bars("second", {{5, 4}}).fillColor.set(Qt::green);
    scene.chart->chart.variables[0].style.set(FenChart::styleLine);
    scene.chart->chart.variables[0].setData(Kes::Math::Vector3::CompX, {4, 6});
    scene.chart->chart.variables[0].setData(Kes::Math::Vector3::CompY, {3, 3});
    Picture const drawn = updated();
    EXPECT_EQ(QColor(Qt::red), at(drawn, 5.2, 1));
    EXPECT_EQ(QColor(Qt::green), at(drawn, 5.2, 3.5));
}

TEST_F(VisChart2DGlTest, AReducedCurveIsThePictureOfAllItsPoints)
{
    std::mt19937 random(3);
    std::normal_distribution<double> normal;
    std::vector<double> x, y;
    for (int i = 0; i < 30000; ++i) {
        x.push_back(i / 3000.0);
        y.push_back(i % 5000 < 100 ? undefined : std::sin(x.back()) * 2 + normal(random) * 0.4);
    }
    fixRanges();
    scene.columns("all", x, y).lineColor.set(Qt::blue);
    Picture const reduced = updated();
    // A pattern that sets every pixel keeps the points from being reduced.
    scene.chart->chart.variables[0].lineStyle.set("0xFFFF");
    Picture const whole = updated();
    int const ink = whole.count(Qt::blue);
    ASSERT_GT(ink, 10000);
    // The ends of single segments may round to the next pixel.
    EXPECT_LT(reduced.differingPixels(whole), ink / 100);
}

TEST_F(VisChart2DGlTest, AHighlightedVariableGlowsAndAHighlightedPointHasAHalo)
{
    fixRanges();
    FenChartVariable& a = scene.line("a", {{1, 0}, {5, 0}, {9, 0}});
    a.lineColor.set(Qt::blue);
    Picture const plain = updated();
    FenOglViewport const data = scene.data();
    QPoint const onLine = (scene.pixelOf("a", 0) * 7 + scene.pixelOf("a", 1)) / 8;
    ASSERT_TRUE(scene.click(onLine, 1));
    Picture const glowing = show();
    QRect const beside(onLine.x(), glowing.height() - 1 - onLine.y() - 3, 3, 1);
    EXPECT_EQ(3, plain.count(Qt::white, beside));
    EXPECT_EQ(0, glowing.count(Qt::white, beside, 1));
    EXPECT_EQ("a { 1, 0 } ", scene.hover(onLine, 1));
    Picture const halo = show();
    EXPECT_EQ(3, halo.count(Qt::white, beside)) << "a highlighted point makes no glow";
    QPoint const point = scene.pixelOf("a", 0);
    EXPECT_NE(QColor(Qt::white), halo.pixelGl(point.x(), point.y() + 3));
    EXPECT_TRUE(scene.leave());
    EXPECT_FALSE(scene.leave());
    EXPECT_EQ(0, show().differingPixels(plain));
    EXPECT_TRUE(data.valid());
}

TEST_F(VisChart2DGlTest, NarrowBarsGlowThoughTheyHaveNoOutline)
{
    fixRanges();
    FenChartVariable& a = scene.bars("a", {{2, 4}, {5, 4}});
    a.barWidth.set(0.01);
    Picture const plain = updated();
    ASSERT_TRUE(scene.click(scene.pixelOf("a", 1) - QPoint(0, 20), 3));
    EXPECT_GT(show().differingPixels(plain), 200);
}

TEST_F(VisChart2DGlTest, ExtensionsReachTheEndsOfTheAxisFromTheOutermostPoints)
{
    fixRanges();
    scene.axis("y").gridColor.set(Qt::transparent);
    FenChartVariable& a = scene.columns("a", {}, {});
    a.lineColor.set(Qt::blue);
    a.lineExtension.set(true);
    std::vector<std::vector<double>> const orders = {{3, 5, 7}, {7, 5, 3}, {5, 7, 3}};
    for (std::vector<double> const& x : orders) {
        std::vector<double> y = x; // on the rising diagonal: left end low, right end high
        for (double& value : y) value -= 5;
        a.setData(Kes::Math::Vector3::CompX, x);
        a.setData(Kes::Math::Vector3::CompY, y);
        Picture const drawn = updated();
        FenOglViewport const data = scene.data();
        auto const ink = [&](int left, double value) {
            int const row = data.y() + int((value + 5) / 10 * data.height());
            return drawn.count(Qt::blue, QRect(left, drawn.height() - 2 - row, 80, 3));
        };
        for (double value : {-2.0, 2.0}) {
            bool const low = value < 0;
            EXPECT_NEAR(low ? 80 : 0, ink(data.x() + 3, value), low ? 30 : 0) << x[0] << value;
            EXPECT_NEAR(low ? 0 : 80, ink(data.x() + data.width() - 82, value), low ? 0 : 30)
                << x[0] << value;
        }
    }
}

TEST_F(VisChart2DGlTest, LabelsStandAtTheirPointsAndNeverOnEachOther)
{
    fixRanges();
    FenChartVariable& a = scene.bars("a", {{2, 2}, {8, -2}});
    a.labels.set({"up", "down"});
    a.labelColor.set(Qt::red);
    Picture const drawn = updated();
    auto const ink = [&](QPoint const& center) {
        return drawn.count(Qt::red, QRect(center.x() - 20, drawn.height() - 1 - center.y() - 7, 40, 14), 120);
    };
    EXPECT_GT(ink(scene.pixelOf("a", 0) + QPoint(0, 9)), 10) << "above a bar";
    EXPECT_GT(ink(scene.pixelOf("a", 1) - QPoint(0, 9)), 10) << "below one that hangs down";
}

TEST_F(VisChart2DGlTest, PassesKeepTheStateWhateverTheDataIs)
{
    std::vector<std::pair<char const*, ChartScene::Points>> const hostile = {
        {"none", {}},
        {"one", {{1, 5}}},
        {"equal", {{1, 5}, {1, 5}, {1, 5}}},
        {"undefined", {{undefined, undefined}, {undefined, 1}}},
        {"infinite", {{-infinite, 1}, {0, infinite}, {1, 0}, {2, -infinite}}},
        {"huge", {{-1e308, -1e308}, {1e308, 1e308}, {0, 1}}},
        {"tiny", {{5e-324, 5e-324}, {1e-320, 2e-320}}},
        {"backwards", {{3, 1}, {2, 2}, {1, 3}}},
        {"dates", {{1.7e9, 1}, {1.7e9 + 1e-3, 2}}},
    };
    QString const styles[] = {FenChart::styleLine, FenChart::styleSpline, FenChart::styleStep,
                              FenChart::styleBar};
    for (auto const& [what, points] : hostile)
        for (QString const& style : styles)
            for (bool logarithmic : {false, true}) {
                SCOPED_TRACE(std::string(what) + ' ' + style.toStdString());
                ChartScene hard;
                log.expect("logarithmic");
                hard.axis("x").logarithmic.set(logarithmic);
                hard.axis("y").logarithmic.set(logarithmic);
                FenChartVariable& v = hard.add("v", points, style);
                v.fillMode.set(FenChart::fillGradient);
                v.lineMode.set(FenChart::lineGradient);
                v.symbol.set(FenChart::symbolStar);
                v.lineExtension.set(true);
                v.labels.set({"one", "two", "three", "four"});
                v.lineWidth.set(float(undefined));
                for (QSize const size : {QSize(400, 300), QSize(1, 1), QSize(60, 40)}) {
                    resizePicture(size.width(), size.height());
                    hard.resize(size);
                    hard.update();
                    expectPassKeepsState([&] { hard.draw(); });
                    expectPassKeepsState([&] { hard.hover(QPoint(size.width() / 2, size.height() / 2)); });
                    expectPassKeepsState([&] { hard.draw(); });
                }
            }
}

TEST_F(VisChart2DGlTest, LooksTheSameWhateverTheHostHasLeftOn)
{
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    GLdouble const nothing[] = {0, 0, 0, -1};
    std::vector<std::function<void()>> const leftovers = {
        [] {},
        [&] { glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer); },
        [&] { glBindBuffer(GL_ARRAY_BUFFER, buffer); },
        [] { glPixelTransferf(GL_RED_SCALE, 0), glPixelTransferf(GL_ALPHA_SCALE, 0); },
        [] { glActiveTexture(GL_TEXTURE1), glEnable(GL_TEXTURE_2D), glClientActiveTexture(GL_TEXTURE1); },
        [] { glEnable(GL_TEXTURE_GEN_S), glEnable(GL_TEXTURE_GEN_T); },
        [] {
            glMatrixMode(GL_TEXTURE), glPushMatrix(), glTranslatef(0.3f, 0.4f, 0), glMatrixMode(GL_MODELVIEW);
        },
        [&] { glClipPlane(GL_CLIP_PLANE5, nothing), glEnable(GL_CLIP_PLANE5); },
        [] { glEnable(GL_FOG), glFogf(GL_FOG_DENSITY, 100), glEnable(GL_LIGHTING), glEnable(GL_CULL_FACE); },
        [] { glEnable(GL_POLYGON_STIPPLE), glPolygonStipple(QStringLiteral("sparse")); },
        [] { glEnable(GL_LINE_STIPPLE), glLineWidth(9), glEnable(GL_LINE_SMOOTH); },
        [] { glPolygonMode(GL_FRONT_AND_BACK, GL_LINE), glShadeModel(GL_FLAT); },
        [] { glEnable(GL_ALPHA_TEST), glAlphaFunc(GL_LESS, 0.1f), glEnable(GL_DEPTH_TEST); },
        [] { glEnable(GL_COLOR_LOGIC_OP), glLogicOp(GL_INVERT), glBlendEquation(GL_FUNC_SUBTRACT); },
    };
    Picture expected;
    for (std::size_t i = 0; i < leftovers.size(); ++i) {
        ChartScene fresh; // textures and glyphs are made under that state
        FenChartVariable& bars = fresh.bars("bars", {{1, 2}, {2, -3}});
        bars.fillMode.set(FenChart::fillGradient);
        bars.colors.set({Qt::red, Qt::blue});
        bars.labels.set({"two", "three"});
        fresh.marks("marks", {{1, 1}, {2, 2}});
        clear();
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
        GLint depth = 0, after = 0;
        leftovers[i]();
        glGetIntegerv(GL_TEXTURE_STACK_DEPTH, &depth);
        fresh.update();
        fresh.draw();
        glGetIntegerv(GL_TEXTURE_STACK_DEPTH, &after);
        EXPECT_EQ(depth, after) << i;
        glPopClientAttrib();
        glPopAttrib();
        glMatrixMode(GL_TEXTURE);
        if (depth > 1) glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
        if (i == 0) expected = picture();
        EXPECT_EQ(0, expected.differingPixels(picture())) << "leftover " << i;
    }
    glDeleteBuffers(1, &buffer);
}

TEST_F(VisChart2DGlTest, TheViewInDepthIsNotPickedInThePlane)
{
    scene.line("a", {{0, 0}, {1, 1}}).lineColor.set(Qt::blue);
    scene.chart->chart.view3D.set(true);
    updated();
    EXPECT_EQ("nothing", scene.pick(QPoint(200, 150)));
}
