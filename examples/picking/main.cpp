// What was clicked: prints the name of the curve and the part of it that was
// met, and asks the scene itself for what lies in its middle.

#include <fenvis/FenVis.h>
#include <fenvis/FenVisHost.h>

#include <QApplication>

#include <iostream>

namespace {

/// "temperature, dataPointIdx(3)"
std::string describe(FenVisHitProperty const& what)
{
    if (!what.defined()) return "nothing";
    std::string text = what.property->name().toStdString();
    if (what.qualifier) text += ", " + what.qualifier->toString().toStdString();
    return text;
}

/// A pick without a mouse: what lies at a point [px, y up] of the widget.
FenVisHitProperty pickAt(FenVisWidget& widget, QPoint point)
{
    widget.makeCurrent();
    return widget.scene().pick(point, QSize(6, 6)).property;
}

void addCurve(FenVisChart2D& plot, QString const& name, QColor const& color, std::vector<double> values)
{
    FenChartVariable& curve = plot.chart.variables.append(name);
    curve.setData(Kes::Math::Vector3::CompY, std::move(values));
    curve.lineColor.set(color);
    curve.symbol.set(FenChart::symbolEllipse);
    curve.symbolSize.set(9);
    curve.symbolColor.set(color);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    FenVisWidget window;
    FenVisChart2D& plot = window.scene().add<FenVisChart2D>(QStringLiteral("plot"));
    addCurve(plot, QStringLiteral("temperature"), QColor(213, 94, 0), {12, 14, 13, 17, 21, 19});
    addCurve(plot, QStringLiteral("dew point"), QColor(0, 114, 178), {8, 9, 9, 11, 14, 15});

    window.tracker().setOnSelect(
        [](FenVisHitProperty const& what) { std::cout << describe(what) << std::endl; });
    QObject::connect(
        &window, &QOpenGLWidget::frameSwapped, &window,
        [&window] {
            QPoint const middle(window.width() / 2, window.height() / 2);
            std::cout << "in the middle: " << describe(pickAt(window, middle)) << std::endl;
        },
        Qt::SingleShotConnection);
    window.show();
    return QApplication::exec();
}
