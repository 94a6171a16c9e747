#include "apps/fenvis/Command.h"
#include "apps/fenvis/TextTable.h"

#include "host/output/MessageText.h"
#include "host/table/AxisChoice.h"
#include "host/table/DataTable.h"
#include "host/table/ReadArguments.h"

#include <QCommandLineParser>
#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

typedef FenDataTable::Kind Kind;
typedef FenDataTable::Column Column;

QString kindName(Kind kind)
{
    switch (kind) {
    case Kind::Number:
        return QStringLiteral("number");
    case Kind::Date:
        return QStringLiteral("date");
    case Kind::Time:
        return QStringLiteral("time");
    case Kind::Text:
        break;
    }
    return QStringLiteral("text");
}

QString valueText(Column const& column, double value)
{
    if (column.kind == Kind::Number) return QString::number(value, 'g', QLocale::FloatingPointShortest);
    qint64 const milliseconds = qint64(std::llround(value * 1000));
    QDateTime const time = QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
    if (column.kind == Kind::Time) return time.toString(QStringLiteral("HH:mm:ss"));
    return time.toString(column.hasTime ? QStringLiteral("yyyy-MM-dd HH:mm:ss")
                                        : QStringLiteral("yyyy-MM-dd"));
}

QString rangeText(Column const& column)
{
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (double const value : *column.values) {
        if (std::isnan(value)) continue;
        low = std::min(low, value);
        high = std::max(high, value);
    }
    if (low > high) return {};
    if (column.kind == Kind::Text) return QStringLiteral("%1 different").arg(column.categories.size());
    return valueText(column, low) + QStringLiteral(" to ") + valueText(column, high);
}

command::TextTable columnsOf(FenDataTable const& table)
{
    Column const* const x = fen::chooseXAxis(table).column;
    command::TextTable rows{{QStringLiteral("name"), QStringLiteral("type"), QStringLiteral("unit"),
                             QStringLiteral("range"), QStringLiteral("missing"), QString()}};
    for (std::size_t i = 0; i < table.columns(); ++i) {
        Column const& column = table.column(i);
        auto const missing =
            std::ranges::count_if(*column.values, [](double value) { return std::isnan(value); });
        rows.push_back({fen::messageText(column.name), kindName(column.kind),
                        fen::messageText(column.kind == Kind::Date ? column.zone : column.unit),
                        rangeText(column), QString::number(missing),
                        &column == x ? QStringLiteral("x") : QString()});
    }
    return rows;
}

} // namespace

QList<QCommandLineOption> command::columnsOptions() { return fen::readArguments(); }

int command::runColumns(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    FenReadOptions options;
    QString error;
    if (!fen::readReadArguments(parser, QString(), options, error)) return wrongUsage(self, error);
    FenDataTable table;
    if (!FenDataTable::read(parser.positionalArguments().first(), table, error, options))
        return badInput(error);
    remark(table.notes());
    print(textTable(columnsOf(table)));
    return Success;
}
