#include "apps/fenvis/Command.h"
#include "apps/fenvis/TableChart.h"

#include "host/file/SceneFile.h"
#include "host/scene/Scene.h"

#include <QCommandLineParser>

namespace {

int saveScene(QString const& path, FenVisScene const& scene)
{
    int status = command::Success;
    for (FenSceneProblem const& problem : FenSceneFile::save(scene, path)) {
        command::badInput(problem.text());
        if (problem.error) status = command::BadInput;
    }
    return status;
}

} // namespace

QList<QCommandLineOption> command::chartOptions()
{
    QCommandLineOption const save(
        QStringLiteral("save"), QStringLiteral("the scene to write (JSON), in place of or beside a picture"),
        QStringLiteral("SCENE"));
    QCommandLineOption const rows(
        QStringLiteral("print-rows"),
        QStringLiteral("print the records that pass all filters as JSON (parallel)"));
    return TableChart::options() + QList<QCommandLineOption>{save, outputOption(), rows};
}

int command::runChart(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    bool const printRows = parser.isSet(QStringLiteral("print-rows"));
    bool const save = parser.isSet(QStringLiteral("save"));
    bool const draw = parser.isSet(QStringLiteral("o"));
    if (!draw && !save && !printRows) return wrongUsage(self, QStringLiteral("-o FILE is missing"));

    QString const output = parser.value(QStringLiteral("o"));
    QString const scenePath = parser.value(QStringLiteral("save"));
    for (QString const& target : {output, scenePath})
        if (isInput(target, parser)) return BadInput;

    TableChart chart;
    if (std::optional<int> const failure = chart.prepare(call, self, parser)) return *failure;
    FenVisScene scene;
    if (std::optional<int> const failure = chart.build(scene)) return *failure;
    if (printRows && !chart.printPassingRows(scene))
        return wrongUsage(self, QStringLiteral("--print-rows: needs --kind parallel"));
    scene.resize(chart.picture.size, chart.picture.scale);
    if (save) status = saveScene(scenePath, scene);
    if (!draw || status != Success) return status;
    return writePicture(output, chart.canvas->draw(scene, chart.picture));
}
