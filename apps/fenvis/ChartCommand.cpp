#include "apps/fenvis/Command.h"
#include "apps/fenvis/TableChart.h"

#include "host/output/FileOutput.h"
#include "host/scene/Scene.h"

#include <QCommandLineParser>

QList<QCommandLineOption> command::chartOptions()
{
    QCommandLineOption const output({QStringLiteral("o"), QStringLiteral("output")},
                                    QStringLiteral("the picture to write (PNG)"), QStringLiteral("FILE"));
    return TableChart::options() + QList<QCommandLineOption>{output};
}

int command::runChart(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    if (!parser.isSet(QStringLiteral("o"))) return wrongUsage(self, QStringLiteral("-o FILE is missing"));

    TableChart chart;
    if (std::optional<int> const failure = chart.prepare(call, self, parser)) return *failure;
    FenVisScene scene;
    if (std::optional<int> const failure = chart.build(scene)) return *failure;
    QByteArray const png = pngBytes(chart.canvas->draw(scene, chart.picture));
    if (png.isEmpty()) return badInput(QStringLiteral("fenvis: not enough memory for the picture"));
    QString error;
    if (!fen::writeFile(parser.value(QStringLiteral("o")), png, error)) return badInput(error);
    return Success;
}
