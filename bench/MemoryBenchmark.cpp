// Draws many passes of a chart whose texts, gradients, symbols and size change all the time, and
// prints the memory of the process on the way: caches are bounded, so it must stay flat.
//
//     memory_bench [passes]      status 1 when it grew by more than a few MiB

#include "bench/BenchScene.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

constexpr double allowed = 8; // [MiB] room for pages that the allocator keeps

/// [MiB] resident memory of this process
double residentMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kib = 0;
        if (word == "VmRSS:" && status >> kib) return kib / 1024;
    }
    return 0;
}

/// Gives the chart texts, colours and sizes that no pass before had.
void change(FenVisChart2D& chart, int pass)
{
    FenChartVariable& curve = chart.chart.variables[0];
    curve.label.set(QString("curve %1").arg(pass));
    curve.unitY.set(QString("unit %1").arg(pass));
    curve.symbolSize.set(1 + pass % 60);
    curve.symbolColor.set(QColor::fromRgba(0xff000000U + unsigned(pass) * 977));
    curve.colors.set({QColor::fromRgba(0xff000000U + unsigned(pass)), Qt::white});
    chart.chart.title.set(QString("pass %1").arg(pass * 7919));
    chart.chart.modify();
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication const application(argc, argv);
    int const passes = argc > 1 ? std::max(10, std::atoi(argv[1])) : 100000;
    bench::BenchScene scene;
    scene.addCloud(20);
    FenVisChart2D& chart = scene.chart();
    chart.chart.variables[0].style.set(FenChart::styleBar);
    chart.chart.variables[0].fillMode.set(FenChart::fillGradient);
    double early = 0, last = 0;
    for (int pass = 1; pass <= passes; ++pass) {
        change(chart, pass);
        scene.frame(QSize(160 + pass % 7, 120 + pass % 5));
        scene.scene.select(QPoint(80, 60), QSize(5, 5));
        for (int percent : {10, 50, 100}) {
            if (pass != passes / 100.0 * percent) continue;
            last = residentMemory();
            if (percent == 10) early = last;
            std::printf("%3d %% of %d passes: %.1f MiB\n", percent, passes, last);
            std::fflush(stdout);
        }
    }
    return last - early <= allowed ? 0 : 1;
}
