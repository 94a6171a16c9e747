// What reading and writing scene files costs: many nodes, and many numbers.

#include "host/file/SceneFile.h"
#include "host/scene/Scene.h"

#include <benchmark/benchmark.h>

namespace {

QByteArray const head = "{\"format\": \"fenvis scene\", \"version\": 1, \"scene\": [";

QByteArray chart(int number, QByteArray const& content)
{
    return "{\"name\": \"c" + QByteArray::number(number)
        + "\", \"type\": \"visualization.chart.2d\", \"enabled\": true, \"chart\": " + content + "}";
}

QByteArray manyCharts(int count)
{
    QByteArray text = head;
    for (int i = 0; i < count; ++i) text += (i > 0 ? "," : "") + chart(i, "{\"title\": \"t\"}");
    return text + "]}";
}

QByteArray manyNumbers(int count)
{
    QByteArray numbers;
    for (int i = 0; i < count; ++i) numbers += "0." + QByteArray::number(i + 1) + ',';
    numbers.chop(1);
    return head + chart(0, "{\"variables\": [{\"name\": \"v\", \"data\": {\"y\": [" + numbers + "]}}]}")
        + "]}";
}

void load(benchmark::State& state, QByteArray const& text)
{
    for (auto _ : state) {
        FenVisScene scene;
        if (!FenSceneFile::parse(text, QStringLiteral("bench"), scene).isEmpty())
            state.SkipWithError("not loaded");
        state.PauseTiming(); // the nodes are deleted by whoever owns the scene
        while (scene.root().size() > 0) scene.root().erase(scene.root().FenProperties::at(0U));
        state.ResumeTiming();
    }
}

void save(benchmark::State& state, QByteArray const& text)
{
    FenVisScene scene;
    QList<FenSceneProblem> problems = FenSceneFile::parse(text, QStringLiteral("bench"), scene);
    for (auto _ : state) benchmark::DoNotOptimize(FenSceneFile::text(scene, QString(), problems));
}

void loadNodes(benchmark::State& state) { load(state, manyCharts(int(state.range()))); }
void saveNodes(benchmark::State& state) { save(state, manyCharts(int(state.range()))); }
void loadNumbers(benchmark::State& state) { load(state, manyNumbers(int(state.range()))); }
void saveNumbers(benchmark::State& state) { save(state, manyNumbers(int(state.range()))); }
BENCHMARK(loadNodes)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveNodes)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(loadNumbers)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveNumbers)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
