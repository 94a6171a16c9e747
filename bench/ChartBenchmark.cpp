// Frames of complete 2D charts: what a redraw, a resize, a pan step and a new value cost.

#include "bench/BenchScene.h"

#include "host/input/ChartNavigation.h"

namespace {

using bench::BenchScene;
using Kes::Math::Vector3;

/// Nothing changed: what the window system asks for.
void redraw(benchmark::State& state)
{
    BenchScene stage;
    stage.addCharts(1, 1, std::size_t(state.range(0)));
    for (auto _ : state) stage.frame();
}
BENCHMARK(redraw)->RangeMultiplier(100)->Range(100, 1000000)->Unit(benchmark::kMillisecond);

void resize(benchmark::State& state)
{
    BenchScene stage;
    stage.addCharts(1, 1, std::size_t(state.range(0)));
    int smaller = 0;
    for (auto _ : state) stage.frame(QSize(bench::width - (smaller ^= 1), bench::height));
}
BENCHMARK(resize)->RangeMultiplier(100)->Range(100, 1000000)->Unit(benchmark::kMillisecond);

/// A step of a drag: ranges are written, the chart is laid out and drawn again.
void panStep(benchmark::State& state)
{
    BenchScene stage;
    stage.addCharts(1, 1, std::size_t(state.range(0)));
    FenChartNavigation navigation(stage.scene);
    QPoint const middle(bench::width / 2, bench::height / 2);
    navigation.beginDrag(middle);
    int way = 0;
    for (auto _ : state) {
        navigation.drag(middle + QPoint(++way % 50, 0));
        stage.frame();
    }
    navigation.cancelDrag();
}
BENCHMARK(panStep)->RangeMultiplier(100)->Range(100, 1000000)->Unit(benchmark::kMillisecond);

/// One of many charts has changed; the others must not cost more than their drawing.
void oneOfManyCharts(benchmark::State& state)
{
    BenchScene stage;
    stage.addCharts(10, 10, 1000);
    int title = 0;
    for (auto _ : state) {
        if (state.range(0)) stage.chart().chart.title.set(QString::number(++title % 2));
        stage.frame();
    }
}
BENCHMARK(oneOfManyCharts)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void symbols(benchmark::State& state)
{
    BenchScene stage;
    stage.addCloud(std::size_t(state.range(0)));
    for (auto _ : state) stage.frame();
}
BENCHMARK(symbols)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) { return bench::run(argc, argv); }
