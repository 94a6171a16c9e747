// The first chart: a curve in a window, with tooltips, zooming and panning.

#include <fenvis/FenVis.h>
#include <fenvis/FenVisHost.h>

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    FenVisWidget window;
    FenVisChart2D& plot = window.scene().add<FenVisChart2D>("plot");
    FenChartVariable& curve = plot.chart.variables.append("squares");
    curve.setData(Kes::Math::Vector3::CompX, {0, 1, 2, 3, 4, 5});
    curve.setData(Kes::Math::Vector3::CompY, {0, 1, 4, 9, 16, 25});
    window.show();
    return application.exec();
}
