#include "apps/fenvis/TableChart.h"

#include "apps/fenvis/Command.h"

#include "host/output/MessageText.h"
#include "host/scene/Theme.h"
#include "host/table/ChartArguments.h"
#include "host/table/DataTable.h"

#include <QCommandLineParser>

namespace {

/// Empty, or why this kind of chart cannot be made.
QString kindError(QString const& kind)
{
    if (kind == QLatin1String("2d")) return {};
    QStringList const later{QStringLiteral("3d"), QStringLiteral("correlation"), QStringLiteral("parallel"),
                            QStringLiteral("pie"), QStringLiteral("spider")};
    return later.contains(kind) ? QStringLiteral("--kind %1 cannot be drawn yet; there is: 2d").arg(kind)
                                : QStringLiteral("--kind is none of: 2d");
}

} // namespace

command::TableChart::TableChart() = default;
command::TableChart::~TableChart() = default;

QList<QCommandLineOption> command::TableChart::options()
{
    QList<QCommandLineOption> options{
        {QStringLiteral("kind"), QStringLiteral("2d, which is the default"), QStringLiteral("K")}};
    return options + fen::chartArguments() + PictureOptions::options();
}

std::optional<int> command::TableChart::prepare(Call const& call, Command const& self,
                                                QCommandLineParser const& parser)
{
    QString const kind =
        parser.isSet(QStringLiteral("kind")) ? parser.value(QStringLiteral("kind")) : QStringLiteral("2d");
    QString error = kindError(kind);
    if (!error.isEmpty() || !fen::readChartArguments(parser, _chart, error) || !picture.read(parser, error))
        return wrongUsage(self, error);
    error = picture.sizeError();
    if (!error.isEmpty()) return badInput(error);
    _file = parser.positionalArguments().first();
    _table = std::make_unique<FenDataTable>();
    if (!FenDataTable::read(_file, *_table, error)) return badInput(error);
    canvas = std::make_unique<Canvas>(call.argc, call.argv);
    if (!canvas->prepare(picture, error)) return badInput(error);
    return {};
}

std::optional<int> command::TableChart::build(FenVisScene& scene) const
{
    QString error;
    if (fen::addChart(scene, *_table, _chart, *picture.theme, error)) return {};
    return badInput(fen::messageText(_file) + QStringLiteral(":1: ") + error);
}
