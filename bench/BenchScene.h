#pragma once

#include "charts/chart2d/VisChart2D.h"
#include "host/headless/OffscreenContext.h"
#include "host/scene/Scene.h"
#include "services/chartdata/ChartAxis.h"
#include "services/opengl/Gl.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QString>

#include <cmath>
#include <random>
#include <vector>

namespace bench {

constexpr int width = 1280; // [px]
constexpr int height = 800;

/// Random walk of `count` steps, the same in every run.
inline std::vector<double> walk(std::size_t count, unsigned seed = 1)
{
    std::mt19937 random(seed);
    std::vector<double> values(count);
    double sum = 0;
    for (double& value : values) value = sum += double(random()) / double(std::mt19937::max()) - 0.5;
    return values;
}

inline std::vector<double> uniform(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<double> values(count);
    for (double& value : values) value = double(random()) / double(std::mt19937::max());
    return values;
}

/// A scene drawn into a framebuffer of its own.
struct BenchScene {
    FenOffscreenContext context{QSize(width, height)};
    FenVisScene scene;

    /// Charts of one curve each, in a grid over the picture.
    void addCharts(int columns, int rows, std::size_t points)
    {
        for (int i = 0; i < columns * rows; ++i) {
            FenVisChart2D& chart = scene.add<FenVisChart2D>(QStringLiteral("chart"));
            chart.viewport.width.set(double(width / columns));
            chart.viewport.height.set(double(height / rows));
            chart.viewport.x.set(double(i % columns * (width / columns)));
            chart.viewport.y.set(double(i / columns * (height / rows)));
            FenChartVariable& curve = chart.chart.variables.append(QStringLiteral("curve"));
            curve.setData(Kes::Math::Vector3::CompY, walk(points, unsigned(i) + 1));
        }
        frame();
    }
    /// One chart of `points` symbols spread over the data rectangle.
    void addCloud(std::size_t points)
    {
        FenVisChart2D& chart = scene.add<FenVisChart2D>(QStringLiteral("cloud"));
        FenChartVariable& cloud = chart.chart.variables.append(QStringLiteral("cloud"));
        cloud.setData(Kes::Math::Vector3::CompX, uniform(points, 1));
        cloud.setData(Kes::Math::Vector3::CompY, uniform(points, 2));
        cloud.lineMode.set(FenChart::lineNone);
        cloud.symbol.set(FenChart::symbolEllipse);
        cloud.symbolSize.set(6);
        frame();
    }
    FenVisChart2D& chart(unsigned index = 0) { return dynamic_cast<FenVisChart2D&>(*scene.root().at(index)); }

    /// A whole frame, finished.
    void frame(QSize const& size = QSize(width, height))
    {
        scene.resize(size);
        scene.update();
        scene.draw();
        glFinish();
    }
};

/// main() of a benchmark program: the scene needs Qt's text, so an application object first.
inline int run(int argc, char** argv)
{
    QGuiApplication const application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace bench
