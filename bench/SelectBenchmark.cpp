// Picks and what the mouse does with them; all at places where something is hit and where nothing is.

#include "bench/BenchScene.h"

#include "host/input/MouseTracker.h"

namespace {

using bench::BenchScene;

/// The pick point walks along the middle of the picture, as a mouse does.
QPoint walkingPoint(int step) { return QPoint(100 + step * 7 % 1000, bench::height / 2); }

void pickLine(benchmark::State& state)
{
    BenchScene stage;
    stage.addCharts(1, 1, std::size_t(state.range(0)));
    int step = 0;
    for (auto _ : state) benchmark::DoNotOptimize(stage.scene.select(walkingPoint(++step), QSize(6, 6)));
}
BENCHMARK(pickLine)->RangeMultiplier(100)->Range(100, 1000000)->Unit(benchmark::kMicrosecond);

void pickSymbols(benchmark::State& state)
{
    BenchScene stage;
    stage.addCloud(std::size_t(state.range(0)));
    int step = 0;
    for (auto _ : state) benchmark::DoNotOptimize(stage.scene.select(walkingPoint(++step), QSize(6, 6)));
}
BENCHMARK(pickSymbols)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void pickAmongCharts(benchmark::State& state)
{
    BenchScene stage;
    stage.addCharts(10, 10, 1000);
    int step = 0;
    for (auto _ : state) benchmark::DoNotOptimize(stage.scene.select(walkingPoint(++step), QSize(6, 6)));
}
BENCHMARK(pickAmongCharts)->Unit(benchmark::kMicrosecond);

/// Pick, leave, over and tooltip; without the redraw that may follow.
void hover(benchmark::State& state)
{
    BenchScene stage;
    stage.addCharts(1, 1, std::size_t(state.range(0)));
    FenMouseTracker tracker(stage.scene);
    int step = 0;
    for (auto _ : state) {
        tracker.move(walkingPoint(++step));
        tracker.flush();
    }
}
BENCHMARK(hover)->Arg(1000000)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) { return bench::run(argc, argv); }
