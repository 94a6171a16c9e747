#include "apps/fenvis/TableChart.h"

#include "apps/fenvis/Command.h"

#include "host/output/MessageText.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartArguments.h"
#include "host/table/DataTable.h"
#include "host/table/ReadArguments.h"
#include "host/table/RecordFilter.h"

#include "charts/parallel/VisChartPCP.h"

#include <QCommandLineParser>

command::TableChart::TableChart() = default;
command::TableChart::~TableChart() = default;

QList<QCommandLineOption> command::TableChart::options()
{
    return fen::chartArguments() + fen::readArguments() + PictureOptions::options();
}

std::optional<int> command::TableChart::prepare(Call const& call, Command const& self,
                                                QCommandLineParser const& parser)
{
    QString error;
    if (!fen::readChartArguments(parser, _chart, error) || !picture.read(parser, error)
        || !fen::readReadArguments(parser, _chart.x, _reading, error))
        return wrongUsage(self, error);
    error = picture.sizeError();
    if (!error.isEmpty()) return badInput(error);
    _file = parser.positionalArguments().first();
    _table = std::make_unique<FenDataTable>();
    if (!FenDataTable::read(_file, *_table, error, _reading)) return badInput(error);
    remark(_table->notes());
    canvas = std::make_unique<Canvas>(call.argc, call.argv);
    if (!canvas->prepare(picture, error)) return badInput(error);
    return {};
}

std::optional<int> command::TableChart::build(FenVisScene& scene) const
{
    QString error;
    QStringList remarks;
    bool const added = fen::addChart(scene, *_table, _chart, *picture.theme, error, &remarks);
    for (QString& line : remarks) line.prepend(fen::messageText(_file) + QStringLiteral(": "));
    remark(remarks);
    if (added) {
        scene.tables.push_back({QString(), _file, _reading, *_table, {}});
        return {};
    }
    return badInput(fen::messageText(_file) + QStringLiteral(":1: ") + error);
}

bool command::TableChart::printPassingRows(FenVisScene& scene) const
{
    scene.update();
    for (unsigned i = 0; i < scene.root().size(); ++i) {
        auto const* const chart = dynamic_cast<FenVisChartPCP const*>(scene.root().at(i));
        if (!chart) continue;
        print(QString::fromUtf8(fen::passingRows(*_table, chart->GetDataValid())));
        return true;
    }
    return false;
}
