#include "host/table/RecordFilter.h"

#include "host/output/MessageText.h"
#include "host/table/ChartSelection.h"
#include "host/table/DateText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <optional>

namespace {

typedef FenDataTable::Kind Kind;
typedef FenDataTable::Column Column;

std::optional<double> limitOf(QString const& text, double open)
{
    if (text.isEmpty()) return open;
    bool number = false;
    double const value = text.toDouble(&number);
    if (number) return std::isfinite(value) ? std::optional(value) : std::nullopt;
    return fen::secondsFromIsoDate(text.toStdString());
}

QString categoryError(Column const& column, QString const& text)
{
    return QStringLiteral("no text %1 in column %2").arg(fen::quotedName(text), fen::quotedName(column.name));
}

QJsonValue jsonOf(Column const& column, std::size_t row)
{
    double const value = (*column.values)[row];
    if (std::isnan(value)) return QJsonValue::Null;
    return column.kind == Kind::Text ? QJsonValue(column.categories[qsizetype(value)]) : QJsonValue(value);
}

} // namespace

bool fen::readRecordFilter(FenDataTable const& table, QString const& text, RecordFilter& filter,
                           QString& error)
{
    qsizetype const equal = text.lastIndexOf(QLatin1Char('='));
    QString const value = text.mid(equal + 1);
    if (equal < 1) {
        error = QStringLiteral("--filter %1: expected a filter such as temp=10..20").arg(quotedName(text));
        return false;
    }
    filter.column = findColumn(table, text.left(equal), error);
    if (!filter.column) return false;
    if (filter.column->kind == Kind::Text) {
        qsizetype const category = filter.column->categories.indexOf(value);
        if (category < 0) error = categoryError(*filter.column, value);
        filter.min = double(category) - 0.5;
        filter.max = double(category) + 0.5;
        return category >= 0;
    }
    QStringList const ends = value.split(QStringLiteral(".."));
    double const far = std::numeric_limits<double>::max();
    std::optional<double> const low = limitOf(ends.first(), -far), high = limitOf(ends.last(), far);
    if (ends.size() != 2 || !low || !high || !(*low < *high)) {
        error = QStringLiteral("--filter %1: expected a range such as 10..20, the smaller number first")
                    .arg(quotedName(text));
        return false;
    }
    filter.min = *low;
    filter.max = *high;
    return true;
}

QByteArray fen::passingRows(FenDataTable const& table, std::vector<bool> const& valid)
{
    QJsonArray rows;
    for (std::size_t row = 0; row < std::min(table.rows(), valid.size()); ++row) {
        if (!valid[row]) continue;
        QJsonObject object{{QStringLiteral("row"), qint64(row)}};
        QJsonObject values;
        for (std::size_t i = 0; i < table.columns(); ++i)
            values.insert(table.column(i).name, jsonOf(table.column(i), row));
        object.insert(QStringLiteral("values"), values);
        rows.append(object);
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("total"), qint64(table.rows())},
                                     {QStringLiteral("passing"), rows.size()},
                                     {QStringLiteral("rows"), rows}})
        .toJson();
}
