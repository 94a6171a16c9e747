// What the property tree costs: writes, reads, watcher queries, and trees of many nodes.

#include "services/properties/ModifiedWatcher.h"
#include "services/properties/PropertyAdaptor.h"

#include <QColor>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

/// One node of a scene: ten properties, four levels below the root.
struct Scene {
    FenModifiedGroup group;
    FenProperties root{group};
    FenProperties* node = root.child("a", {})->child("b", {})->child("c", {})->child("d", {});
    FenModifiedWatcher watcher{&root};
    FenPropertyAdaptor<double> number{*node, "number", 0.0, "mm"};
    FenPropertyAdaptor<QColor> color{*node, "color", Qt::black, QString()};
    FenPropertyAdaptor<QString> text{*node, "text", QString(), QString()};
    FenPropertyAdaptor<Kes::Math::Matrix> matrix{*node, "matrix", {}, QString()};

    Scene()
    {
        for (int i = 0; i < 6; ++i) node->string().setValue(QString("other%1").arg(i), i);
    }
};

/// A write that nobody watches between two writes, as in a loop of the host.
void writeNumber(benchmark::State& state)
{
    Scene scene;
    double value = 0;
    for (auto _ : state) scene.number.set(value += 0.1);
}
BENCHMARK(writeNumber);

/// A write that every watcher above has to hear of.
void writeWatchedNumber(benchmark::State& state)
{
    Scene scene;
    double value = 0;
    for (auto _ : state) {
        scene.number.set(value += 0.1);
        scene.watcher.reset();
    }
}
BENCHMARK(writeWatchedNumber);

void writeSameNumber(benchmark::State& state)
{
    Scene scene;
    for (auto _ : state) scene.number.set(0.1);
}
BENCHMARK(writeSameNumber);

void writeColor(benchmark::State& state)
{
    Scene scene;
    unsigned value = 0;
    for (auto _ : state) scene.color.set(QColor::fromRgba(value++));
}
BENCHMARK(writeColor);

void writeMatrix(benchmark::State& state)
{
    Scene scene;
    Kes::Math::Matrix value;
    for (auto _ : state) {
        value(0, 3) += 1;
        scene.matrix.set(value);
    }
}
BENCHMARK(writeMatrix);

void writeText(benchmark::State& state)
{
    Scene scene;
    QString const texts[] = {"one", "another"};
    unsigned i = 0;
    for (auto _ : state) scene.text.set(texts[i++ % 2]);
}
BENCHMARK(writeText);

/// By key, with the text returned.
void writeNumberByKey(benchmark::State& state)
{
    Scene scene;
    double value = 0;
    QString const key("number");
    for (auto _ : state) benchmark::DoNotOptimize(scene.node->string().setValue(key, value += 0.1));
}
BENCHMARK(writeNumberByKey);

/// A text written by key and read as a number: what an edit in a panel costs.
void writeTextReadNumber(benchmark::State& state)
{
    Scene scene;
    QString const key("number"), texts[] = {"1.25", "-3.14159265"};
    unsigned i = 0;
    for (auto _ : state) {
        scene.node->setValue(key, texts[i++ % 2]);
        benchmark::DoNotOptimize(scene.number.get());
    }
}
BENCHMARK(writeTextReadNumber);

void readNumber(benchmark::State& state)
{
    Scene scene;
    for (auto _ : state) benchmark::DoNotOptimize(scene.number.get());
}
BENCHMARK(readNumber);

void queryWatcher(benchmark::State& state)
{
    Scene scene;
    scene.watcher.reset();
    for (auto _ : state) benchmark::DoNotOptimize(scene.watcher.modified());
}
BENCHMARK(queryWatcher);

/// `range(0)` children of one node: built, found by name and changed, destroyed.
void wideTree(benchmark::State& state)
{
    FenModifiedGroup group;
    unsigned const count = unsigned(state.range(0));
    std::vector<QString> names;
    for (unsigned i = 0; i < count; ++i) names.push_back(QString::number(i));
    for (auto _ : state) {
        FenProperties root(group);
        for (QString const& name : names) root.child(name, {});
        for (QString const& name : names) root.at(name)->setValue("key", name);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(wideTree)->Unit(benchmark::kMillisecond)->Arg(1000)->Arg(10000)->Arg(100000);

/// The same as one chain.
void deepTree(benchmark::State& state)
{
    FenModifiedGroup group;
    for (auto _ : state) {
        FenProperties root(group);
        FenProperties* last = &root;
        for (int64_t i = 0; i < state.range(0); ++i) last = last->child("below", {});
        for (FenProperties* node = last; node; node = node->parent()) node->setValue("key", "value");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(deepTree)->Unit(benchmark::kMillisecond)->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace

BENCHMARK_MAIN();
