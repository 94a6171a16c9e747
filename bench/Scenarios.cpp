// Complete charts (axes, labels, title) drawn headless at 1280x800, each
// measurement one line of JSON. Usage: scenarios_bench S1|S1_10M|S2|S3|S3_100k|S5|S7|S8
//
//   S1, S1_10M  line of 1 or 10 million points: first picture, repaint, resize,
//               1 % visible and moved, 1,000 points appended
//   S2          100,000 symbols of 6 px
//   S3, S3_100k parallel coordinates, 10 axes, 10,000 or 100,000 records: first
//               picture, repaint, a step of a slider, hover
//   S5          picks in S1
//   S7          100 charts of 1,000 points in one picture
//   S8          spider, 12 axes, 1,000 items
//
// Every picture ends as pixels in memory. The data is in memory before.

#include "bench/Measure.h"

#include "charts/chart2d/VisChart2D.h"
#include "charts/parallel/VisChartPCP.h"
#include "charts/spider/VisChartSpider.h"
#include "host/headless/OffscreenContext.h"
#include "host/input/MouseTracker.h"
#include "host/scene/Scene.h"
#include "services/chartdata/ChartColumn.h"

#include <QGuiApplication>
#include <QImage>

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>

using Kes::Math::Vector3;

namespace {

constexpr int width = 1280;
constexpr int height = 800;

/// A scene and the context that it is drawn in.
class Stage {
public:
    Stage()
        : _context(QSize(width + 1, height + 1))
    {
        if (!_context.valid()) {
            std::fprintf(stderr, "no OpenGL: %s\n", qPrintable(_context.error()));
            std::exit(1);
        }
        clear();
    }

    void clear() { _scene = std::make_unique<FenVisScene>(); }
    FenVisScene& scene() { return *_scene; }

    void draw(QSize const& size = QSize(width, height))
    {
        _scene->resize(size);
        _scene->update();
        _scene->draw();
        _picture = _context.grab();
    }

    void repaint()
    {
        _scene->draw();
        _picture = _context.grab();
    }

    /// Pixels that differ from the upper left corner.
    long ink() const
    {
        long count = 0;
        QRgb const corner = _picture.pixel(0, 1);
        for (int y = 1; y < height; ++y) {
            for (int x = 0; x < width; ++x) count += _picture.pixel(x, y) != corner;
        }
        return count;
    }

private:
    FenOffscreenContext _context;
    std::unique_ptr<FenVisScene> _scene;
    QImage _picture;
};

FenChartVariable& addVariable(FenVisChart2D& node, bench::Column const& x, bench::Column const& y)
{
    FenChartVariable& variable = node.chart.variables.append("walk");
    variable.setColumn(Vector3::CompX, FenChartColumn::share(x));
    variable.setColumn(Vector3::CompY, FenChartColumn::share(y));
    variable.lineColor.set(Qt::blue);
    return variable;
}

FenVisChart2D& addChart(FenVisScene& scene, QString const& title, bench::Column const& x,
                        bench::Column const& y)
{
    FenVisChart2D& node = scene.add<FenVisChart2D>("chart");
    node.chart.title.set(title);
    node.chart.xAxes.first()->title.set("Sample");
    node.chart.yAxes.first()->title.set("Value");
    addVariable(node, x, y);
    return node;
}

void show(FenChartAxis& axis, double from, double to)
{
    axis.autoRange.set(false);
    axis.min.set(from);
    axis.max.set(to);
}

void line(std::string const& scenario)
{
    bench::rememberDataSize();
    size_t const count = scenario == "S1_10M" ? 10000000 : 1000000;
    bench::Walk const walk(count);
    bench::rememberDataSize();
    Stage stage;
    FenVisChart2D* node = nullptr;

    auto const first = bench::measure([&] {
        stage.clear();
        node = &addChart(stage.scene(), "Random walk", walk.x, walk.y);
        stage.draw();
    });
    bench::report(scenario, "noaa", "a_first", first, stage.ink());
    bench::report(scenario, "noaa", "b_replot", bench::measure([&] { stage.repaint(); }), stage.ink());
    int step = 0;
    bench::report(scenario, "noaa", "c_resize", bench::measure([&] {
                      ++step;
                      stage.draw(QSize(width + step % 2, height + step % 2));
                  }),
                  stage.ink());

    FenChartAxis& x = *node->chart.xAxes.first();
    double const all = double(count);
    double at = 0.4 * all;
    bench::report(scenario, "noaa", "d_pan_1pct", bench::measure([&] {
                      at += 0.0005 * all;
                      show(x, at, at + 0.01 * all);
                      stage.draw();
                  }),
                  stage.ink());
    if (scenario != "S1") return;

    x.autoRange.set(true);
    stage.draw();
    double end = all;
    FenChartVariable& variable = node->chart.variables[0];
    bench::report(scenario, "noaa", "f_append1000", bench::measure([&] {
                      std::vector<double> xs(1000);
                      std::vector<double> ys(1000);
                      for (size_t i = 0; i < xs.size(); ++i) {
                          xs[i] = end++;
                          ys[i] = 100 * std::sin(end * 1e-4);
                      }
                      variable.appendData(Vector3::CompX, std::move(xs));
                      variable.appendData(Vector3::CompY, std::move(ys));
                      stage.draw();
                  }),
                  stage.ink());
}

void symbols()
{
    bench::rememberDataSize();
    bench::Cloud const cloud(100000);
    bench::rememberDataSize();
    Stage stage;
    auto const first = bench::measure([&] {
        stage.clear();
        FenVisChart2D& node = addChart(stage.scene(), "Cloud", cloud.x, cloud.y);
        FenChartVariable& variable = node.chart.variables[0];
        variable.lineMode.set(FenChart::lineNone);
        variable.symbol.set(FenChart::symbolEllipse);
        variable.symbolSize.set(6);
        variable.symbolColor.set(Qt::blue);
        variable.symbolOutlineColor.set(Qt::blue);
        stage.draw();
    });
    bench::report("S2", "noaa", "a_first", first, stage.ink());
    bench::report("S2", "noaa", "b_replot", bench::measure([&] { stage.repaint(); }), stage.ink());
}

void picks()
{
    bench::rememberDataSize();
    bench::Walk const walk(1000000);
    bench::rememberDataSize();
    Stage stage;
    // Places on the curve, spread over the picture.
    std::vector<QPoint> places;
    auto const show = [&] {
        stage.clear();
        FenVisChart2D const& node = addChart(stage.scene(), "Random walk", walk.x, walk.y);
        stage.draw();
        FenOglViewport const data = node.getDataViewport();
        places = node.drawnPixels(64);
        for (QPoint& place : places) place += QPoint(data.x() + 1, data.y() + 1);
    };
    size_t place = 0;
    long hits = 0;
    auto const pickOne = [&] {
        FenVisPick const hit = stage.scene().pick(places[place++ % places.size()], QSize(6, 6));
        hits += hit && hit.record.context() != FenVisHitRecord::DEFAULT_NAME;
    };
    auto const first = bench::measurePart([&] {
        show();
        double const start = bench::now();
        pickOne();
        return bench::now() - start;
    });
    bench::report("S5", "select", "first_pick", first, hits);
    constexpr int picksPerRun = 20;
    hits = 0;
    auto const all = [&] {
        for (int i = 0; i < picksPerRun; ++i) pickOne();
    };
    bench::report("S5", "select", "pick", bench::measure(all, picksPerRun), hits);
}

void many()
{
    bench::rememberDataSize();
    std::vector<bench::Walk> walks;
    for (unsigned long long i = 0; i < 100; ++i) walks.emplace_back(1000, i * 1000);
    bench::rememberDataSize();
    Stage stage;
    auto const first = bench::measure([&] {
        stage.clear();
        for (int i = 0; i < 100; ++i) {
            bench::Walk const& walk = walks[size_t(i)];
            FenVisChart2D& node = addChart(stage.scene(), QString(), walk.x, walk.y);
            node.viewport.x.set(i % 10 * width / 10);
            node.viewport.y.set((9 - i / 10) * height / 10);
            node.viewport.width.set(width / 10);
            node.viewport.height.set(height / 10);
            node.chart.xAxes.first()->title.set(QString());
            node.chart.yAxes.first()->title.set(QString());
        }
        stage.draw();
    });
    bench::report("S7", "noaa", "a_first", first, stage.ink());
    bench::report("S7", "noaa", "b_replot", bench::measure([&] { stage.repaint(); }), stage.ink());
    long hits = 0;
    int at = 0;
    constexpr int picksPerRun = 20;
    bench::report("S7", "noaa", "hover",
                  bench::measure(
                      [&] {
                          for (int i = 0; i < picksPerRun; ++i) {
                              at = (at + 7919) % (width * height);
                              hits += long(
                                  stage.scene().select(QPoint(at % width, at / width), QSize(6, 6)).size());
                          }
                      },
                      picksPerRun),
                  hits);
}

std::vector<bench::Column> uniformColumns(size_t axes, size_t items)
{
    std::vector<bench::Column> columns;
    unsigned state = 12345;
    for (size_t k = 0; k < axes; ++k) {
        std::vector<double> values(items);
        for (double& value : values) value = double(state = state * 1664525u + 1013904223u) / 4294967296.0;
        columns.push_back(std::make_shared<std::vector<double> const>(std::move(values)));
    }
    return columns;
}

/// A chart with an axis per column, all filters on.
template <class Node>
Node& addItems(FenVisScene& scene, std::vector<bench::Column> const& columns)
{
    Node& node = scene.add<Node>("chart");
    node.chart.title.set("Records");
    node.chart.itemColors.set({QColor(Qt::blue)});
    for (bench::Column const& column : columns) {
        FenChartVariable& variable = node.chart.variables.append("axis");
        variable.setColumn(Vector3::CompY, FenChartColumn::share(column));
        variable.filter.set(true);
    }
    return node;
}

/// Hovers all over the picture.
void hover(Stage& stage, char const* scenario)
{
    long hits = 0;
    int at = 0;
    constexpr int picksPerRun = 20;
    bench::report(scenario, "noaa", "hover",
                  bench::measure(
                      [&] {
                          for (int i = 0; i < picksPerRun; ++i) {
                              at = (at + 7919 * 31) % (width * height);
                              hits += long(
                                  stage.scene().select(QPoint(at % width, at / width), QSize(6, 6)).size());
                          }
                      },
                      picksPerRun),
                  hits);
}

void parallel(char const* scenario, size_t records)
{
    std::vector<bench::Column> const columns = uniformColumns(10, records);
    Stage stage;
    auto const first = bench::measure([&] {
        stage.clear();
        addItems<FenVisChartPCP>(stage.scene(), columns);
        stage.draw();
    });
    bench::report(scenario, "noaa", "a_first", first, stage.ink());
    bench::report(scenario, "noaa", "b_replot", bench::measure([&] { stage.repaint(); }), stage.ink());
    hover(stage, scenario);
    FenOglViewport const plot =
        dynamic_cast<FenVisualization const*>(stage.scene().root().at(0U))->getDataViewport();
    FenMouseTracker tracker(stage.scene());
    QPoint at(plot.x() + plot.width() / 9 * 4, plot.y() + 2);
    tracker.press(at, Qt::LeftButton);
    constexpr int stepLength = 4; // [px]
    bench::report(scenario, "noaa", "drag_step", bench::measure([&] {
                      at += QPoint(0, stepLength);
                      tracker.move(at);
                      stage.repaint();
                  }),
                  stage.ink());
}

void spider()
{
    std::vector<bench::Column> const columns = uniformColumns(12, 1000);
    Stage stage;
    auto const first = bench::measure([&] {
        stage.clear();
        addItems<FenVisChartSpider>(stage.scene(), columns);
        stage.draw();
    });
    bench::report("S8", "noaa", "a_first", first, stage.ink());
    bench::report("S8", "noaa", "b_replot", bench::measure([&] { stage.repaint(); }), stage.ink());
    hover(stage, "S8");
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    std::string const scenario = argc > 1 ? argv[1] : "S1";
    if (scenario == "S1" || scenario == "S1_10M") {
        line(scenario);
    } else if (scenario == "S2") {
        symbols();
    } else if (scenario == "S3" || scenario == "S3_100k") {
        parallel(scenario.c_str(), scenario == "S3" ? 10000 : 100000);
    } else if (scenario == "S8") {
        spider();
    } else if (scenario == "S5") {
        picks();
    } else if (scenario == "S7") {
        many();
    } else {
        std::fprintf(stderr, "usage: scenarios_bench S1|S1_10M|S2|S3|S3_100k|S5|S7|S8\n");
        return 2;
    }
    return 0;
}
