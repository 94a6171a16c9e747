#include "apps/fenvis/Command.h"
#include "apps/fenvis/TableChart.h"

#include "host/output/FileOutput.h"
#include "host/output/MessageText.h"
#include "host/scene/Scene.h"

#include <QCommandLineParser>
#include <QFile>

#include <filesystem>
#include <system_error>

namespace {

/// True when both are there and are one regular file, through whatever links.
bool sameFile(QString const& a, QString const& b)
{
    std::error_code ignored;
    std::filesystem::path const first(QFile::encodeName(a).toStdString());
    std::filesystem::path const second(QFile::encodeName(b).toStdString());
    return std::filesystem::is_regular_file(first, ignored)
        && std::filesystem::equivalent(first, second, ignored);
}

} // namespace

QList<QCommandLineOption> command::chartOptions()
{
    QCommandLineOption const output({QStringLiteral("o"), QStringLiteral("output")},
                                    QStringLiteral("the picture to write (PNG)"), QStringLiteral("FILE"));
    QCommandLineOption const rows(
        QStringLiteral("print-rows"),
        QStringLiteral("print the records that pass all filters as JSON (parallel)"));
    return TableChart::options() + QList<QCommandLineOption>{output, rows};
}

int command::runChart(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    bool const printRows = parser.isSet(QStringLiteral("print-rows"));
    bool const write = parser.isSet(QStringLiteral("o"));
    if (!write && !printRows) return wrongUsage(self, QStringLiteral("-o FILE is missing"));

    QString const output = parser.value(QStringLiteral("o"));
    if (sameFile(output, parser.positionalArguments().first()))
        return badInput(fen::messageText(output)
                        + QStringLiteral(": is the table itself; -o has to name another file"));

    TableChart chart;
    if (std::optional<int> const failure = chart.prepare(call, self, parser)) return *failure;
    FenVisScene scene;
    if (std::optional<int> const failure = chart.build(scene)) return *failure;
    if (printRows && !chart.printPassingRows(scene))
        return wrongUsage(self, QStringLiteral("--print-rows: needs --kind parallel"));
    if (!write) return Success;
    QByteArray const png = pngBytes(chart.canvas->draw(scene, chart.picture));
    if (png.isEmpty()) return badInput(QStringLiteral("fenvis: not enough memory for the picture"));
    QString error;
    if (!fen::writeFile(output, png, error)) return badInput(error);
    return Success;
}
